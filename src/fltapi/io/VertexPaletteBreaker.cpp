#include "fltapi/io/VertexPaletteBreaker.h"

#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"
#include "fltapi/geometry/VertexListRecord.h"

#include <algorithm>

namespace fltapi {

VertexPaletteBreaker::VertexPaletteBreaker(const PrimNodeRecord& header)
{
  std::uint32_t offset = opcodeLength(opcodes::vertexPalette);
  for (auto* child : header.children()) {
    if (!isVertexOpcode(child->opcode())) continue;
    auto* vertex = static_cast<VertexBaseRecord*>(child);
    entries_.push_back({offset, false, vertex});
    offset += static_cast<std::uint32_t>(vertex->size(currentVersion));
  }
}

VertexPaletteBreaker::Entry* VertexPaletteBreaker::find(std::uint32_t offset)
{
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), offset,
                                      [](const Entry& entry, std::uint32_t value) { return entry.offset < value; });
  return found == entries_.end() || found->offset != offset ? nullptr : &*found;
}

void VertexPaletteBreaker::breakBelow(PrimNodeRecord& node)
{
  if (node.opcode() == opcodes::external) return;
  if (node.opcode() == opcodes::vertexList) breakList(static_cast<VertexListRecord&>(node));
  for (auto* child : node.primaryChildren())
    breakBelow(*child);
}

void VertexPaletteBreaker::breakList(VertexListRecord& list)
{
  const auto count = (list.length() - recordHeadSize) / 4;
  list.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    // No vertex at that offset, or none meant: the polygon has a corner less.
    auto* entry = find(list.offsetAt(i));
    if (!entry) continue;
    osg::ref_ptr<VertexBaseRecord> vertex = entry->vertex;
    if (entry->taken) vertex = static_cast<VertexBaseRecord*>(entry->vertex->clone(list.file()));
    entry->taken = true;
    list.addVertex(vertex);
  }
}

} // namespace fltapi
