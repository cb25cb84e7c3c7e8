#include "core/LuaText.h"

#include "core/Preferences.h"
#include "platform/Paths.h"

#include <cmath>
#include <locale>
#include <sstream>

namespace nalt {

std::string luaText(bool value)
{
  return value ? "true" : "false";
}

std::string luaText(double value)
{
  // What streams write of these would be the name of a variable.
  if (std::isnan(value)) return "0/0";
  if (std::isinf(value)) return value > 0 ? "math.huge" : "-math.huge";
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.precision(Preferences::get().parameterPrecision);
  text << value;
  return text.str();
}

std::string luaText(int value)
{
  return std::to_string(value);
}

std::string luaText(const std::string& value)
{
  std::string text = "\"";
  for (const char c : escapeForLua(value)) {
    switch (c) {
    case '"':
      text += "\\\"";
      break;
    case '\n':
      text += "\\n";
      break;
    case '\r':
      text += "\\r";
      break;
    case '\0':
      text += "\\000"; // a digit may follow
      break;
    default:
      text += c;
    }
  }
  return text + '"';
}

std::string luaText(const char* value)
{
  return luaText(std::string(value));
}

} // namespace nalt
