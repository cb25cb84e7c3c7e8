#pragma once

#include <string>

namespace nalt {

// Values as they stand in recorded Lua lines.

std::string luaText(bool value);
/// With as many significant digits as the user wants recorded.
std::string luaText(double value);
std::string luaText(int value);
/// In double quotes, with what would end the text escaped. A single backslash is doubled; a run of several stays.
std::string luaText(const std::string& value);
std::string luaText(const char* value);

/// `nalt.<function>(<arguments>)` of any values that luaText knows.
template <class... Values>
std::string luaCall(const std::string& function, const Values&... values)
{
  std::string arguments;
  ((arguments += (arguments.empty() ? "" : ", ") + luaText(values)), ...);
  return "nalt." + function + "(" + arguments + ")";
}

} // namespace nalt
