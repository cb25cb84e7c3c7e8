#pragma once

#include <functional>
#include <optional>

namespace nalt {

/// A question for one number, which keeps everything else waiting until it is answered.
struct NumberQuestion {
  const char* title;
  const char* label; ///< in front of the field, ":" included
  double value = 0;  ///< what the field holds at first
  /// What is said about a text that is no number, or one that `accepts` refuses; the field keeps that text then.
  const char* complaint;
  std::function<bool(double)> accepts = nullptr;
};

/// The number, none when the user gave up. A quiet run asks nobody and gives none. Needs a display.
std::optional<double> askNumber(const NumberQuestion& question);

} // namespace nalt
