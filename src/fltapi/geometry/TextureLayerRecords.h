#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct LayerMaskFields : FieldTable {
  Field<std::uint32_t> mask{*this, 4, "layer mask"};
};

/// A new record has one layer.
struct MultiTextureFields : FieldTable {
  Field<std::uint32_t> mask{*this, 4, "layer mask", all(0x80000000)};
};

/// Number of texture layers beyond the base layer, 0 to 7: bit 0x80000000 of a mask stands for layer 1.
int layerCount(std::uint32_t mask);
inline constexpr int lastLayer = 7;
constexpr std::uint32_t layerBit(int layer)
{
  return 0x80000000u >> (layer - 1);
}

/// Textures of a face or mesh beyond the base texture.
class MultiTextureRecord
    : public RecordOf<MultiTextureRecord, AncillaryRecord, opcodes::multiTexture, MultiTextureFields> {
public:
  using RecordOf::RecordOf;

  struct Layer {
    std::uint16_t texture = 0;
    std::uint16_t effect = 0;
    std::uint16_t mapping = 0;
    std::uint16_t data = 0;
  };
  bool hasLayer(int layer) const;
  /// Zeros for a layer that isn't there.
  Layer layer(int layer) const;
  void swapContent(std::byte* content, const SwapScope& scope) const override;

private:
  std::size_t entryOffset(int layer) const;
};

/// Texture coordinates of a vertex list for the layers beyond the base layer: vertex by vertex, layer by layer.
class UVListRecord : public RecordOf<UVListRecord, AncillaryRecord, opcodes::uvList, LayerMaskFields> {
public:
  using RecordOf::RecordOf;

  bool hasLayer(int layer) const { return layer >= 1 && layer <= lastLayer && get(fields.mask) & layerBit(layer); }
  /// (0, 0) for what isn't there.
  osg::Vec2f uv(int vertex, int layer) const;
  void setUV(int vertex, int layer, const osg::Vec2f& uv);

  // How the list follows the vertices of its polygon.
  void insertVertex(int i, int newCount);
  void removeVertex(int i);
  void reverse();
  void swapContent(std::byte* content, const SwapScope& scope) const override;

private:
  std::size_t stride() const;
  int vertexCount() const;
  std::size_t offsetOf(int vertex, int layer) const;
};

} // namespace fltapi
