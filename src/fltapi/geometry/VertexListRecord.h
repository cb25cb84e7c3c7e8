#pragma once

#include "fltapi/PrimNodeRecord.h"
#include "fltapi/geometry/VertexRecords.h"

namespace fltapi {

struct VertexListFields : FieldTable {
  Field<std::int32_t> firstOffset{*this, 4, "first offset", all(-1)};
};

/// The corners of a polygon or light point, in order. The list owns its vertices; the offsets in the buffer mean
/// something only while a file is read.
class VertexListRecord : public RecordOf<VertexListRecord, PrimNodeRecord, opcodes::vertexList, VertexListFields> {
public:
  using RecordOf::RecordOf;
  using Vertices = std::vector<osg::ref_ptr<VertexBaseRecord>>;

  bool hasId() const override { return false; }
  const Vertices& vertices() const { return vertices_; }
  int vertexCount() const { return static_cast<int>(vertices_.size()); }
  /// Null when i is out of range.
  VertexBaseRecord* vertexAt(int i) const;
  /// -1 when the list doesn't hold the vertex.
  int indexOf(const Record& vertex) const;

  // A vertex is taken only if it is of one of the four kinds and the list belongs to a file. The texture coordinates of
  // further layers move along; those of a new vertex are zero.
  bool addVertex(Record* vertex);
  bool insertVertex(int i, Record* vertex);
  bool removeVertex(const Record* vertex);
  bool replaceVertex(const Record* oldVertex, Record* newVertex);
  /// The last corner becomes the first.
  void reverse();
  /// Puts a whole list in the place of the old one; texture coordinates of further layers stay as they are.
  void setVertices(Vertices vertices) { vertices_ = std::move(vertices); }
  void reserve(std::size_t count) { vertices_.reserve(count); }

  /// Calls `functor(vertex)` for each vertex in order until one call gives false.
  template <class Functor>
  void forEachVertex(Functor&& functor) const
  {
    for (const auto& vertex : vertices_) {
      if (!functor(*vertex)) return;
    }
  }
  /// The mean of the texture coordinates; vertices without any count as (0, 0).
  osg::Vec2f averageUV() const;
  /// Same number of vertices, and each pair of one kind with equal content.
  bool sameVertices(const VertexListRecord& other) const;

  /// The i-th palette offset of the file that was read.
  std::uint32_t offsetAt(std::size_t i) const;

  Record* clone(FltFile* target) const override;
  std::size_t size(int version) const override;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
  void prepareForFile(std::byte* content, const Output& output) const override;

private:
  Vertices vertices_;
};

} // namespace fltapi
