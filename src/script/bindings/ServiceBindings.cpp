#include "script/bindings/ServiceBindings.h"

#include "core/Preferences.h"
#include "platform/Paths.h"
#include "script/Call.h"
#include "script/MacroRun.h"
#include "script/ScriptRun.h"

#include <lua.hpp>

namespace nalt::bindings {

namespace {

/// Each run needs room on the stack for a Lua state of its own.
constexpr int deepestRun = 100;

MacroParameter parameterAt(lua_State* lua, int position)
{
  MacroParameter parameter;
  parameter.name = lua_tostring(lua, position);
  switch (lua_type(lua, position + 1)) {
  case LUA_TBOOLEAN:
    parameter.type = MacroParameter::Type::boolean;
    parameter.booleanValue = lua_toboolean(lua, position + 1) != 0;
    break;
  case LUA_TNUMBER:
    parameter.type = MacroParameter::Type::number;
    parameter.numberValue = lua_tonumber(lua, position + 1);
    break;
  default:
    parameter.type = MacroParameter::Type::string;
    parameter.stringValue = lua_tostring(lua, position + 1);
    break;
  }
  return parameter;
}

int executeMacro(Call& call)
{
  Macro macro;
  macro.scriptFile = call.text("scriptFile");
  macro.name = fileNamePart(macro.scriptFile);
  constexpr int pair = 2;
  for (int position = call.arguments().groupsBegin(); position < call.arguments().groupsEnd(); position += pair)
    macro.parameters.push_back(parameterAt(call.lua(), position));

  if (call.run().depth() >= deepestRun) call.raise("Macros call each other too deep.");
  std::string errorText;
  if (runMacro(macro, errorText)) return call.give(true);
  call.raise(errorText.empty() ? "Macro " + macro.name + " failed." : errorText);
}

int getTolerance(Call& call)
{
  return call.give(Preferences::get().tolerance);
}

/// For the program as a whole and for good: neither undo nor the end of the script takes it back.
int setTolerance(Call& call)
{
  const double value = call.number("value");
  if (value >= 0) Preferences::get().tolerance = value; // false for what isn't a number
  return call.giveNothing();
}

constexpr Binding table[] = {
    {"executeMacro", executeMacro},
    {"getTolerance", getTolerance},
    {"setTolerance", setTolerance},
};

} // namespace

std::span<const Binding> serviceBindings()
{
  return table;
}

} // namespace nalt::bindings
