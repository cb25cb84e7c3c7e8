#include "fltapi/palettes/OtherPalettes.h"

#include <array>
#include <span>

namespace fltapi {

// ---- NameTableRecord -----------------------------------------------------------------------------------------------

namespace {

constexpr std::size_t namesStart = 10;
constexpr std::size_t nameHeadSize = 6;

/// Programs disagree on whether the length of an entry counts its own head. The reading that lands on the end of the
/// record is the right one.
bool lengthsCountHeads(const std::byte* content, const SwapScope& scope)
{
  auto at = namesStart;
  while (at + nameHeadSize <= scope.length) {
    const auto length = scope.fromFile ? bigEndian32(content + at) : loadAt<std::uint32_t>(content + at);
    if (length < nameHeadSize || length > scope.length - at) return false;
    at += length;
  }
  return true;
}

} // namespace

void NameTableRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  const bool headsCount = lengthsCountHeads(content, scope);
  swapFields(fields, content, scope);
  for (auto at = namesStart; at + nameHeadSize <= scope.length;) {
    const auto length = scope.fromFile ? bigEndian32(content + at) : loadAt<std::uint32_t>(content + at);
    swap32(content + at);
    swap16(content + at + 4);
    const auto step = std::size_t{length} + (headsCount ? 0 : nameHeadSize);
    if (step < nameHeadSize) break;
    at += step;
  }
}

// ---- EyepointTrackplanePaletteRecord -------------------------------------------------------------------------------

namespace {

struct Run {
  std::uint16_t offset;
  std::uint8_t width;
  std::uint16_t count;
};

struct Block {
  std::size_t start;
  std::size_t stride;
  std::span<const Run> runs;
};

// What isn't listed are single bytes.
constexpr std::array<Run, 2> eyepointRuns = {{{0, 8, 3}, {24, 4, 62}}};
constexpr std::array<Run, 7> trackplaneRuns = {
    {{0, 4, 2}, {8, 8, 9}, {84, 4, 1}, {88, 8, 2}, {108, 4, 1}, {112, 8, 1}, {120, 4, 2}}};
constexpr int entryCount = 10;
constexpr std::array<Block, 2> blocks = {{{8, 272, eyepointRuns}, {2728, 128, trackplaneRuns}}};

} // namespace

void EyepointTrackplanePaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  for (const auto& block : blocks) {
    for (std::size_t entry = 0; entry < entryCount; ++entry) {
      const auto start = block.start + entry * block.stride;
      if (start + block.stride > scope.length) return;
      for (const auto& run : block.runs)
        swapRun(content + start + run.offset, run.width, run.count);
    }
  }
}

} // namespace fltapi
