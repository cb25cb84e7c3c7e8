#include "script/Call.h"

#include "platform/Paths.h"
#include "script/LuaError.h"
#include "script/ScriptRun.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <lua.hpp>
#include <osg/Vec3d>

namespace nalt {

namespace {

double numberOf(std::string_view text)
{
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

int pushRepeated(lua_State* lua, int count, double value)
{
  luaL_checkstack(lua, count, nullptr);
  for (int i = 0; i < count; ++i)
    lua_pushnumber(lua, value);
  return count;
}

int pushIdentity(lua_State* lua)
{
  constexpr int size = 4;
  luaL_checkstack(lua, size * size, nullptr);
  for (int row = 0; row < size; ++row)
    for (int column = 0; column < size; ++column)
      lua_pushnumber(lua, row == column ? 1 : 0);
  return size * size;
}

int pushNils(lua_State* lua, int count)
{
  luaL_checkstack(lua, count, nullptr);
  for (int i = 0; i < count; ++i)
    lua_pushnil(lua);
  return count;
}

} // namespace

int pushNeutral(lua_State* lua, const ApiFunction& function, int argumentCount)
{
  const int names = std::max(0, argumentCount - static_cast<int>(function.arguments.size()));
  switch (function.result) {
  case ApiResult::nothing:
    return 0;
  case ApiResult::boolean:
    lua_pushboolean(lua, false);
    return 1;
  case ApiResult::integer:
  case ApiResult::number:
    return pushRepeated(lua, 1, 0);
  case ApiResult::index:
  case ApiResult::colorOrIndex:
    return pushRepeated(lua, 1, -1);
  case ApiResult::text:
  case ApiResult::textAndNumbers:
  case ApiResult::integerOrText:
    lua_pushliteral(lua, "");
    return 1;
  case ApiResult::texts:
    lua_newtable(lua);
    return 1;
  case ApiResult::uv:
    return pushRepeated(lua, 2, 0);
  case ApiResult::size:
    return pushRepeated(lua, 2, -1);
  case ApiResult::point:
  case ApiResult::color:
    return pushRepeated(lua, 3, 0);
  case ApiResult::matrix:
    return pushIdentity(lua);
  case ApiResult::valuePerName:
    return pushNils(lua, names);
  case ApiResult::numberPerName:
    return pushRepeated(lua, names, 0);
  }
  return 0;
}

Call::Call(lua_State* lua, const ApiFunction& function, ScriptRun& run)
    : lua_(lua), function_(function), run_(run), arguments_(lua, function)
{}

Model& Call::model() const
{
  return *run_.currentModel();
}

bool Call::records() const
{
  return run_.records();
}

/// A binding that asks for an argument its function doesn't have is a mistake of ours.
const ApiArgument& Call::row(std::string_view name) const
{
  const auto* argument = arguments_.find(name);
  if (!argument) std::abort();
  return *argument;
}

bool Call::flag(std::string_view name) const
{
  const int position = arguments_.position(name);
  return position ? lua_toboolean(lua_, position) : row(name).otherwise == "true";
}

double Call::number(std::string_view name) const
{
  const int position = arguments_.position(name);
  return position ? lua_tonumber(lua_, position) : numberOf(row(name).otherwise);
}

int Call::integer(std::string_view name) const
{
  const double value = number(name);
  if (std::isnan(value)) return std::numeric_limits<int>::min();
  return static_cast<int>(std::clamp<double>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::string Call::text(std::string_view name) const
{
  const auto& argument = row(name);
  const int position = arguments_.position(name);
  if (!position) return std::string(argument.otherwise.substr(1, argument.otherwise.size() - 2)); // without its quotes
  const char* value = lua_tostring(lua_, position);
  return argument.type == ApiType::file ? nativePath(value) : std::string(value);
}

int Call::giveBoolean(bool value) const
{
  lua_pushboolean(lua_, value);
  return 1;
}

int Call::giveNumber(double value) const
{
  lua_pushnumber(lua_, value);
  return 1;
}

int Call::giveText(std::string_view value) const
{
  lua_pushlstring(lua_, value.data(), value.size());
  return 1;
}

int Call::give(const osg::Vec3d& point) const
{
  for (int i = 0; i < 3; ++i)
    lua_pushnumber(lua_, point[i]);
  return 3;
}

int Call::give(const std::vector<std::string>& texts) const
{
  lua_createtable(lua_, static_cast<int>(texts.size()), 0);
  int key = 0;
  for (const auto& text : texts) {
    giveText(text);
    lua_rawseti(lua_, -2, ++key);
  }
  return 1;
}

int Call::giveNeutral() const
{
  return pushNeutral(lua_, function_, lua_gettop(lua_));
}

void Call::raise(std::string_view text) const
{
  raiseError(lua_, text);
}

} // namespace nalt
