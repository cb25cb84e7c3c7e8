#pragma once

#include <string>
#include <string_view>

namespace nalt {

/// The letters a to z become A to Z; all other bytes stay.
std::string toUpper(std::string_view text);

/// Whether two file names differ by letter case at most, as on systems that don't tell case apart: letters of all
/// scripts, in UTF-8. Bytes that are no UTF-8 must be equal.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

} // namespace nalt
