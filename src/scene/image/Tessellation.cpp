#include "scene/image/Tessellation.h"

#include <osg/GLU>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>

namespace nalt {

namespace {

/// A corner counts as turned inwards only when it is so by more than this share of the lengths around it; what is less
/// comes from rounding.
constexpr double inwardTolerance = 1e-5;

class Tessellator {
public:
  Tessellator(std::span<const osg::Vec3> corners, const osg::Vec3d& normal)
      : tess_(osg::gluNewTess(), osg::gluDeleteTess)
  {
    auto* tess = tess_.get();
    setCallback(GLU_TESS_VERTEX_DATA, reinterpret_cast<Function>(&Tessellator::takeVertex));
    setCallback(GLU_TESS_COMBINE_DATA, reinterpret_cast<Function>(&Tessellator::combine));
    // Asking for edge flags makes every primitive a list of triangles.
    setCallback(GLU_TESS_EDGE_FLAG, reinterpret_cast<Function>(&Tessellator::ignoreEdgeFlag));
    osg::gluTessProperty(tess, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    osg::gluTessNormal(tess, normal.x(), normal.y(), normal.z());

    std::vector<std::array<double, 3>> positions;
    positions.reserve(corners.size());
    osg::gluTessBeginPolygon(tess, this);
    osg::gluTessBeginContour(tess);
    for (const auto& corner : corners) {
      auto& position = positions.emplace_back(std::array<double, 3>{corner.x(), corner.y(), corner.z()});
      osg::gluTessVertex(tess, position.data(), handle(positions.size() - 1));
    }
    osg::gluTessEndContour(tess);
    osg::gluTessEndPolygon(tess);
    indices_.resize(indices_.size() / 3 * 3);
  }
  std::vector<GLuint> take() { return std::move(indices_); }

private:
  using Function = void (*)();
  // The library hands data through as pointers; 0 would count as none.
  static void* handle(std::size_t corner) { return reinterpret_cast<void*>(corner + 1); }
  static GLuint cornerOf(const void* handle) { return static_cast<GLuint>(reinterpret_cast<std::size_t>(handle) - 1); }

  void setCallback(GLenum which, Function function)
  {
    osg::gluTessCallback(tess_.get(), which, reinterpret_cast<osg::_GLUfuncptr>(function));
  }
  static void takeVertex(void* vertex, void* self)
  {
    static_cast<Tessellator*>(self)->indices_.push_back(cornerOf(vertex));
  }
  static void ignoreEdgeFlag(GLboolean) {}
  /// Where corners coincide or edges cross: the corner that counts most there.
  static void combine(const GLdouble*, void* vertices[4], const GLfloat weights[4], void** result, void*)
  {
    int heaviest = 0;
    for (int i = 1; i < 4; ++i) {
      if (vertices[i] && weights[i] > weights[heaviest]) heaviest = i;
    }
    *result = vertices[heaviest];
  }

  std::unique_ptr<osg::GLUtesselator, void (*)(osg::GLUtesselator*)> tess_;
  std::vector<GLuint> indices_;
};

} // namespace

osg::Vec3d areaNormal(std::span<const osg::Vec3> corners)
{
  osg::Vec3d sum;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    const osg::Vec3d origin = corners[0];
    sum += (osg::Vec3d(corners[i - 1]) - origin) ^ (osg::Vec3d(corners[i]) - origin);
  }
  return sum;
}

bool isConvex(std::span<const osg::Vec3> corners, const osg::Vec3d& areaNormal)
{
  const auto count = corners.size();
  const auto area = areaNormal.length();
  if (count < 4 || area == 0) return true;
  const auto normal = areaNormal / area;
  double turned = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const osg::Vec3d corner = corners[i];
    const auto in = corner - osg::Vec3d(corners[(i + count - 1) % count]);
    const auto out = osg::Vec3d(corners[(i + 1) % count]) - corner;
    const auto side = (in ^ out) * normal;
    const auto lengths = in.length() * out.length();
    if (side < -inwardTolerance * lengths) return false;
    // A star turns the same way at every corner, but more than once around.
    if (lengths > 0) turned += std::acos(std::clamp(in * out / lengths, -1.0, 1.0));
  }
  constexpr double onceAround = 2 * std::numbers::pi;
  return turned < 1.5 * onceAround;
}

std::vector<GLuint> tessellate(std::span<const osg::Vec3> corners, const osg::Vec3d& areaNormal)
{
  return Tessellator(corners, areaNormal).take();
}

} // namespace nalt
