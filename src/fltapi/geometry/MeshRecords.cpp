#include "fltapi/geometry/MeshRecords.h"

#include "fltapi/io/Output.h"
#include "fltapi/io/RecordReader.h"

#include <algorithm>

namespace fltapi {

namespace {

constexpr std::size_t contentStart = 12;

template <class T>
T wordOf(const std::byte* content, const Field<T>& field, const SwapScope& scope)
{
  const auto value = loadAt<std::make_unsigned_t<T>>(content + field.offset());
  if (!scope.fromFile) return static_cast<T>(value);
  if constexpr (sizeof(T) == 2) {
    return static_cast<T>(__builtin_bswap16(value));
  } else {
    return static_cast<T>(__builtin_bswap32(value));
  }
}

} // namespace

// ---- MeshRecord ----------------------------------------------------------------------------------------------------

bool MeshRecord::read(RecordReader& reader)
{
  if (!readAncillaries(reader)) return false;
  if (auto next = reader.next(); next && next->opcode() == opcodes::localVertexPool) {
    addChild(next, /*append=*/true);
    if (!next->read(reader)) return false;
  } else if (next) {
    reader.giveBack(std::move(next));
  }
  return readBody(reader) && readSubfaces(reader);
}

bool MeshRecord::writeChildren(Output& output) const
{
  const auto* pool = primaryChildAt(0);
  if (!pool || pool->opcode() != opcodes::localVertexPool) return PrimNodeRecord::writeChildren(output);
  if (!pool->write(output)) return false;
  if (primaryChildCount() == 1) return true;
  if (!output.writeBare(opcodes::pushLevel)) return false;
  for (const auto* child : primaryChildren()) {
    if (child != pool && !child->write(output)) return false;
  }
  return output.writeBare(opcodes::popLevel);
}

void MeshRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fields, content, scope);
  readReservedShader(content, fields.shader, scope);
}

void MeshRecord::prepareForFile(std::byte* content, const Output& output) const
{
  writeReservedShader(content, fields.shader, output.version());
}

// ---- LocalVertexPoolRecord -----------------------------------------------------------------------------------------

const std::vector<LocalVertexPoolRecord::Slot>& LocalVertexPoolRecord::slots()
{
  static const auto all = [] {
    // A vertex holds one color at most, so both kinds share a slot.
    std::vector<Slot> list{{position, 8, 3}, {colorIndex | rgbaColor, 4, 1}, {normal, 4, 3}, {baseUV, 4, 2}};
    for (std::uint32_t bit = firstLayerUV; bit >= lastLayerUV; bit >>= 1)
      list.push_back({bit, 4, 2});
    return list;
  }();
  return all;
}

std::size_t LocalVertexPoolRecord::stride(std::uint32_t mask)
{
  std::size_t sum = 0;
  for (const auto& slot : slots())
    sum += mask & slot.bits ? std::size_t{slot.width} * slot.count : 0;
  return sum;
}

int LocalVertexPoolRecord::vertexCount() const
{
  const auto one = stride(get(fields.attributeMask));
  const auto room = one ? (length() - contentStart) / one : 0;
  return static_cast<int>(std::min<std::size_t>(room, get(fields.vertexCount)));
}

std::size_t LocalVertexPoolRecord::offsetOf(int vertex, std::uint32_t attribute) const
{
  const auto mask = get(fields.attributeMask);
  if (!(mask & attribute) || vertex < 0 || vertex >= vertexCount()) return 0;
  auto at = contentStart + static_cast<std::size_t>(vertex) * stride(mask);
  for (const auto& slot : slots()) {
    if (slot.bits & attribute) return at;
    if (mask & slot.bits) at += std::size_t{slot.width} * slot.count;
  }
  return 0;
}

void LocalVertexPoolRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  const auto mask = wordOf(content, fields.attributeMask, scope);
  swapFields(fields, content, scope);
  const auto one = scope.length > contentStart ? stride(mask) : 0;
  if (one == 0) return;
  for (auto at = contentStart; at + one <= scope.length; at += one) {
    auto* p = content + at;
    for (const auto& slot : slots()) {
      if (!(mask & slot.bits)) continue;
      // Packed bytes stand in file order, color indices are numbers.
      if (!(slot.bits & rgbaColor) || mask & colorIndex) swapRun(p, slot.width, slot.count);
      p += std::size_t{slot.width} * slot.count;
    }
  }
}

// ---- MeshPrimitiveRecord -------------------------------------------------------------------------------------------

std::vector<std::uint32_t> MeshPrimitiveRecord::indices() const
{
  const auto width = static_cast<std::size_t>(get(fields.indexSize));
  if (width != 1 && width != 2 && width != 4) return {};
  const auto count = std::min<std::size_t>(get(fields.vertexCount), (length() - contentStart) / width);
  std::vector<std::uint32_t> list;
  list.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto* p = data() + contentStart + i * width;
    list.push_back(width == 1   ? loadAt<std::uint8_t>(p)
                   : width == 2 ? loadAt<std::uint16_t>(p)
                                : loadAt<std::uint32_t>(p));
  }
  return list;
}

void MeshPrimitiveRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  const auto width = static_cast<std::uint16_t>(wordOf(content, fields.indexSize, scope));
  swapFields(fields, content, scope);
  if (scope.length > contentStart && (width == 2 || width == 4))
    swapRun(content + contentStart, width, (scope.length - contentStart) / width);
}

void MorphVertexListRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapRun(content + recordHeadSize, 4, (scope.length - recordHeadSize) / 4);
}

} // namespace fltapi
