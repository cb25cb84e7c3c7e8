#include "fltapi/io/VertexPaletteLayout.h"

#include "fltapi/Opcodes.h"
#include "fltapi/geometry/VertexListRecord.h"

#include <cstring>

namespace fltapi {

namespace {

/// Mixes eight bytes at a time; vertices are multiples of eight bytes long apart from those that other programs padded.
std::uint64_t hashOf(const VertexBaseRecord& vertex)
{
  const auto* bytes = vertex.data();
  const auto length = vertex.length();
  std::uint64_t hash = 0x9e3779b97f4a7c15u ^ recordOpcode(bytes);
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * 0xff51afd7ed558ccdu;
    hash ^= hash >> 32;
  };
  std::size_t at = recordHeadSize;
  for (; at + 8 <= length; at += 8)
    mix(loadAt<std::uint64_t>(bytes + at));
  for (; at + 4 <= length; at += 4)
    mix(loadAt<std::uint32_t>(bytes + at));
  return hash;
}

bool same(const VertexBaseRecord& a, const VertexBaseRecord& b)
{
  const auto length = a.length();
  return length == b.length() && std::memcmp(a.data(), b.data(), length) == 0;
}

} // namespace

void VertexPaletteLayout::addBelow(const PrimNodeRecord& node)
{
  if (node.opcode() == opcodes::external) return;
  if (node.opcode() == opcodes::vertexList) {
    for (const auto& vertex : static_cast<const VertexListRecord&>(node).vertices())
      add(*vertex);
  }
  for (const auto* child : node.primaryChildren())
    addBelow(*child);
}

std::size_t VertexPaletteLayout::slotOf(const VertexBaseRecord& vertex) const
{
  const auto mask = table_.size() - 1;
  auto slot = hashOf(vertex) & mask;
  while (table_[slot] != empty && !same(*entries_[table_[slot]].vertex, vertex))
    slot = (slot + 1) & mask;
  return slot;
}

void VertexPaletteLayout::growTable()
{
  table_.assign(table_.empty() ? 1024 : table_.size() * 2, empty);
  for (std::uint32_t i = 0; i < entries_.size(); ++i)
    table_[slotOf(*entries_[i].vertex)] = i;
}

void VertexPaletteLayout::add(const VertexBaseRecord& vertex)
{
  if ((entries_.size() + 1) * 3 > table_.size() * 2) growTable();
  const auto slot = slotOf(vertex);
  if (table_[slot] != empty) return;
  table_[slot] = static_cast<std::uint32_t>(entries_.size());
  entries_.push_back({&vertex, length_});
  length_ += vertex.size(version_);
}

std::uint32_t VertexPaletteLayout::offsetOf(const VertexBaseRecord& vertex) const
{
  return static_cast<std::uint32_t>(entries_[table_[slotOf(vertex)]].offset);
}

} // namespace fltapi
