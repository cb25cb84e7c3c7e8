#include "scene/view/picking/PickMath.h"

#include <algorithm>

namespace nalt {

bool crosses(const osg::Polytope::PlaneList& planes, const osg::Vec3d& from, const osg::Vec3d& to)
{
  double first = 0.0;
  double last = 1.0;
  for (const auto& plane : planes) {
    const double start = plane.distance(from);
    const double end = plane.distance(to);
    if (!(start >= 0.0) && !(end >= 0.0)) return false;
    if (start < 0.0)
      first = std::max(first, start / (start - end));
    else if (end < 0.0)
      last = std::min(last, start / (start - end));
  }
  return first <= last;
}

namespace {

/// Keeps a line from slipping through between two triangles that share an edge.
constexpr double seam = 1e-10;

/// False for what is no number.
bool isShare(double value, double slack = 0.0)
{
  return value >= -slack && value <= 1.0 + slack;
}

} // namespace

/// After Moeller and Trumbore, "Fast, minimum storage ray/triangle intersection", 1997. Both sides count.
std::optional<double> meetingPoint(const osg::Vec3d& from, const osg::Vec3d& to, const osg::Vec3d& a,
                                   const osg::Vec3d& b, const osg::Vec3d& c)
{
  const auto way = to - from;
  const auto ab = b - a;
  const auto ac = c - a;
  const auto p = way ^ ac;
  const double determinant = ab * p;
  if (determinant == 0.0) return std::nullopt;
  const auto t = from - a;
  const double u = (t * p) / determinant;
  if (!isShare(u, seam)) return std::nullopt;
  const auto q = t ^ ab;
  const double v = (way * q) / determinant;
  if (!isShare(v, seam) || !isShare(u + v, seam)) return std::nullopt;
  const double place = (ac * q) / determinant;
  if (!isShare(place)) return std::nullopt;
  return place;
}

double safeRadius(const osg::BoundingSphere& bound)
{
  constexpr double digits = 1e-6;
  return bound.radius() * (1.0 + digits) + osg::Vec3d(bound.center()).length() * digits;
}

bool meets(const osg::BoundingSphere& bound, const osg::Vec3d& from, const osg::Vec3d& to)
{
  if (!bound.valid()) return false;
  const osg::Vec3d centre(bound.center());
  const auto way = to - from;
  const double square = way.length2();
  const double place = square > 0.0 ? std::clamp((centre - from) * way / square, 0.0, 1.0) : 0.0;
  const double radius = safeRadius(bound);
  return (from + way * place - centre).length2() <= radius * radius;
}

bool meets(const osg::BoundingBox& bound, const osg::Vec3d& from, const osg::Vec3d& to)
{
  if (!bound.valid()) return false;
  double first = 0.0;
  double last = 1.0;
  for (int axis = 0; axis < 3; ++axis) {
    const double start = from[axis];
    const double step = to[axis] - start;
    double low = bound._min[axis];
    double high = bound._max[axis];
    if (step == 0.0) {
      if (start < low || start > high) return false;
      continue;
    }
    low = (low - start) / step;
    high = (high - start) / step;
    if (low > high) std::swap(low, high);
    first = std::max(first, low);
    last = std::min(last, high);
  }
  return first <= last + 1e-12;
}

} // namespace nalt
