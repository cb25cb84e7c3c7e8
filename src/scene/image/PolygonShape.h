#pragma once

#include <array>
#include <osg/GL>
#include <osg/Vec2>
#include <osg/Vec3>
#include <osg/Vec4ub>
#include <vector>

namespace nalt {

/// Texture layers of a polygon: the base layer and seven more, one texture unit each.
inline constexpr int textureLayers = 8;

/// The corners of one polygon as they go into a geometry. Kept and refilled by whoever makes many.
struct PolygonShape {
  GLenum mode = GL_POLYGON;
  std::vector<osg::Vec3> positions;
  std::vector<osg::Vec3> normals; ///< empty when the geometry isn't lit
  std::vector<osg::Vec4ub> colors;
  std::array<std::vector<osg::Vec2>, textureLayers> uvs; ///< empty for layers that the geometry doesn't have
  std::vector<GLuint> triangles;                         ///< see NaltPolygon::triangles

  void clear()
  {
    positions.clear();
    normals.clear();
    colors.clear();
    for (auto& layer : uvs)
      layer.clear();
    triangles.clear();
  }
  int cornerCount() const { return static_cast<int>(positions.size()); }
};

} // namespace nalt
