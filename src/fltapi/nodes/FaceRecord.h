#pragma once

#include "fltapi/geometry/VertexListRecord.h"

namespace fltapi {

/// The fields of a face and, `shift` bytes later, of a mesh.
struct FaceFields : NodeFields {
  constexpr explicit FaceFields(int shift = 0) : s(static_cast<std::uint16_t>(shift)) {}
  constexpr std::uint16_t at(int offset) const { return static_cast<std::uint16_t>(offset + s); }
  std::uint16_t s;

  Field<std::int32_t> irColorCode{*this, at(12), "IR color code"};
  Field<std::int16_t> relativePriority{*this, at(16), "relative priority"};
  Field<std::uint8_t> drawType{*this, at(18), "draw type"};
  Field<std::uint8_t> textureWhite{*this, at(19), "texture white"};
  Field<std::uint16_t> colorNameIndex{*this, at(20), "color name index"};
  Field<std::uint16_t> alternateColorNameIndex{*this, at(22), "alternate color name index"};
  Field<std::uint8_t> billboard{*this, at(25), "template"};
  Field<std::int16_t> detailTexture{*this, at(26), "detail texture index", all(-1)};
  Field<std::int16_t> texture{*this, at(28), "texture index", all(-1)};
  Field<std::int16_t> material{*this, at(30), "material index", all(-1)};
  Field<std::int16_t> surfaceMaterialCode{*this, at(32), "surface material code"};
  Field<std::int16_t> featureId{*this, at(34), "feature ID"};
  Field<std::int32_t> irMaterialCode{*this, at(36), "IR material code"};
  Field<std::uint16_t> transparency{*this, at(40), "transparency"};
  Field<std::uint8_t> lodGenerationControl{*this, at(42), "LOD generation control"};
  Field<std::uint8_t> lineStyle{*this, at(43), "line style index"};
  Field<std::uint32_t> flags{*this, at(44), "flags", all(0x60000000), 14};
  Field<std::uint8_t> lightMode{*this, at(48), "light mode"};
  Field<PackedColor> packedColor{*this, at(56), "packed primary color", all(255)};
  Field<PackedColor> alternatePackedColor{*this, at(60), "packed alternate color", all(255)};
  Field<std::int16_t> textureMapping{*this, at(64), "texture mapping index", all(-1), 1421};
  Field<std::uint32_t> colorIndex{*this, at(68), "primary color index", {}, 1421};
  Field<std::uint32_t> alternateColorIndex{*this, at(72), "alternate color index", {}, 1421};
  Field<std::int16_t> shader{*this, at(78), "shader index", all(-1)};
};

/// Before 16.0 the place of the shader index is reserved: a zero there means that there is no shader.
void readReservedShader(std::byte* content, const Field<std::int16_t>& shader, const SwapScope& scope);
void writeReservedShader(std::byte* content, const Field<std::int16_t>& shader, int version);

/// A polygon. Its corners stand in its vertex list.
class FaceRecord : public RecordOf<FaceRecord, PrimNodeRecord, opcodes::face, FaceFields> {
public:
  using RecordOf::RecordOf;

  enum Flag : std::uint32_t {
    terrainFlag = 0x80000000,
    noColorFlag = 0x40000000,
    noAlternateColorFlag = 0x20000000,
    packedColorFlag = 0x10000000,
    footprintFlag = 0x08000000,
    hiddenFlag = 0x04000000,
    rooflineFlag = 0x02000000,
  };
  enum DrawType : std::uint8_t {
    solidCulled = 0,
    solidBothSides = 1,
    wireframeClosed = 2,
    wireframeOpen = 3,
    outline = 4,
    omnidirectionalLight = 8,
    unidirectionalLight = 9,
    bidirectionalLight = 10,
  };
  enum LightMode : std::uint8_t { flat = 0, gouraud = 1, lit = 2, litGouraud = 3 };

  static constexpr std::uint32_t noVertex = 0xffffffff;

  /// Null for a polygon without one.
  VertexListRecord* vertexList() const { return findChild<VertexListRecord>(); }
  int vertexCount() const;
  VertexBaseRecord* vertexAt(int i) const;
  std::uint32_t vertexIndexOf(const Record& vertex) const;
  std::string faceName() const { return getName(); }
  std::vector<osg::Vec3d> positions() const;
  /// Unit normal of the polygon by its corners (the sum of the cross products of neighbouring edges from the first
  /// corner), the zero vector for a polygon without area.
  osg::Vec3d normal() const;

  bool holdsSubfaces() const override { return true; }
  bool read(RecordReader& reader) override { return readBody(reader) && readSubfaces(reader); }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
  /// A draw type that no reader knows goes out as 0.
  void prepareForFile(std::byte* content, const Output& output) const override;
};

} // namespace fltapi
