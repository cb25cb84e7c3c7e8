#include "fltapi/palettes/ColorPaletteRecord.h"

namespace fltapi {

namespace {

constexpr std::size_t colorsStart = 132;
constexpr std::size_t namesStart = 4228;
constexpr std::size_t nameHeadSize = 8;

} // namespace

PackedColor ColorPaletteRecord::entry(int entry) const
{
  const auto at = colorsStart + 4 * static_cast<std::size_t>(entry);
  if (entry < 0 || entry >= colorCount || at + 4 > length()) return {.a = 255, .b = 0, .g = 0, .r = 0};
  return loadAt<PackedColor>(data() + at);
}

void ColorPaletteRecord::setEntry(int entry, PackedColor color)
{
  const auto at = colorsStart + 4 * static_cast<std::size_t>(entry);
  if (entry >= 0 && entry < colorCount && at + 4 <= length()) storeAt(data() + at, color);
}

PackedColor ColorPaletteRecord::colorAt(std::uint32_t fullIndex) const
{
  auto color = entry(static_cast<int>(fullIndex / intensityCount));
  const auto intensity = static_cast<int>(fullIndex % intensityCount);
  const auto scaled = [&](std::uint8_t component) {
    constexpr int full = intensityCount - 1;
    return static_cast<std::uint8_t>((component * intensity + full / 2) / full);
  };
  return {.a = color.a, .b = scaled(color.b), .g = scaled(color.g), .r = scaled(color.r)};
}

/// The colors are bytes. Behind them may stand a count of names, and for each name its length, a color and the text.
void ColorPaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  if (scope.length < namesStart + 4) return;
  swap32(content + namesStart);
  for (auto at = namesStart + 4; at + nameHeadSize <= scope.length;) {
    const auto inFileOrder = bigEndian16(content + at);
    const auto entryLength = scope.fromFile ? inFileOrder : loadAt<std::uint16_t>(content + at);
    swapRun(content + at, 2, nameHeadSize / 2);
    if (entryLength < nameHeadSize) break;
    at += entryLength;
  }
}

} // namespace fltapi
