#include "fltapi/palettes/TextureMappingPaletteRecord.h"

#include "fltapi/io/Output.h"
#include "fltapi/io/RecordReader.h"

#include <algorithm>
#include <array>
#include <span>

namespace fltapi {

namespace {

constexpr std::size_t parametersStart = 168;
constexpr std::size_t warpSize = 400;

/// A stretch of numbers of one width.
struct Run {
  std::uint16_t offset;
  std::uint8_t width;
  std::uint16_t count;
};

constexpr std::array<Run, 5> threePointRuns = {{{168, 4, 2}, {176, 8, 6}, {224, 4, 4}, {240, 8, 18}, {384, 4, 4}}};
constexpr std::array<Run, 6> fourPointRuns = {
    {{168, 4, 2}, {176, 8, 6}, {224, 4, 4}, {240, 8, 24}, {432, 4, 4}, {448, 8, 16}}};
constexpr Run fourPointRepetition = {576, 4, 2};
constexpr std::array<Run, 3> sphericalRuns = {{{168, 4, 2}, {176, 8, 3}, {200, 4, 2}}};
constexpr std::array<Run, 2> radialRuns = {{{168, 4, 4}, {184, 8, 22}}};

/// Of the warp, from its own start: two words, eight reserved bytes, thirty-two coordinates.
constexpr std::array<Run, 2> warpRuns = {{{0, 4, 2}, {16, 8, 32}}};

void swapRuns(std::span<const Run> runs, std::byte* content, std::size_t start, std::size_t length)
{
  for (const auto& run : runs) {
    if (start + run.offset >= length) continue;
    const auto room = (length - start - run.offset) / run.width;
    swapRun(content + start + run.offset, run.width, std::min<std::size_t>(run.count, room));
  }
}

} // namespace

std::size_t TextureMappingPaletteRecord::lengthOf(int type, bool warped, int version)
{
  std::size_t length = parametersStart;
  switch (type) {
  case threePointPut:
    length = version >= 1600 ? 400 : 392;
    break;
  case fourPointPut:
    length = version >= 1580 ? 584 : 576;
    break;
  case spherical:
    length = 208;
    break;
  case radial:
    length = 360;
    break;
  default:
    break;
  }
  return length + (warped ? warpSize : 0);
}

std::size_t TextureMappingPaletteRecord::currentLength() const
{
  return lengthOf(get(fields.type), get(fields.warped) != 0, currentVersion);
}

std::size_t TextureMappingPaletteRecord::size(int version) const
{
  return lengthOf(get(fields.type), get(fields.warped) != 0, version);
}

bool TextureMappingPaletteRecord::equals(const Record& other) const
{
  if (other.opcode() != code || other.length() != length()) return false;
  const auto nameStart = fields.name.offset();
  const auto nameEnd = fields.name.end();
  return std::memcmp(data() + recordHeadSize, other.data() + recordHeadSize, nameStart - recordHeadSize) == 0 &&
         std::memcmp(data() + nameEnd, other.data() + nameEnd, length() - nameEnd) == 0;
}

bool TextureMappingPaletteRecord::read(RecordReader& reader)
{
  const int type = get(fields.type);
  const bool warped = get(fields.warped) != 0;
  const auto baseInFile = lengthOf(type, /*warped=*/false, reader.version());
  const auto base = lengthOf(type, /*warped=*/false, currentVersion);
  if (!warped || baseInFile == base) return resize(currentLength());
  // The block of the type has grown, so the warp behind it moves.
  const auto held = std::min(reader.lastLength(), length());
  const auto warpHeld = held > baseInFile ? std::min(held - baseInFile, warpSize) : 0;
  auto moved = resizedCopy(data(), currentLength());
  if (!moved) return false;
  std::memset(moved.get() + baseInFile, 0, currentLength() - baseInFile);
  std::memcpy(moved.get() + base, data() + baseInFile, warpHeld);
  replaceData(std::move(moved));
  return true;
}

void TextureMappingPaletteRecord::prepareForFile(std::byte* content, const Output& output) const
{
  const int type = get(fields.type);
  const auto base = lengthOf(type, /*warped=*/false, currentVersion);
  const auto baseInFile = lengthOf(type, /*warped=*/false, output.version());
  if (get(fields.warped) != 0 && length() > base) std::memmove(content + baseInFile, content + base, length() - base);
}

void TextureMappingPaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  const auto word = [&](const Field<std::int32_t>& field) {
    const auto value = loadAt<std::uint32_t>(content + field.offset());
    return static_cast<std::int32_t>(scope.fromFile ? __builtin_bswap32(value) : value);
  };
  if (scope.length < fields.warped.end()) {
    swapFields(fields, content, scope);
    return;
  }
  const int type = word(fields.type);
  const bool warped = word(fields.warped) != 0;
  swapFields(fields, content, scope);

  const auto warpStart = std::min(lengthOf(type, /*warped=*/false, scope.version), scope.length);
  switch (type) {
  case threePointPut:
    swapRuns(threePointRuns, content, 0, warpStart);
    break;
  case fourPointPut:
    swapRuns(fourPointRuns, content, 0, warpStart);
    swapRuns({&fourPointRepetition, 1}, content, 0, warpStart);
    break;
  case spherical:
    swapRuns(sphericalRuns, content, 0, warpStart);
    break;
  case radial:
    swapRuns(radialRuns, content, 0, warpStart);
    break;
  default:
    break;
  }
  if (warped) swapRuns(warpRuns, content, warpStart, scope.length);
}

} // namespace fltapi
