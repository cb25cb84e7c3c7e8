#include "platform/Paths.h"
#include "script/Bindings.h"
#include "script/ScriptRun.h"

#include <lua.hpp>
#include <memory>

// One Lua state for one script file: made, filled, run and closed here.

namespace nalt {

namespace {

struct CloseState {
  void operator()(lua_State* state) const { lua_close(state); }
};
using State = std::unique_ptr<lua_State, CloseState>;

/// What `print` makes of one value. Tables, functions and the like leave nothing but their place.
std::string printed(lua_State* lua, int index)
{
  if (lua_isstring(lua, index)) {
    std::size_t length = 0;
    const char* text = lua_tolstring(lua, index, &length);
    return {text, length};
  }
  if (lua_isboolean(lua, index)) return lua_toboolean(lua, index) ? "true" : "false";
  if (lua_isnil(lua, index)) return "<nil> ";
  return {};
}

int print(lua_State* lua)
{
  const auto* run = ScriptRun::active();
  if (!run) return 0;
  std::string text;
  const int count = lua_gettop(lua);
  for (int i = 1; i <= count; ++i)
    text += (i > 1 ? " " : "") + printed(lua, i);
  scriptOutput(run, text);
  return 0;
}

void setGlobals(lua_State* lua, const std::vector<MacroParameter>& parameters)
{
  for (const auto& parameter : parameters) {
    switch (parameter.type) {
    case MacroParameter::Type::string:
      lua_pushstring(lua, parameter.stringValue.c_str());
      break;
    case MacroParameter::Type::boolean:
      lua_pushboolean(lua, parameter.booleanValue);
      break;
    case MacroParameter::Type::number:
      lua_pushnumber(lua, parameter.numberValue);
      break;
    case MacroParameter::Type::file:
      lua_pushstring(lua, parameter.fileValue.c_str());
      break;
    case MacroParameter::Type::folder:
      lua_pushstring(lua, parameter.folderValue.c_str());
      break;
    default:
      continue;
    }
    lua_setglobal(lua, parameter.name.c_str());
  }
}

void setArguments(lua_State* lua, const std::string& program, const std::string& script,
                  const std::vector<std::string>& arguments)
{
  lua_newtable(lua);
  const auto put = [&](int key, const std::string& value) {
    lua_pushnumber(lua, key);
    lua_pushstring(lua, value.c_str());
    lua_settable(lua, -3);
  };
  put(-1, program);
  put(0, script);
  for (std::size_t i = 0; i < arguments.size(); ++i)
    put(static_cast<int>(i) + 1, arguments[i]);
  lua_setglobal(lua, "arg");
}

std::string errorOf(lua_State* lua)
{
  const auto* text = lua_tostring(lua, -1);
  return text ? text : "UNDEFINED ERROR MESSAGE";
}

} // namespace

std::string pathToScript(const std::string& scriptPath)
{
  if (isAbsolute(scriptPath)) return folderPart(scriptPath);
  if (scriptPath.starts_with("..")) return folderPart(scriptPath);
  return folderPart(folderPart(scriptPath) + scriptPath);
}

bool runScript(ScriptRun& run, const std::string& scriptPath, std::string& errorText,
               const std::vector<MacroParameter>& parameters, const std::vector<std::string>& arguments,
               const std::string& programName)
{
  const auto path = nativePath(scriptPath);
  const State state(luaL_newstate());
  if (!state) {
    errorText = "not enough memory";
    return false;
  }
  auto* lua = state.get();
  luaL_openlibs(lua);
  lua_register(lua, "print", print);
  registerBindings(lua);
  setGlobals(lua, parameters);
  if (run.batch()) setArguments(lua, programName, scriptPath, arguments);
  lua_pushstring(lua, pathToScript(path).c_str());
  lua_setglobal(lua, "NALT_PATH_TO_SCRIPT");

  errorText.clear();
  if (luaL_loadfile(lua, path.c_str()) == LUA_OK && lua_pcall(lua, 0, 0, 0) == LUA_OK) return true;
  errorText = errorOf(lua);
  if (!errorText.empty()) run.log("ERROR: " + errorText);
  return false;
}

} // namespace nalt
