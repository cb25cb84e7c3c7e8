#include "script/Bindings.h"

#include "script/bindings/ModelBindings.h"

#include <lua.hpp>

namespace nalt {

void registerBindings(lua_State* lua)
{
  lua_newtable(lua);
  for (const auto& binding : bindings::modelBindings()) {
    lua_pushcfunction(lua, binding.function);
    lua_setfield(lua, -2, binding.name);
  }
  lua_setglobal(lua, "nalt");
}

} // namespace nalt
