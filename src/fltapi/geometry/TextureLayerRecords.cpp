#include "fltapi/geometry/TextureLayerRecords.h"

#include <algorithm>
#include <bit>

namespace fltapi {

namespace {

constexpr std::size_t entriesStart = 8;
constexpr std::size_t layerEntrySize = 8;
constexpr std::size_t pairSize = 8;
constexpr std::uint32_t allLayers = 0xfe000000u;

/// How many layers of the mask come before `layer`.
int rankOf(std::uint32_t mask, int layer)
{
  return std::popcount(mask & allLayers & ~(0xffffffffu >> (layer - 1)));
}

} // namespace

int layerCount(std::uint32_t mask)
{
  return std::popcount(mask & allLayers);
}

// ---- MultiTextureRecord --------------------------------------------------------------------------------------------

std::size_t MultiTextureRecord::entryOffset(int layer) const
{
  const auto mask = get(fields.mask);
  if (layer < 1 || layer > lastLayer || !(mask & layerBit(layer))) return 0;
  const auto at = entriesStart + layerEntrySize * static_cast<std::size_t>(rankOf(mask, layer));
  return at + layerEntrySize <= length() ? at : 0;
}

bool MultiTextureRecord::hasLayer(int layer) const
{
  return entryOffset(layer) != 0;
}

MultiTextureRecord::Layer MultiTextureRecord::layer(int layer) const
{
  const auto at = entryOffset(layer);
  return at ? loadAt<Layer>(data() + at) : Layer{};
}

void MultiTextureRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fields, content, scope);
  if (scope.length > entriesStart) swapRun(content + entriesStart, 2, (scope.length - entriesStart) / 2);
}

// ---- UVListRecord --------------------------------------------------------------------------------------------------

std::size_t UVListRecord::stride() const
{
  return pairSize * static_cast<std::size_t>(layerCount(get(fields.mask)));
}

int UVListRecord::vertexCount() const
{
  const auto one = stride();
  return one ? static_cast<int>((length() - entriesStart) / one) : 0;
}

std::size_t UVListRecord::offsetOf(int vertex, int layer) const
{
  if (!hasLayer(layer) || vertex < 0 || vertex >= vertexCount()) return 0;
  return entriesStart + static_cast<std::size_t>(vertex) * stride() +
         pairSize * static_cast<std::size_t>(rankOf(get(fields.mask), layer));
}

osg::Vec2f UVListRecord::uv(int vertex, int layer) const
{
  const auto at = offsetOf(vertex, layer);
  return at ? FieldTraits<osg::Vec2f>::load(data() + at) : osg::Vec2f();
}

void UVListRecord::setUV(int vertex, int layer, const osg::Vec2f& uv)
{
  if (const auto at = offsetOf(vertex, layer)) FieldTraits<osg::Vec2f>::store(data() + at, uv);
}

void UVListRecord::insertVertex(int i, int newCount)
{
  const auto one = stride();
  // A list that never had a pair for each vertex isn't ours to complete.
  if (!one || vertexCount() + 1 != newCount || !resize(length() + one)) return;
  auto* at = data() + entriesStart + static_cast<std::size_t>(i) * one;
  std::memmove(at + one, at, data() + length() - one - at);
  std::memset(at, 0, one);
}

void UVListRecord::removeVertex(int i)
{
  const auto one = stride();
  if (!one || i >= vertexCount()) return;
  auto* at = data() + entriesStart + static_cast<std::size_t>(i) * one;
  std::memmove(at, at + one, data() + length() - one - at);
  resize(length() - one);
}

void UVListRecord::reverse()
{
  const auto one = stride();
  auto* first = data() + entriesStart;
  for (int i = 0, j = vertexCount() - 1; i < j; ++i, --j) {
    std::swap_ranges(first + static_cast<std::size_t>(i) * one, first + static_cast<std::size_t>(i + 1) * one,
                     first + static_cast<std::size_t>(j) * one);
  }
}

void UVListRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fields, content, scope);
  if (scope.length > entriesStart) swapRun(content + entriesStart, 4, (scope.length - entriesStart) / 4);
}

} // namespace fltapi
