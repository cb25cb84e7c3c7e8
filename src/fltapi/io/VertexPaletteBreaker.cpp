#include "fltapi/io/VertexPaletteBreaker.h"

#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"
#include "fltapi/geometry/TextureLayerRecords.h"
#include "fltapi/geometry/VertexListRecord.h"

#include <algorithm>

namespace fltapi {

namespace {

/// The first vertex lies right behind the palette record.
constexpr std::uint32_t firstOffset = 8;

} // namespace

VertexPaletteBreaker::~VertexPaletteBreaker()
{
  for (const auto& entry : entries_) {
    if (!entry.taken) entry.vertex->unref();
  }
}

void VertexPaletteBreaker::add(osg::ref_ptr<VertexBaseRecord> vertex)
{
  const auto length = static_cast<std::uint32_t>(vertex->size(currentVersion));
  const auto offset = entries_.empty() ? firstOffset : nextOffset_;
  if (entries_.empty()) firstLength_ = length;
  entries_.push_back({offset, false, vertex.get()});
  vertex->ref();
  nextOffset_ = offset + length;
}

VertexPaletteBreaker::Entry* VertexPaletteBreaker::find(std::uint32_t offset)
{
  if (entries_.empty() || offset < firstOffset) return nullptr;
  // Nearly always all vertices are of one kind, so the place can be told.
  const std::size_t guess = (offset - firstOffset) / firstLength_;
  if (guess < entries_.size() && entries_[guess].offset == offset) return &entries_[guess];
  const auto found = std::ranges::lower_bound(entries_, offset, {}, &Entry::offset);
  return found == entries_.end() || found->offset != offset ? nullptr : &*found;
}

void VertexPaletteBreaker::breakBelow(PrimNodeRecord& node)
{
  if (node.opcode() == opcodes::external) return;
  if (node.opcode() == opcodes::vertexList) breakList(static_cast<VertexListRecord&>(node));
  for (auto* child : node.primaryChildren())
    breakBelow(*child);
}

osg::ref_ptr<VertexBaseRecord> VertexPaletteBreaker::cornerFor(Entry& entry, VertexListRecord& list)
{
  if (entry.taken) return static_cast<VertexBaseRecord*>(entry.vertex->clone(list.file()));
  entry.taken = true;
  osg::ref_ptr<VertexBaseRecord> vertex = entry.vertex;
  vertex->unref();
  return vertex;
}

void VertexPaletteBreaker::breakList(VertexListRecord& list)
{
  const auto count = (list.length() - recordHeadSize) / 4;
  VertexListRecord::Vertices corners;
  corners.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    // No vertex at that offset, or none meant: the polygon has a corner less.
    auto* entry = find(list.offsetAt(i));
    auto vertex = entry ? cornerFor(*entry, list) : nullptr;
    if (vertex) {
      corners.push_back(std::move(vertex));
    } else if (auto* layers = list.findChild<UVListRecord>()) {
      layers->removeVertex(static_cast<int>(corners.size()));
    }
  }
  list.setVertices(std::move(corners));
}

} // namespace fltapi
