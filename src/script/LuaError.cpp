#include "script/LuaError.h"

#include <cstdlib>
#include <lua.hpp>

namespace nalt {

void raiseError(lua_State* lua, std::string_view text)
{
  luaL_where(lua, 1);
  lua_pushlstring(lua, text.data(), text.size());
  lua_concat(lua, 2);
  lua_error(lua);
  std::abort(); // lua_error doesn't come back
}

} // namespace nalt
