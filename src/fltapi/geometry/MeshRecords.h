#pragma once

#include "fltapi/nodes/FaceRecord.h"

namespace fltapi {

/// The fields of a face, each four bytes later, behind a reserved word.
struct MeshFields : FaceFields {
  constexpr MeshFields() : FaceFields(4) {}
};

/// A mesh: its vertices stand in a pool of its own, its primitives are indices into that pool. The pool is the first of
/// its primary children; in a file it stands in front of the level with the primitives.
class MeshRecord : public RecordOf<MeshRecord, PrimNodeRecord, opcodes::mesh, MeshFields> {
public:
  using RecordOf::RecordOf;
  bool read(RecordReader& reader) override;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
  void prepareForFile(std::byte* content, const Output& output) const override;

protected:
  bool writeChildren(Output& output) const override;
};

struct LocalVertexPoolFields : FieldTable {
  Field<std::uint32_t> vertexCount{*this, 4, "vertex count", all(1)};
  Field<std::uint32_t> attributeMask{*this, 8, "attribute mask"};
};

class LocalVertexPoolRecord
    : public RecordOf<LocalVertexPoolRecord, PrimNodeRecord, opcodes::localVertexPool, LocalVertexPoolFields> {
public:
  using RecordOf::RecordOf;

  enum Attribute : std::uint32_t {
    position = 0x80000000,
    colorIndex = 0x40000000,
    rgbaColor = 0x20000000,
    normal = 0x10000000,
    baseUV = 0x08000000,
    firstLayerUV = 0x04000000, ///< layers 2 to 7 are the next lower bits
    lastLayerUV = 0x00100000,
  };

  /// One attribute of a vertex: the mask bits it stands for and what it takes.
  struct Slot {
    std::uint32_t bits;
    std::uint8_t width;
    std::uint8_t count;
  };
  static const std::vector<Slot>& slots();
  static std::size_t stride(std::uint32_t mask);

  bool hasId() const override { return false; }
  /// What the buffer really holds; never more than the count that the record claims.
  int vertexCount() const;
  bool has(Attribute attribute) const { return get(fields.attributeMask) & attribute; }
  /// Byte offset of an attribute of a vertex from the start of the record, 0 when it isn't there.
  std::size_t offsetOf(int vertex, std::uint32_t attribute) const;

  bool read(RecordReader& reader) override { return readAncillaries(reader); }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

struct MeshPrimitiveFields : FieldTable {
  Field<std::int16_t> type{*this, 4, "primitive type"};
  Field<std::int16_t> indexSize{*this, 6, "index size"};
  Field<std::uint32_t> vertexCount{*this, 8, "vertex count"};
};

class MeshPrimitiveRecord
    : public RecordOf<MeshPrimitiveRecord, PrimNodeRecord, opcodes::meshPrimitive, MeshPrimitiveFields> {
public:
  using RecordOf::RecordOf;
  enum Type : std::int16_t { triangleStrip = 1, triangleFan = 2, quadStrip = 3, indexedPolygon = 4 };

  bool hasId() const override { return false; }
  /// The indices into the pool that the buffer really holds.
  std::vector<std::uint32_t> indices() const;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

/// Pairs of palette offsets (0 and 100 percent). They are carried, not resolved.
class MorphVertexListRecord : public RecordOf<MorphVertexListRecord, PrimNodeRecord, opcodes::morphVertexList> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

} // namespace fltapi
