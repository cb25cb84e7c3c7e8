#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as users type and read them: with "." as decimal point, whatever language the system speaks.
namespace nalt {

/// The number that all of `text` is, blanks around it aside. None for anything else, and for what is infinite or too
/// large.
std::optional<double> numberFromText(std::string_view text);
std::optional<int> wholeNumberFromText(std::string_view text);

/// The shortest text that gives the same number again.
std::string textOfNumber(double number);
std::string textOfNumber(float number);

} // namespace nalt
