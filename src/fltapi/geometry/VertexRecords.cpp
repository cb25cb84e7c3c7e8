#include "fltapi/geometry/VertexRecords.h"

#include "fltapi/FltFile.h"
#include "fltapi/Host.h"
#include "fltapi/palettes/ColorPaletteRecord.h"

#include <cmath>

namespace fltapi {

/// Where the four kinds differ. Offset 0 stands for a field that the kind doesn't have.
struct VertexBaseRecord::Places {
  std::size_t normal, uv, packedColor, colorIndex;
};

const VertexBaseRecord::Places& VertexBaseRecord::places() const
{
  static constexpr Places plain{0, 0, VertexRecord::fields.packedColor.offset(),
                                VertexRecord::fields.colorIndex.offset()};
  static constexpr Places withNormal{NormalVertexRecord::fields.normal.offset(), 0,
                                     NormalVertexRecord::fields.packedColor.offset(),
                                     NormalVertexRecord::fields.colorIndex.offset()};
  static constexpr Places withUV{0, TextureVertexRecord::fields.uv.offset(),
                                 TextureVertexRecord::fields.packedColor.offset(),
                                 TextureVertexRecord::fields.colorIndex.offset()};
  static constexpr Places withBoth{
      NormalTextureVertexRecord::fields.normal.offset(), NormalTextureVertexRecord::fields.uv.offset(),
      NormalTextureVertexRecord::fields.packedColor.offset(), NormalTextureVertexRecord::fields.colorIndex.offset()};
  switch (recordOpcode(data())) {
  case opcodes::normalVertex:
    return withNormal;
  case opcodes::textureVertex:
    return withUV;
  case opcodes::normalTextureVertex:
    return withBoth;
  default:
    return plain;
  }
}

void VertexBaseRecord::setFlag(std::uint16_t flag, bool on)
{
  setFlags(static_cast<std::uint16_t>(on ? flags() | flag : flags() & ~flag));
}

std::uint32_t VertexBaseRecord::colorIndex() const
{
  return hasColor() ? loadAt<std::uint32_t>(data() + places().colorIndex) : noColor;
}

void VertexBaseRecord::setColorIndex(std::uint32_t index)
{
  storeAt(data() + places().colorIndex, index);
  if (index > largestColorIndex) {
    setFlag(noColorFlag, true);
    storeAt(data() + places().packedColor, PackedColor{});
    return;
  }
  setFlag(noColorFlag, false);
  setFlag(packedFlag, false);
  if (const auto* palette = file() ? file()->colorPalette() : nullptr) {
    storeAt(data() + places().packedColor, palette->colorAt(index));
  }
}

PackedColor VertexBaseRecord::packedColor() const
{
  return loadAt<PackedColor>(data() + places().packedColor);
}

void VertexBaseRecord::setPackedColor(PackedColor color)
{
  storeAt(data() + places().packedColor, color);
  setFlag(packedFlag, true);
  setFlag(noColorFlag, false);
}

std::optional<osg::Vec3f> VertexBaseRecord::normal() const
{
  const auto at = places().normal;
  if (at == 0) return std::nullopt;
  return FieldTraits<osg::Vec3f>::load(data() + at);
}

void VertexBaseRecord::setNormal(const osg::Vec3f& normal)
{
  if (const auto at = places().normal) FieldTraits<osg::Vec3f>::store(data() + at, normal);
}

std::optional<osg::Vec2f> VertexBaseRecord::uv() const
{
  const auto at = places().uv;
  if (at == 0) return std::nullopt;
  return FieldTraits<osg::Vec2f>::load(data() + at);
}

void VertexBaseRecord::setUV(const osg::Vec2f& uv)
{
  if (const auto at = places().uv) FieldTraits<osg::Vec2f>::store(data() + at, uv);
}

bool VertexBaseRecord::equals(const Record& other) const
{
  if (opcode() != other.opcode() || length() != other.length()) return false;
  const auto& vertex = static_cast<const VertexBaseRecord&>(other);
  const auto difference = position() - vertex.position();
  const bool near = std::abs(difference.x()) <= fileTolerance && std::abs(difference.y()) <= fileTolerance &&
                    std::abs(difference.z()) <= fileTolerance;
  return near && get(common.colorNameIndex) == vertex.get(common.colorNameIndex) && flags() == vertex.flags() &&
         packedColor() == vertex.packedColor() && colorIndex() == vertex.colorIndex();
}

void VertexRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFieldsUnrolled<fields>(content, scope);
}

void NormalVertexRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFieldsUnrolled<fields>(content, scope);
}

void NormalTextureVertexRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFieldsUnrolled<fields>(content, scope);
}

void TextureVertexRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFieldsUnrolled<fields>(content, scope);
}

osg::Vec3d vertexPosition(const Record& record)
{
  if (!isVertexOpcode(record.opcode())) return {};
  return static_cast<const VertexBaseRecord&>(record).position();
}

} // namespace fltapi
