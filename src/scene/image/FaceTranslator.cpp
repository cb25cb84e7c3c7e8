#include "scene/image/FaceTranslator.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/Finite.h"
#include "scene/image/Tessellation.h"

#include <osg/Notify>

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using fltapi::FaceRecord;
using fltapi::MeshRecord;
using fltapi::MultiTextureRecord;
using fltapi::ObjectRecord;
using fltapi::VertexBaseRecord;

constexpr float clearValue = 65535;
/// Polygons that older files use as light points.
constexpr float lightFaceSize = 3;
/// The effect of a layer that a texture environment draws; bump maps and effects of other programs it doesn't.
constexpr int textureEnvironmentEffect = 0;

bool isLit(int lightMode)
{
  return lightMode == FaceRecord::lit || lightMode == FaceRecord::litGouraud;
}

bool hasVertexColors(int lightMode)
{
  return lightMode == FaceRecord::gouraud || lightMode == FaceRecord::litGouraud;
}

bool isLight(int drawType)
{
  return drawType >= FaceRecord::omnidirectionalLight && drawType <= FaceRecord::bidirectionalLight;
}

DrawKind surfaceKind(int drawType)
{
  return drawType == FaceRecord::solidBothSides ? DrawKind::bothSides : DrawKind::culled;
}

GLenum modeOf(const FaceRecord& face, int corners)
{
  const int drawType = face.get(FaceRecord::fields.drawType);
  if (isLight(drawType) || corners == 1) return GL_POINTS;
  if (corners == 2) return GL_LINES;
  if (drawType == FaceRecord::wireframeClosed) return GL_LINE_LOOP;
  if (drawType == FaceRecord::wireframeOpen) return GL_LINE_STRIP;
  return corners == 3 ? GL_TRIANGLES : corners == 4 ? GL_QUADS : GL_POLYGON;
}

DrawKind kindOf(const FaceRecord& face)
{
  switch (modeOf(face, face.vertexCount())) {
  case GL_POINTS:
    return DrawKind::points;
  case GL_LINES:
  case GL_LINE_LOOP:
  case GL_LINE_STRIP:
    return DrawKind::lines;
  default:
    return surfaceKind(face.get(FaceRecord::fields.drawType));
  }
}

/// Files that know no alpha hold 0 in all corners; a polygon that can't be seen at all isn't meant.
bool alphaIsMeant(const FaceRecord& face, const Colors& colors)
{
  if (!colors.hasVertexAlpha()) return false;
  const auto* list = face.vertexList();
  return list && std::ranges::any_of(list->vertices(), [](const auto& vertex) {
           return vertex->hasPackedColor() && vertex->hasColor() && vertex->packedColor().a != 0;
         });
}

bool hasClearCorner(const FaceRecord& face, const Colors& colors)
{
  if (!usesVertexColors(face) || !alphaIsMeant(face, colors)) return false;
  return std::ranges::any_of(face.vertexList()->vertices(), [](const auto& vertex) {
    return vertex->hasPackedColor() && vertex->hasColor() && vertex->packedColor().a != 255;
  });
}

template <class FaceLike>
FaceStateKey::Layers layersOf(const FaceLike& face)
{
  auto layers = FaceStateKey::noLayers;
  layers[0] = static_cast<std::uint16_t>(face.get(FaceLike::fields.texture));
  const auto* more = face.template findChild<MultiTextureRecord>();
  for (int layer = 1; more && layer < textureLayers; ++layer) {
    const auto entry = more->layer(layer);
    if (more->hasLayer(layer) && entry.effect == textureEnvironmentEffect)
      layers[static_cast<std::size_t>(layer)] = entry.texture;
  }
  return layers;
}

std::uint32_t bytesOf(const osg::Vec4ub& color)
{
  return color.r() | color.g() << 8U | color.b() << 16U;
}

} // namespace

bool usesVertexColors(const FaceRecord& face)
{
  return hasVertexColors(face.get(FaceRecord::fields.lightMode));
}

osg::Vec4ub faded(osg::Vec4ub color, float opacity)
{
  color.a() = static_cast<std::uint8_t>(std::lround(static_cast<float>(color.a()) * std::clamp(opacity, 0.0F, 1.0F)));
  return color;
}

FacePlace FacePlace::of(const fltapi::PrimNodeRecord& record)
{
  FacePlace place;
  const auto* node = record.parent();
  for (; node && node->holdsSubfaces(); node = node->parent())
    ++place.subfaceDepth;
  if (node && node->opcode() == ObjectRecord::code)
    place.opacity = 1 - static_cast<float>(node->get(ObjectRecord::fields.transparency)) / clearValue;
  return place;
}

const Colors& FaceTranslator::colorsOf(const fltapi::FltFile* file)
{
  if (!colors_ || colorsFile_ != file) {
    colors_.emplace(file);
    colorsFile_ = file;
  }
  return *colors_;
}

template <class FaceLike>
osg::Vec4ub FaceTranslator::plainColor(const FaceLike& face)
{
  const auto& fields = FaceLike::fields;
  const auto flags = face.get(fields.flags);
  const bool white = face.get(fields.textureWhite) && layersOf(face)[0] != FaceStateKey::noTexture;
  if (flags & FaceRecord::noColorFlag || white) return Colors::white();
  if (flags & FaceRecord::packedColorFlag) return Colors::from(face.get(fields.packedColor));
  return colorsOf(face.file()).indexed(face.get(fields.colorIndex));
}

template <class FaceLike>
FaceStateKey FaceTranslator::commonKey(const FaceLike& face, const FacePlace& place, DrawKind kind)
{
  const auto& fields = FaceLike::fields;
  FaceStateKey key;
  const auto* file = face.file();
  key.file = file && file->header() ? file->header()->serial() : 0;
  key.kind = kind;
  key.lit = isLit(face.get(fields.lightMode));
  key.subfaceDepth = static_cast<std::uint16_t>(place.subfaceDepth);
  key.material = std::max<std::int16_t>(face.get(fields.material), -1);
  key.shader = std::max<std::int16_t>(face.get(fields.shader), -1);
  key.textures = layersOf(face);
  if (kind == DrawKind::lines || kind == DrawKind::outline) key.lineStyle = face.get(fields.lineStyle);

  const float opacity = (1 - static_cast<float>(face.get(fields.transparency)) / clearValue) * place.opacity;
  key.transparent = opacity < 1;
  if (key.lit && key.material >= 0) {
    key.litColor = bytesOf(plainColor(face));
    key.transparency = static_cast<std::uint16_t>(std::lround((1 - opacity) * clearValue));
  }
  return key;
}

FaceStateKey FaceTranslator::keyOf(const FaceRecord& face, const FacePlace& place)
{
  auto key = commonKey(face, place, kindOf(face));
  if (key.kind == DrawKind::points && isLight(face.get(FaceRecord::fields.drawType))) key.pointSize = lightFaceSize;
  key.transparent = key.transparent || hasClearCorner(face, colorsOf(face.file()));
  return key;
}

FaceStateKey FaceTranslator::keyOf(const MeshRecord& mesh, const FacePlace& place)
{
  return commonKey(mesh, place, surfaceKind(mesh.get(MeshRecord::fields.drawType)));
}

template <class FaceLike>
osg::Vec4ub FaceTranslator::wholeColor(const FaceLike& face, const FacePlace& place, const FaceState& state)
{
  const float transparency = static_cast<float>(face.get(FaceLike::fields.transparency)) / clearValue;
  return faded(plainColor(face), (1 - transparency) * place.opacity * state.alpha());
}

osg::Vec4ub FaceTranslator::colorOf(const FaceRecord& face, const FacePlace& place, const FaceState& state)
{
  return wholeColor(face, place, state);
}

osg::Vec4ub FaceTranslator::colorOf(const MeshRecord& mesh, const FacePlace& place, const FaceState& state)
{
  return wholeColor(mesh, place, state);
}

void FaceTranslator::describe(const FaceRecord& face, const FacePlace& place, const FaceState& state,
                              PolygonShape& shape)
{
  shape.clear();
  const auto* list = face.vertexList();
  if (!list) return;
  const auto color = colorOf(face, place, state);
  const auto& colors = colorsOf(face.file());
  const bool byCorner = usesVertexColors(face);
  const bool withAlpha = byCorner && alphaIsMeant(face, colors);
  const float opacity = static_cast<float>(color.a()) / 255.0F;
  bool withoutNormal = false;

  for (const auto& vertex : list->vertices()) {
    if (!fltapi::isVertexOpcode(fltapi::opcodeOf(*vertex))) complaints_->tell(*vertex, "Failed to get Vertex op code.");
    shape.positions.emplace_back(vertex->position());
    if (!isFinite(shape.positions.back())) {
      shape.clear();
      return;
    }
    auto corner = byCorner ? colors.of(*vertex, osg::Vec4ub(color.r(), color.g(), color.b(), 255)) : color;
    if (byCorner) {
      if (!withAlpha) corner.a() = 255;
      corner = faded(corner, opacity);
    }
    shape.colors.push_back(corner);
    if (state.key().lit) {
      const auto normal = vertex->normal();
      shape.normals.push_back(normal.value_or(osg::Vec3f()));
      withoutNormal = withoutNormal || shape.normals.back().length2() == 0;
    }
    if (state.key().hasLayer(0)) shape.uvs[0].push_back(vertex->uv().value_or(osg::Vec2f()));
  }

  const auto* uvList = list->findChild<fltapi::UVListRecord>();
  for (int layer = 1; layer < textureLayers; ++layer) {
    if (!state.key().hasLayer(layer)) continue;
    for (int i = 0; i < shape.cornerCount(); ++i)
      shape.uvs[static_cast<std::size_t>(layer)].push_back(uvList ? uvList->uv(i, layer) : osg::Vec2f());
  }

  const auto area = areaNormal(shape.positions);
  if (withoutNormal) {
    auto normal = area;
    normal.normalize();
    for (auto& corner : shape.normals) {
      if (corner.length2() == 0) corner = normal;
    }
  }
  shape.mode = modeOf(face, shape.cornerCount());
  const bool filled = shape.mode == GL_QUADS || shape.mode == GL_POLYGON;
  if (filled && !isConvex(shape.positions, area)) shape.triangles = tessellate(shape.positions, area);
}

bool FaceTranslator::hasOutline(const FaceRecord& face)
{
  return face.get(FaceRecord::fields.drawType) == FaceRecord::outline && face.vertexCount() > 2;
}

FaceStateKey FaceTranslator::outlineKeyOf(const FaceStateKey& key) const
{
  FaceStateKey outline;
  outline.file = key.file;
  outline.kind = DrawKind::outline;
  outline.transparent = key.transparent;
  return outline;
}

void FaceTranslator::describeOutline(const FaceRecord& face, PolygonShape& shape)
{
  const auto& fields = FaceRecord::fields;
  const auto flags = face.get(fields.flags);
  auto color = Colors::white();
  if (!(flags & FaceRecord::noAlternateColorFlag)) {
    color = flags & FaceRecord::packedColorFlag ? Colors::from(face.get(fields.alternatePackedColor))
                                                : colorsOf(face.file()).indexed(face.get(fields.alternateColorIndex));
  }
  for (auto& corner : shape.colors)
    corner = osg::Vec4ub(color.r(), color.g(), color.b(), corner.a());
  shape.normals.clear();
  for (auto& layer : shape.uvs)
    layer.clear();
}

} // namespace nalt
