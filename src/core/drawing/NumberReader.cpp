#include "core/drawing/NumberReader.h"

#include <cctype>
#include <charconv>

namespace nalt {

void NumberReader::skip()
{
  while (!rest_.empty() && (std::isspace(static_cast<unsigned char>(rest_.front())) || rest_.front() == ','))
    rest_.remove_prefix(1);
}

bool NumberReader::number(double& value)
{
  skip();
  const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
  if (error != std::errc()) return false;
  rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
  return true;
}

std::optional<char> NumberReader::command(char repeated)
{
  skip();
  if (rest_.empty()) return std::nullopt;
  const char next = rest_.front();
  if (!std::isalpha(static_cast<unsigned char>(next))) {
    if (repeated == 0 || repeated == 'Z' || repeated == 'z') return std::nullopt;
    // Further pairs behind a move are lines.
    return repeated == 'M' ? 'L' : repeated == 'm' ? 'l' : repeated;
  }
  rest_.remove_prefix(1);
  return next;
}

} // namespace nalt
