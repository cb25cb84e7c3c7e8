#include "fltapi/io/Output.h"

#include "fltapi/FltFile.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"
#include "fltapi/nodes/InstanceRecords.h"

#include <algorithm>
#include <array>

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

bool Output::writeDefinitionOnce(int number)
{
  // Noted first: a definition may hold a reference to itself.
  if (!writtenDefinitions_.insert(number).second) return true;
  const auto range = file_.instanceDefinitions().equal_range(number);
  return std::all_of(range.first, range.second, [&](const auto& entry) { return entry.second->write(*this); });
}

} // namespace fltapi
