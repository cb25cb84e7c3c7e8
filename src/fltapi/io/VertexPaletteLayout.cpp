#include "fltapi/io/VertexPaletteLayout.h"

#include "fltapi/Opcodes.h"
#include "fltapi/geometry/VertexListRecord.h"

#include <cstring>
#include <utility>

namespace fltapi {

namespace {

/// Mixes eight bytes at a time; vertices are multiples of eight bytes long apart from those that other programs padded.
std::uint32_t tagOf(const VertexBaseRecord& vertex)
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
  return static_cast<std::uint32_t>(hash);
}

bool same(const VertexBaseRecord& a, const VertexBaseRecord& b)
{
  if (&a == &b) return true;
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

std::size_t VertexPaletteLayout::slotOf(const VertexBaseRecord& vertex, std::uint32_t tag) const
{
  const auto mask = table_.size() - 1;
  auto slot = tag & mask;
  // The tag spares a look at nearly every vertex that differs.
  while (table_[slot].entry != empty &&
         !(table_[slot].tag == tag && same(*entries_[table_[slot].entry].vertex, vertex)))
    slot = (slot + 1) & mask;
  return slot;
}

void VertexPaletteLayout::growTable()
{
  const auto old = std::exchange(table_, std::vector<Slot>(table_.empty() ? 1024 : table_.size() * 2));
  const auto mask = table_.size() - 1;
  for (const auto& taken : old) {
    if (taken.entry == empty) continue;
    auto slot = taken.tag & mask;
    while (table_[slot].entry != empty)
      slot = (slot + 1) & mask;
    table_[slot] = taken;
  }
}

void VertexPaletteLayout::add(const VertexBaseRecord& vertex)
{
  if ((entries_.size() + 1) * 3 > table_.size() * 2) growTable();
  const auto tag = tagOf(vertex);
  auto& slot = table_[slotOf(vertex, tag)];
  if (slot.entry != empty) return;
  slot = {tag, static_cast<std::uint32_t>(entries_.size())};
  entries_.push_back({&vertex, length_});
  length_ += vertex.size(version_);
}

std::uint32_t VertexPaletteLayout::offsetOf(const VertexBaseRecord& vertex) const
{
  // Lists are written about in the order in which their vertices were added.
  const bool expected = expected_ < entries_.size() && entries_[expected_].vertex == &vertex;
  const auto entry = expected ? expected_ : table_[slotOf(vertex, tagOf(vertex))].entry;
  if (entries_[entry].vertex == &vertex) expected_ = entry + 1;
  return static_cast<std::uint32_t>(entries_[entry].offset);
}

} // namespace fltapi
