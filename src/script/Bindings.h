#pragma once

#include <string_view>

struct lua_State;

namespace nalt {

class Call;

/// What the program does for one function of the API.
struct Binding {
  std::string_view name;
  int (*work)(Call&); ///< gives the number of results that it pushed
};

/// Whether the function does what it says; one that doesn't yet warns and gives its neutral result.
bool isImplemented(std::string_view name);

/// Fills the global table `nalt` with all functions of the API reference. Each does nothing and gives its neutral
/// result, without an error, when no script runs, and also when it needs a current model and there is none. Otherwise
/// it checks its arguments, has questions answered with yes, and calls its binding. One without a binding says so in a
/// warning.
void registerBindings(lua_State* lua);

} // namespace nalt
