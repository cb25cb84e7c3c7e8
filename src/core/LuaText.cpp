#include "core/LuaText.h"

#include "core/Preferences.h"
#include "platform/Paths.h"

#include <locale>
#include <sstream>

namespace nalt {

std::string luaText(bool value)
{
  return value ? "true" : "false";
}

std::string luaText(double value)
{
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
  return '"' + escapeForLua(value) + '"';
}

std::string luaText(const char* value)
{
  return luaText(std::string(value));
}

} // namespace nalt
