#pragma once

#include <optional>
#include <string_view>

namespace nalt {

/// Reads the numbers, and the letters between them, out of an attribute of a picture. Blanks and commas part them.
class NumberReader {
public:
  explicit NumberReader(std::string_view text) : rest_(text) {}

  /// False at the end and at what isn't a number.
  bool number(double& value);
  /// The next letter; `repeated` when a number stands there instead, since a letter may serve several groups of
  /// numbers.
  std::optional<char> command(char repeated);

private:
  void skip();

  std::string_view rest_;
};

} // namespace nalt
