#pragma once

#include <string_view>

struct lua_State;

namespace nalt {

/// Raises a Lua error with the place in the script in front of `text`. Objects on the way are destroyed: Lua is linked
/// in its C++ build.
[[noreturn]] void raiseError(lua_State* lua, std::string_view text);

} // namespace nalt
