#include "core/DefaultColors.h"

#include "fltapi/palettes/ColorPaletteRecord.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

constexpr int rowLength = 32;

fltapi::PackedColor packed(double red, double green, double blue)
{
  const auto byte = [](double value) { return static_cast<std::uint8_t>(value * 255 + 0.5); };
  return {.a = 255, .b = byte(blue), .g = byte(green), .r = byte(red)};
}

/// Hue and saturation from 0 to 1, value 1 for the full color.
fltapi::PackedColor fromHue(double hue, double saturation, double value)
{
  const auto component = [&](double shift) {
    const double distance = std::abs(std::fmod(hue * 6 + shift, 6.0) - 3) - 1;
    return value * (1 - saturation + saturation * std::clamp(distance, 0.0, 1.0));
  };
  return packed(component(0), component(4), component(2));
}

} // namespace

void fillDefaultColors(fltapi::ColorPaletteRecord& palette)
{
  constexpr int rows = fltapi::ColorPaletteRecord::colorCount / rowLength;
  for (int i = 0; i < rowLength; ++i) {
    const double grey = 1 - static_cast<double>(i) / (rowLength - 1);
    palette.setEntry(i, packed(grey, grey, grey));
  }
  for (int row = 1; row < rows; ++row) {
    // From dark over full to pale, so that neighbours in a column are shades of one color.
    const double step = static_cast<double>(row) / (rows - 1);
    const double value = std::min(1.0, step * 2);
    const double saturation = std::min(1.0, 2.0 - step * 1.8);
    for (int i = 0; i < rowLength; ++i) {
      palette.setEntry(row * rowLength + i, fromHue(static_cast<double>(i) / rowLength, saturation, value));
    }
  }
}

} // namespace nalt
