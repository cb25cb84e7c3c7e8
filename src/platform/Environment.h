#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nalt {

/// The value of an environment variable; none if it is unset, empty if it is set to nothing.
std::optional<std::string> environment(const char* name);

/// Whether an environment variable, with its letters a to z in upper case, is `upperCase`.
bool environmentEquals(const char* name, std::string_view upperCase);

} // namespace nalt
