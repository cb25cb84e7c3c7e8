#pragma once

#include "script/Arguments.h"

#include <concepts>
#include <string>
#include <vector>

struct lua_State;

namespace osg {
class Vec3d;
}

namespace nalt {

class Model;
class ScriptRun;

/// What a binding works with: one call of an API function out of a running script. The arguments have been checked
/// before the binding is called, and there is a current model if the function needs one. Bindings name their arguments
/// as the API reference does; what the call doesn't give has the default from there.
class Call {
public:
  Call(lua_State* lua, const ApiFunction& function, ScriptRun& run);

  lua_State* lua() const { return lua_; }
  ScriptRun& run() const { return run_; }
  /// Only for functions that need a model.
  Model& model() const;
  /// Whether what the call does goes on the undo stack.
  bool records() const;
  const Arguments& arguments() const { return arguments_; }

  // ---- arguments ----------------------------------------------------------------------------------------------------

  /// Whether the call goes as far as this argument.
  bool has(std::string_view name) const { return arguments_.position(name) > 0; }
  bool flag(std::string_view name) const;
  /// Cut off toward zero, and at the ends of the range of int.
  int integer(std::string_view name) const;
  double number(std::string_view name) const;
  /// A file has the separators of this system.
  std::string text(std::string_view name) const;

  // ---- results: each ends a binding, as in `return call.give(true);`
  // --------------------------------------------------

  int giveNothing() const { return 0; }
  int give(std::same_as<bool> auto value) const { return giveBoolean(value); }
  int give(std::same_as<int> auto value) const { return giveNumber(value); }
  int give(std::same_as<double> auto value) const { return giveNumber(value); }
  int give(const std::string& value) const { return giveText(value); }
  int give(const char* value) const { return giveText(value); }
  /// Its three coordinates.
  int give(const osg::Vec3d& point) const;
  /// A table with keys from 1.
  int give(const std::vector<std::string>& texts) const;
  /// What the function gives when there is nothing that it could work on.
  int giveNeutral() const;

  /// Ends the call with a Lua error.
  [[noreturn]] void raise(std::string_view text) const;

private:
  int giveBoolean(bool value) const;
  int giveNumber(double value) const;
  int giveText(std::string_view value) const;
  const ApiArgument& row(std::string_view name) const;

  lua_State* lua_;
  const ApiFunction& function_;
  ScriptRun& run_;
  Arguments arguments_;
};

/// Pushes the neutral result of `function` for a call with so many arguments, and says how many values it has.
int pushNeutral(lua_State* lua, const ApiFunction& function, int argumentCount);

} // namespace nalt
