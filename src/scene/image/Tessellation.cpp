#include "scene/image/Tessellation.h"

#include "scene/image/EarClipping.h"

#include <osg/GLU>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <utility>

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

/// The plane's two coordinates in which a polygon with that normal is largest.
std::pair<int, int> planeOf(const osg::Vec3d& normal)
{
  const double x = std::abs(normal.x());
  const double y = std::abs(normal.y());
  const double z = std::abs(normal.z());
  if (z >= x && z >= y) return {0, 1};
  return y >= x ? std::pair(2, 0) : std::pair(1, 2);
}

/// The polygon in that plane, counterclockwise.
std::vector<osg::Vec2d> flattened(std::span<const osg::Vec3> corners, const osg::Vec3d& normal)
{
  auto [u, v] = planeOf(normal);
  if (normal[3 - u - v] < 0) std::swap(u, v);
  std::vector<osg::Vec2d> places;
  places.reserve(corners.size());
  for (const auto& corner : corners)
    places.emplace_back(corner[u], corner[v]);
  return places;
}

constexpr std::size_t fewCorners = 2000;

/// Whether the tessellator would take seconds for a polygon, or minutes. It looks for each corner at the edges that are
/// as far along as it is, and for each turn back at all the rest.
bool sweepsSlowly(std::span<const osg::Vec3> corners, const osg::Vec3d& normal)
{
  constexpr double mostSteps = 5e7;
  constexpr double mostStepsForTurns = 5e8; // each is quick
  const auto count = corners.size();
  const auto edges = static_cast<double>(count);
  const auto u = planeOf(normal).first;
  double lowest = corners[0][u];
  double highest = lowest;
  double way = 0;
  int turns = 0;
  bool wasForward = corners[0][u] > corners[count - 1][u];
  for (std::size_t i = 0; i < count; ++i) {
    const double at = corners[i][u];
    lowest = std::min(lowest, at);
    highest = std::max(highest, at);
    const double step = corners[(i + 1) % count][u] - at;
    way += std::abs(step);
    const bool isForward = step > 0;
    turns += isForward != std::exchange(wasForward, isForward);
  }
  const bool isDense = highest > lowest && edges * way / (highest - lowest) > mostSteps;
  return isDense || edges * turns > mostStepsForTurns;
}

/// Whether the edges cross so often that looking at each crossing takes minutes.
bool isTangle(std::span<const osg::Vec3> corners, const osg::Vec3d& normal)
{
  constexpr int pairs = 20'000;
  constexpr double mostCrossings = 1e6;
  const auto count = corners.size();
  const auto edges = static_cast<double>(count);
  const auto [u, v] = planeOf(normal);
  const auto side = [&, u = u, v = v](const osg::Vec3& a, const osg::Vec3& b, const osg::Vec3& c) {
    const double abU = static_cast<double>(b[u]) - a[u];
    const double abV = static_cast<double>(b[v]) - a[v];
    return abU * (static_cast<double>(c[v]) - a[v]) - abV * (static_cast<double>(c[u]) - a[u]) > 0;
  };
  // Pairs of edges by chance, the same ones each time.
  std::minstd_rand random; // NOLINT(cert-msc32-c,cert-msc51-cpp)
  int crossings = 0;
  for (int i = 0; i < pairs; ++i) {
    const auto one = random() % count;
    const auto other = random() % count;
    const auto& a = corners[one];
    const auto& b = corners[(one + 1) % count];
    const auto& c = corners[other];
    const auto& d = corners[(other + 1) % count];
    crossings += side(a, b, c) != side(a, b, d) && side(c, d, a) != side(c, d, b);
  }
  return edges * edges / 2 * crossings / pairs > mostCrossings;
}

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
  if (corners.size() > fewCorners && isTangle(corners, areaNormal)) return {};
  if (corners.size() > fewCorners && sweepsSlowly(corners, areaNormal)) return clipEars(flattened(corners, areaNormal));
  return Tessellator(corners, areaNormal).take();
}

} // namespace nalt
