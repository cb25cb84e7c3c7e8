#include "scene/image/LightPoints.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/Colors.h"
#include "scene/image/Finite.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using namespace fltapi;

// Pixels. A light that a simulator draws smaller than a pixel must still be found and picked here.
constexpr float smallestSize = 1;
constexpr float largestSize = 64;

struct Look {
  float size = 1;
  float intensity = 1;
};

template <class Palette>
Look lookOf(const Palette& record)
{
  const auto& fields = Palette::fields.appearance;
  return {record.get(fields.maximumPixelSize), record.get(fields.intensity)};
}

Look lookOf(const IndexedLightPointRecord& lightPoint)
{
  using Appearance = LightPointAppearancePaletteRecord;
  const auto* file = lightPoint.file();
  if (!file) return {};
  const auto index = lightPoint.get(IndexedLightPointRecord::fields.appearance);
  for (const auto* record : file->palette(Appearance::code)) {
    if (record->get(Appearance::fields.index) == index) return lookOf(static_cast<const Appearance&>(*record));
  }
  return {};
}

Look lookOfAny(const PrimNodeRecord& lightPoint)
{
  return lightPoint.opcode() == opcodes::lightPoint ? lookOf(static_cast<const LightPointRecord&>(lightPoint))
                                                    : lookOf(static_cast<const IndexedLightPointRecord&>(lightPoint));
}

float systemIntensity(const PrimNodeRecord& lightPoint)
{
  const auto* parent = lightPoint.parent();
  if (!parent || parent->opcode() != opcodes::lightPointSystem) return 1;
  return parent->get(LightPointSystemRecord::fields.intensity);
}

osg::Vec4ub dimmed(osg::Vec4ub color, float intensity)
{
  const auto scaled = [&](std::uint8_t component) {
    return static_cast<std::uint8_t>(std::lround(static_cast<float>(component) * intensity));
  };
  return {scaled(color.r()), scaled(color.g()), scaled(color.b()), color.a()};
}

} // namespace

FaceStateKey keyOfLightPoint(const PrimNodeRecord& lightPoint, int subfaceDepth)
{
  FaceStateKey key;
  const auto* file = lightPoint.file();
  key.file = file && file->header() ? file->header()->serial() : 0;
  key.kind = DrawKind::points;
  key.subfaceDepth = static_cast<std::uint16_t>(subfaceDepth);
  const auto size = lookOfAny(lightPoint).size;
  key.pointSize = size > smallestSize ? std::min(size, largestSize) : smallestSize; // also for what is no number
  return key;
}

void describeLightPoint(const PrimNodeRecord& lightPoint, const Colors& colors, PolygonShape& shape)
{
  shape.clear();
  shape.mode = GL_POINTS;
  const auto* list = lightPoint.findChild<VertexListRecord>();
  if (!list) return;
  const float product = lookOfAny(lightPoint).intensity * systemIntensity(lightPoint);
  const float intensity = product >= 0 ? std::min(product, 1.0F) : 0.0F;
  for (const auto& vertex : list->vertices()) {
    osg::Vec3 position(vertex->position());
    // Each vertex keeps its number, so one that is nowhere goes where the one before it is.
    if (!isFinite(position)) position = shape.positions.empty() ? osg::Vec3() : shape.positions.back();
    shape.positions.push_back(position);
    auto color = colors.of(*vertex, Colors::white());
    color.a() = 255;
    shape.colors.push_back(dimmed(color, intensity));
  }
}

} // namespace nalt
