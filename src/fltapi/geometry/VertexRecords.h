#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

#include <optional>

namespace fltapi {

constexpr bool isVertexOpcode(int opcode)
{
  return opcode >= opcodes::vertex && opcode <= opcodes::textureVertex;
}

/// What all four kinds of vertices have at the same place.
struct VertexFields : FieldTable {
  Field<std::uint16_t> colorNameIndex{*this, 4, "color name index"};
  Field<std::uint16_t> flags{*this, 6, "flags", all(0x2000)};
  Field<osg::Vec3d> position{*this, 8, "position"};
};

/// Color indices stand in files from this version on.
inline constexpr std::uint16_t firstVersionWithColorIndex = 1421;

struct PlainVertexFields : VertexFields {
  Field<PackedColor> packedColor{*this, 32, "packed color", all(255)};
  Field<std::uint32_t> colorIndex{*this, 36, "color index", {}, firstVersionWithColorIndex};
};

struct NormalVertexFields : VertexFields {
  Field<osg::Vec3f> normal{*this, 32, "normal"};
  Field<PackedColor> packedColor{*this, 44, "packed color", all(255)};
  Field<std::uint32_t> colorIndex{*this, 48, "color index", {}, firstVersionWithColorIndex};
};

struct TextureVertexFields : VertexFields {
  Field<osg::Vec2f> uv{*this, 32, "uv"};
  Field<PackedColor> packedColor{*this, 40, "packed color", all(255)};
  Field<std::uint32_t> colorIndex{*this, 44, "color index", {}, firstVersionWithColorIndex};
};

struct NormalTextureVertexFields : VertexFields {
  Field<osg::Vec3f> normal{*this, 32, "normal"};
  Field<osg::Vec2f> uv{*this, 44, "uv"};
  Field<PackedColor> packedColor{*this, 52, "packed color", all(255)};
  Field<std::uint32_t> colorIndex{*this, 56, "color index", {}, firstVersionWithColorIndex};
};

/// A vertex of any of the four kinds. Normals and texture coordinates are there or not; everything else is common.
class VertexBaseRecord : public AncillaryRecord {
public:
  using AncillaryRecord::AncillaryRecord;

  enum Flag : std::uint16_t {
    hardEdgeFlag = 0x8000,
    normalFrozenFlag = 0x4000,
    noColorFlag = 0x2000,
    packedFlag = 0x1000
  };
  static constexpr std::uint32_t noColor = 0xffffffff;
  /// A larger index can't be one of the palette.
  static constexpr std::uint32_t largestColorIndex = 0x1ffff;

  static constexpr VertexFields common{};

  std::uint16_t flags() const { return get(common.flags); }
  void setFlags(std::uint16_t flags) { set(common.flags, flags); }
  osg::Vec3d position() const { return get(common.position); }
  void setPosition(const osg::Vec3d& position) { set(common.position, position); }
  bool hardEdge() const { return flags() & hardEdgeFlag; }
  void setHardEdge(bool hard) { setFlag(hardEdgeFlag, hard); }
  bool hasColor() const { return !(flags() & noColorFlag); }
  bool hasPackedColor() const { return flags() & packedFlag; }

  /// Index into the color palette times 128 plus intensity; `noColor` when the vertex has none.
  std::uint32_t colorIndex() const;
  /// Looks the packed color up in the file's palette too. An index above `largestColorIndex` means no color.
  void setColorIndex(std::uint32_t index);
  PackedColor packedColor() const;
  void setPackedColor(PackedColor color);

  std::optional<osg::Vec3f> normal() const;
  /// Changes nothing for kinds without a normal.
  void setNormal(const osg::Vec3f& normal);
  std::optional<osg::Vec2f> uv() const;
  /// Changes nothing for kinds without texture coordinates.
  void setUV(const osg::Vec2f& uv);

  /// Field by field; positions may differ by the file tolerance.
  bool equals(const Record& other) const override;

private:
  struct Places;
  const Places& places() const;
  void setFlag(std::uint16_t flag, bool on);
};

class VertexRecord : public RecordOf<VertexRecord, VertexBaseRecord, opcodes::vertex, PlainVertexFields> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

class NormalVertexRecord
    : public RecordOf<NormalVertexRecord, VertexBaseRecord, opcodes::normalVertex, NormalVertexFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 52 : length(); }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

class NormalTextureVertexRecord : public RecordOf<NormalTextureVertexRecord, VertexBaseRecord,
                                                  opcodes::normalTextureVertex, NormalTextureVertexFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 60 : length(); }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

class TextureVertexRecord
    : public RecordOf<TextureVertexRecord, VertexBaseRecord, opcodes::textureVertex, TextureVertexFields> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

/// The position of any vertex record; the origin for a record that isn't one.
osg::Vec3d vertexPosition(const Record& record);

} // namespace fltapi
