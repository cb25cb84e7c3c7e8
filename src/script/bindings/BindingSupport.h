#pragma once

#include "core/Model.h"
#include "core/Shell.h"
#include "platform/Paths.h"
#include "script/ScriptRun.h"

#include <lua.hpp>
#include <string>

/// What most bindings begin and end with. A function does nothing and gives its neutral result, without an error, when
/// no script runs, and also when it needs a current model and there is none; its arguments are looked at only after
/// that.
namespace nalt::bindings {

inline int giveBoolean(lua_State* lua, bool value)
{
  lua_pushboolean(lua, value);
  return 1;
}

inline int giveText(lua_State* lua, const std::string& text)
{
  lua_pushlstring(lua, text.data(), text.size());
  return 1;
}

/// The active run if it has a current model, else null.
inline ScriptRun* runWithModel()
{
  auto* run = ScriptRun::active();
  return run && run->currentModel() ? run : nullptr;
}

/// A required file name, in the separators of this system.
inline std::string fileArgument(lua_State* lua, int index)
{
  return nativePath(luaL_checkstring(lua, index));
}

/// An optional number that is only looked at when the call has so many arguments.
inline int integerArgument(lua_State* lua, int index, int otherwise)
{
  return lua_gettop(lua) >= index ? static_cast<int>(luaL_checkinteger(lua, index)) : otherwise;
}

inline void answerWith(Answer answer)
{
  Shell::get().setPresetAnswer(answer);
}

} // namespace nalt::bindings
