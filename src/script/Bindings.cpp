#include "script/Bindings.h"

#include "script/bindings/ModelBindings.h"
#include "script/bindings/SelectionBindings.h"

#include <array>
#include <lua.hpp>

namespace nalt {

void registerBindings(lua_State* lua)
{
  lua_newtable(lua);
  const std::array families = {bindings::modelBindings(), bindings::selectionBindings(), bindings::traverseBindings()};
  for (const auto& family : families) {
    for (const auto& binding : family) {
      lua_pushcfunction(lua, binding.function);
      lua_setfield(lua, -2, binding.name);
    }
  }
  lua_setglobal(lua, "nalt");
}

} // namespace nalt
