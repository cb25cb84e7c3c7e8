#include "fltapi/geometry/VertexListRecord.h"

#include "fltapi/geometry/TextureLayerRecords.h"
#include "fltapi/io/Output.h"

#include <algorithm>

namespace fltapi {

VertexBaseRecord* VertexListRecord::vertexAt(int i) const
{
  return i >= 0 && i < vertexCount() ? vertices_[i].get() : nullptr;
}

int VertexListRecord::indexOf(const Record& vertex) const
{
  const auto found = std::find(vertices_.begin(), vertices_.end(), &vertex);
  return found == vertices_.end() ? -1 : static_cast<int>(found - vertices_.begin());
}

bool VertexListRecord::addVertex(Record* vertex)
{
  return insertVertex(vertexCount(), vertex);
}

bool VertexListRecord::insertVertex(int i, Record* vertex)
{
  if (!vertex || !file() || !isVertexOpcode(vertex->opcode()) || i < 0 || i > vertexCount()) return false;
  vertices_.insert(vertices_.begin() + i, static_cast<VertexBaseRecord*>(vertex));
  if (!childCount()) return true;
  if (auto* layers = findChild<UVListRecord>()) layers->insertVertex(i, vertexCount());
  return true;
}

bool VertexListRecord::removeVertex(const Record* vertex)
{
  const int i = vertex ? indexOf(*vertex) : -1;
  if (i < 0) return false;
  vertices_.erase(vertices_.begin() + i);
  if (auto* layers = findChild<UVListRecord>()) layers->removeVertex(i);
  return true;
}

bool VertexListRecord::replaceVertex(const Record* oldVertex, Record* newVertex)
{
  const int i = oldVertex ? indexOf(*oldVertex) : -1;
  if (i < 0 || !newVertex || !file() || !isVertexOpcode(newVertex->opcode())) return false;
  vertices_[i] = static_cast<VertexBaseRecord*>(newVertex);
  return true;
}

void VertexListRecord::reverse()
{
  std::reverse(vertices_.begin(), vertices_.end());
  if (auto* layers = findChild<UVListRecord>()) layers->reverse();
}

osg::Vec2f VertexListRecord::averageUV() const
{
  osg::Vec2f sum;
  for (const auto& vertex : vertices_)
    sum += vertex->uv().value_or(osg::Vec2f());
  return vertices_.empty() ? sum : sum / static_cast<float>(vertices_.size());
}

bool VertexListRecord::sameVertices(const VertexListRecord& other) const
{
  return std::equal(vertices_.begin(), vertices_.end(), other.vertices_.begin(), other.vertices_.end(),
                    [](const auto& a, const auto& b) { return a->Record::equals(*b); });
}

std::uint32_t VertexListRecord::offsetAt(std::size_t i) const
{
  return loadAt<std::uint32_t>(data() + recordHeadSize + 4 * i);
}

Record* VertexListRecord::clone(FltFile* target) const
{
  auto* copy = PrimNodeRecord::clone(target);
  if (!copy) return nullptr;
  auto& list = static_cast<VertexListRecord&>(*copy);
  list.reserve(vertices_.size());
  for (const auto& vertex : vertices_) {
    const osg::ref_ptr<Record> vertexCopy = vertex->clone(copy->file());
    list.addVertex(vertexCopy);
  }
  return copy;
}

std::size_t VertexListRecord::size(int) const
{
  return recordHeadSize + 4 * vertices_.size();
}

void VertexListRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapRun(content + recordHeadSize, 4, (scope.length - recordHeadSize) / 4);
}

void VertexListRecord::prepareForFile(std::byte* content, const Output& output) const
{
  for (std::size_t i = 0; i < vertices_.size(); ++i) {
    storeAt(content + recordHeadSize + 4 * i, output.palette().offsetOf(*vertices_[i]));
  }
}

} // namespace fltapi
