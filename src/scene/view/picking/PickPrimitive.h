#pragma once

#include "scene/image/FaceGeometry.h"
#include "scene/image/Sync.h"

#include <osg/Drawable>
#include <osg/Geometry>
#include <osg/Vec3>

#include <cstdint>
#include <span>
#include <vector>

namespace nalt {

/// One polygon, line or point as the scene draws it. Of value only while it is being looked at.
struct PickPrimitive {
  fltapi::PrimNodeRecord* record; ///< the face, light point or mesh
  GLenum mode;
  std::span<const osg::Vec3> corners;             ///< in the coordinates of the drawable, as they are drawn
  const std::vector<GLuint>* triangles = nullptr; ///< corners of those that fill it; null when `mode` says it

  /// Whether its corners are those of the record's vertex list, in its order.
  bool showsVertexList() const { return record->opcode() != fltapi::opcodes::mesh; }
  bool isPoints() const { return mode == GL_POINTS; }

  /// Calls `work(i, j)` with the corners of each edge until it gives false.
  template <class Work>
  bool forEachEdge(const Work& work) const;
  /// Calls `work(i, j, k)` with the corners of each triangle that fills it until it gives false.
  template <class Work>
  bool forEachTriangle(const Work& work) const;
};

/// Calls `work(primitive)` for everything in `drawable` that stands for a record and is shown in the viewports of
/// `bits`, until it gives false.
template <class Work>
bool forEachPrimitive(const osg::Drawable& drawable, std::uint32_t bits, const Work& work);

// --------------------------------------------------------------------------------------------------------------------

template <class Work>
bool PickPrimitive::forEachEdge(const Work& work) const
{
  const std::size_t count = corners.size();
  switch (mode) {
  case GL_POINTS:
    return true;
  case GL_LINES:
    for (std::size_t i = 1; i < count; i += 2)
      if (!work(i - 1, i)) return false;
    return true;
  case GL_TRIANGLE_STRIP:
  case GL_TRIANGLE_FAN:
  case GL_QUAD_STRIP:
    return forEachTriangle(
        [&](std::size_t i, std::size_t j, std::size_t k) { return work(i, j) && work(j, k) && work(k, i); });
  default:
    for (std::size_t i = 1; i < count; ++i)
      if (!work(i - 1, i)) return false;
    return mode == GL_LINE_STRIP || count < 2 || work(count - 1, std::size_t(0));
  }
}

template <class Work>
bool PickPrimitive::forEachTriangle(const Work& work) const
{
  const std::size_t count = corners.size();
  if (triangles) {
    for (std::size_t i = 2; i < triangles->size(); i += 3) {
      const std::size_t a = (*triangles)[i - 2];
      const std::size_t b = (*triangles)[i - 1];
      const std::size_t c = (*triangles)[i];
      if (a < count && b < count && c < count && !work(a, b, c)) return false;
    }
    return true;
  }
  switch (mode) {
  case GL_POINTS:
  case GL_LINES:
  case GL_LINE_STRIP:
  case GL_LINE_LOOP:
    return true;
  case GL_TRIANGLES:
    for (std::size_t i = 2; i < count; i += 3)
      if (!work(i - 2, i - 1, i)) return false;
    return true;
  case GL_TRIANGLE_STRIP:
  case GL_QUAD_STRIP:
    for (std::size_t i = 2; i < count; ++i)
      if (!(i % 2 == 0 ? work(i - 2, i - 1, i) : work(i - 1, i - 2, i))) return false;
    return true;
  default:
    for (std::size_t i = 2; i < count; ++i)
      if (!work(std::size_t(0), i - 1, i)) return false;
    return true;
  }
}

namespace picking {

/// Of a drawable that shows one record alone, such as that of a mesh.
template <class Work>
bool forEachElementSet(const osg::Geometry& geometry, fltapi::PrimNodeRecord& record, const Work& work)
{
  const auto* positions = dynamic_cast<const osg::Vec3Array*>(geometry.getVertexArray());
  if (!positions) return true;
  std::vector<osg::Vec3> corners;
  for (unsigned i = 0; i < geometry.getNumPrimitiveSets(); ++i) {
    const auto& set = *geometry.getPrimitiveSet(i);
    corners.clear();
    for (unsigned corner = 0; corner < set.getNumIndices(); ++corner) {
      if (set.index(corner) < positions->size()) corners.push_back((*positions)[set.index(corner)]);
    }
    if (!work(PickPrimitive{&record, set.getMode(), corners})) return false;
  }
  return true;
}

} // namespace picking

template <class Work>
bool forEachPrimitive(const osg::Drawable& drawable, std::uint32_t bits, const Work& work)
{
  const auto* faces = dynamic_cast<const FaceGeometry*>(&drawable);
  if (!faces) {
    const auto* geometry = drawable.asGeometry();
    auto* record = Sync::recordOf(drawable);
    return !geometry || !record || picking::forEachElementSet(*geometry, *record, work);
  }
  const std::span<const osg::Vec3> all(faces->positionsIn(bits).asVector());
  for (unsigned i = 0; const auto* polygon = faces->polygonAt(i); ++i) {
    if (!polygon->record() || !polygon->isVisibleIn(bits)) continue;
    const auto corners =
        all.subspan(static_cast<std::size_t>(polygon->getFirst()), static_cast<std::size_t>(polygon->getCount()));
    if (!work(PickPrimitive{polygon->record(), polygon->getMode(), corners, polygon->triangles()})) return false;
  }
  return true;
}

} // namespace nalt
