#include "platform/Environment.h"

#include "platform/LetterCase.h"

#include <cstdlib>

namespace nalt {

std::optional<std::string> environment(const char* name)
{
  const char* value = std::getenv(name);
  return value ? std::optional<std::string>(value) : std::nullopt;
}

bool environmentEquals(const char* name, std::string_view upperCase)
{
  const std::optional<std::string> value = environment(name);
  return value && toUpper(*value) == upperCase;
}

} // namespace nalt
