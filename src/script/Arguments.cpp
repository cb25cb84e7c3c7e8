#include "script/Arguments.h"

#include "platform/LetterCase.h"
#include "script/LuaError.h"

#include <algorithm>
#include <lua.hpp>
#include <string>

namespace nalt {

namespace {

bool isText(lua_State* lua, int position)
{
  return lua_type(lua, position) == LUA_TSTRING;
}

/// A text or a table of texts.
bool areNames(lua_State* lua, int position)
{
  if (!lua_istable(lua, position)) return isText(lua, position);
  const int count = static_cast<int>(lua_rawlen(lua, position));
  bool texts = true;
  for (int i = 1; texts && i <= count; ++i) {
    lua_rawgeti(lua, position, i);
    texts = isText(lua, -1);
    lua_pop(lua, 1);
  }
  return texts;
}

bool isOneOf(const ApiChoices& choices, std::string_view text)
{
  const auto same = [text](std::string_view choice) { return toUpper(choice) == toUpper(text); };
  return std::ranges::any_of(choices.values, same) || (!choices.unlisted.empty() && same(choices.unlisted));
}

/// Pushes `text` with the number where it reads "%n" and the name where it reads "%s".
void pushFilledIn(lua_State* lua, std::string_view text, int number, const char* name)
{
  std::string result(text);
  if (const auto at = result.find("%n"); at != std::string::npos) result.replace(at, 2, std::to_string(number));
  if (const auto at = result.find("%s"); at != std::string::npos) result.replace(at, 2, name);
  lua_pushlstring(lua, result.data(), result.size());
}

} // namespace

Arguments::Arguments(lua_State* lua, const ApiFunction& function)
    : lua_(lua), function_(function), count_(lua_gettop(lua)), fixed_(function.arguments)
{
  const int flags = static_cast<int>(function.last.size());
  while (flags_ < flags && flags_ < count_ && lua_isboolean(lua_, count_ - flags_))
    ++flags_;
  chooseForm();
}

void Arguments::chooseForm()
{
  const auto chosen = [this](const ApiForm& form) {
    const auto all = static_cast<int>(fixed_.size() + form.arguments.size());
    switch (function_.formBy) {
    case ApiFormBy::count:
      return count_ == all;
    case ApiFormBy::choice:
      return lua_isstring(lua_, 1) && toUpper(lua_tostring(lua_, 1)) == form.label;
    case ApiFormBy::order:
      break;
    }
    for (std::size_t i = 0; i < fixed_.size(); ++i)
      if (fixed_[i].type == ApiType::number && lua_isboolean(lua_, static_cast<int>(i) + 1)) return true;
    return false;
  };
  const auto found = std::ranges::find_if(function_.forms, chosen);
  if (found == function_.forms.end()) return;
  form_ = &*found;
  if (function_.formBy == ApiFormBy::order) fixed_ = form_->arguments;
}

const ApiArgument* Arguments::find(std::string_view name) const
{
  const auto named = [name](const ApiArgument& argument) { return argument.name == name; };
  if (const auto found = std::ranges::find_if(fixed_, named); found != fixed_.end()) return &*found;
  if (!form_) return nullptr;
  const auto found = std::ranges::find_if(form_->arguments, named);
  return found == form_->arguments.end() ? nullptr : &*found;
}

int Arguments::position(std::string_view name) const
{
  const auto* argument = find(name);
  if (!argument) return 0;
  const bool isFixed = argument >= fixed_.data() && argument < fixed_.data() + fixed_.size();
  const auto place = isFixed ? argument - fixed_.data() : argument - form_->arguments.data() + std::ssize(fixed_);
  const int position = static_cast<int>(place) + 1;
  return position <= count_ ? position : 0;
}

bool Arguments::flag(int i) const
{
  return i < flags_ && lua_toboolean(lua_, groupsEnd() + i);
}

// ---- checks ---------------------------------------------------------------------------------------------------------

void Arguments::check() const
{
  const bool formOwnsCount = function_.formBy == ApiFormBy::choice && !function_.forms.empty();
  if (!formOwnsCount) checkCount();
  checkList(fixed_, 0);
  if (formOwnsCount) checkCount();
  if (form_ && function_.formBy != ApiFormBy::order) checkList(form_->arguments, static_cast<int>(fixed_.size()));
  checkGroups();
}

void Arguments::checkCount() const
{
  if (function_.countError.empty()) return;
  bool good = count_ == static_cast<int>(fixed_.size());
  if (!function_.group.empty()) {
    const int members = groupsEnd() - groupsBegin();
    const int size = static_cast<int>(function_.group.size());
    good = members >= function_.groupsNeeded * size && members % size == 0;
  } else if (!function_.forms.empty()) {
    good = false;
    if (form_) {
      const auto required = std::ranges::count_if(form_->arguments, [](const auto& a) { return !a.optional(); });
      const auto given = count_ - std::ssize(fixed_);
      good = given == required || given == std::ssize(form_->arguments); // the optional ones come all together
    }
  }
  if (!good) raiseError(lua_, function_.countError);
}

void Arguments::checkList(std::span<const ApiArgument> list, int before) const
{
  int position = before;
  for (const auto& argument : list) {
    ++position;
    if (argument.optional() && position > count_) return;
    checkOne(argument, position);
  }
}

void Arguments::checkOne(const ApiArgument& argument, int position) const
{
  switch (argument.type) {
  case ApiType::boolean:
  case ApiType::value:
  case ApiType::names:
    luaL_checkany(lua_, position);
    return;
  case ApiType::integer: {
    const auto number = luaL_checknumber(lua_, position);
    const bool inRange = number > -1 && number < argument.maximum + 1.0; // once it is cut off toward zero
    if (argument.maximum >= 0 && !inRange) raiseError(lua_, argument.error);
    return;
  }
  case ApiType::number:
    luaL_checknumber(lua_, position);
    return;
  case ApiType::text:
  case ApiType::file: {
    const char* text = luaL_checkstring(lua_, position);
    if (argument.choices && !isOneOf(*argument.choices, text)) raiseError(lua_, argument.error);
    return;
  }
  case ApiType::function:
    return; // whatever is no function counts as none
  }
}

void Arguments::checkGroups() const
{
  if (function_.group.empty()) return;
  const int size = static_cast<int>(function_.group.size());
  const int needed = groupsBegin() + function_.groupsNeeded * size;
  for (int position = groupsBegin(); position < std::max(groupsEnd(), needed); ++position)
    checkGroupMember(function_.group[static_cast<std::size_t>((position - groupsBegin()) % size)], position);
}

void Arguments::checkGroupMember(const ApiArgument& argument, int position) const
{
  bool good = true;
  switch (argument.type) {
  case ApiType::number:
    good = lua_isnumber(lua_, position);
    break;
  case ApiType::value:
    good = lua_isboolean(lua_, position) || lua_isstring(lua_, position);
    break;
  case ApiType::names:
    good = areNames(lua_, position);
    break;
  default:
    checkOne(argument, position);
    return;
  }
  if (good) return;
  if (function_.groupError.empty()) {
    checkOne(argument, position);
    return;
  }
  const char* name = position > 1 ? lua_tostring(lua_, position - 1) : nullptr;
  pushFilledIn(lua_, function_.groupError, position, name ? name : "");
  raiseError(lua_, lua_tostring(lua_, -1));
}

} // namespace nalt
