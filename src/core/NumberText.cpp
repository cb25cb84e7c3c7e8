#include "core/NumberText.h"

#include <charconv>
#include <cmath>

namespace nalt {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class T>
std::optional<T> parsed(std::string_view text)
{
  text = trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// People read powers of ten only where there is no other way.
template <class T>
std::string shortest(T number)
{
  const bool plain = number == 0 || (std::abs(number) >= T(1e-6) && std::abs(number) < T(1e15));
  char text[64];
  const auto format = plain ? std::chars_format::fixed : std::chars_format::general;
  return {text, std::to_chars(text, text + sizeof text, number, format).ptr};
}

} // namespace

std::optional<double> numberFromText(std::string_view text)
{
  const auto number = parsed<double>(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<int> wholeNumberFromText(std::string_view text)
{
  return parsed<int>(text);
}

std::string textOfNumber(double number)
{
  return shortest(number);
}

std::string textOfNumber(float number)
{
  return shortest(number);
}

} // namespace nalt
