#pragma once

struct lua_State;

namespace nalt {

/// Fills the global table `nalt` with all functions of the script API.
void registerBindings(lua_State* lua);

/// One function of the API.
struct Binding {
  const char* name;
  int (*function)(lua_State*);
};

} // namespace nalt
