#include "fltapi/io/Output.h"

#include "fltapi/FltFile.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"
#include "fltapi/geometry/VertexRecords.h"
#include "fltapi/nodes/InstanceRecords.h"
#include "fltapi/palettes/LightPointPaletteRecords.h"

#include <algorithm>
#include <array>
#include <utility>

namespace fltapi {

// How a record that is longer than 65535 bytes lies in a file:
//
//   | opcode | 65528 | 65524 bytes of content |
//   |   23   | 65532 | 65528 bytes of content |  as often as needed
//   |   23   |  rest | what is left           |
namespace {

constexpr std::size_t firstPieceLength = 65528;
constexpr std::size_t laterPieceContent = 65528;

} // namespace

Output::Output(const FltFile& file, int version) : file_(file), version_(version), palette_(version) {}

Output::~Output() = default;

const LightPointPalettes& Output::lightPointPalettes()
{
  if (!lightPointPalettes_) lightPointPalettes_ = std::make_unique<LightPointPalettes>(file_);
  return *lightPointPalettes_;
}

bool Output::putPiece(int opcode, const std::byte* content, std::size_t count)
{
  std::array<std::byte, recordHeadSize> head;
  storeAt(head.data(), __builtin_bswap16(static_cast<std::uint16_t>(opcode)));
  storeAt(head.data() + 2, __builtin_bswap16(static_cast<std::uint16_t>(count + recordHeadSize)));
  return put(head.data(), head.size()) && (count == 0 || put(content, count));
}

bool Output::writeBare(int opcode)
{
  return putPiece(opcode, nullptr, 0);
}

bool Output::write(const Record& record)
{
  const auto size = record.size(version_);
  if (size == 0) return true;
  const auto held = record.length();
  const auto whole = std::max(size, held);
  scratch_.resize(whole);
  std::memcpy(scratch_.data(), record.data(), held);
  std::fill(scratch_.begin() + static_cast<std::ptrdiff_t>(held), scratch_.end(), std::byte{0});
  record.prepareForFile(scratch_.data(), *this);
  // Everything is swapped, and then as much of it is written as the version has.
  if (!record.swapped()) {
    record.swapContent(scratch_.data(), {.fromFile = false, .version = version_, .length = whole});
  }

  const int opcode = recordOpcode(record.data());
  const auto* content = scratch_.data() + recordHeadSize;
  auto left = size - recordHeadSize;
  if (size <= longestPlainRecord) return putPiece(opcode, content, left);

  constexpr auto firstContent = firstPieceLength - recordHeadSize;
  if (!putPiece(opcode, content, firstContent)) return false;
  content += firstContent;
  left -= firstContent;
  while (left > 0) {
    const auto piece = std::min(left, laterPieceContent);
    if (!putPiece(opcodes::continuation, content, piece)) return false;
    content += piece;
    left -= piece;
  }
  return true;
}

bool Output::writeDefinition(int number)
{
  const auto range = file_.instanceDefinitions().equal_range(number);
  return std::all_of(range.first, range.second, [&](const auto& entry) { return entry.second->write(*this); });
}

bool Output::writeDefinitionOnce(int number)
{
  // Noted first: a definition may hold a reference to itself.
  return !writtenDefinitions_.insert(number).second || writeDefinition(number);
}

bool Output::writeDefinitions(const std::vector<int>& numbers)
{
  writtenDefinitions_.insert(numbers.begin(), numbers.end());
  return std::ranges::all_of(numbers, [this](int number) { return writeDefinition(number); });
}

bool Output::writeVerticesOnce()
{
  if (std::exchange(verticesWritten_, true)) return true;
  return std::ranges::all_of(palette_.entries(), [this](const auto& entry) { return write(*entry.vertex); });
}

} // namespace fltapi
