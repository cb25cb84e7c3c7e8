#include "scene/view/picking/PickFrustum.h"

#include <algorithm>

namespace nalt {

namespace {

using Corners = std::array<osg::Vec3d, 8>; ///< the near rectangle counter-clockwise, then the far one

/// Six planes through three corners each. Their normals look inward, whichever way round the corners go: seen along the
/// line of sight the order of the near rectangle is the same in both projections, but a mirrored camera turns it.
osg::Polytope polytopeOf(const Corners& corners)
{
  constexpr int sides[6][3] = {{0, 4, 7}, {1, 2, 6}, {0, 1, 5}, {3, 7, 6}, {0, 3, 2}, {4, 5, 6}};
  osg::Vec3d middle;
  for (const auto& corner : corners)
    middle += corner / 8.0;
  osg::Polytope polytope;
  for (const auto& side : sides) {
    osg::Plane plane(corners[side[0]], corners[side[1]], corners[side[2]]);
    if (plane.distance(middle) < 0.0) plane.flip();
    polytope.add(plane);
  }
  return polytope;
}

std::array<PickFrustum::Edge, 12> edgesOf(const Corners& corners)
{
  std::array<PickFrustum::Edge, 12> edges;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto next = (i + 1) % 4;
    edges[i] = {corners[i], corners[next]};
    edges[4 + i] = {corners[4 + i], corners[4 + next]};
    edges[8 + i] = {corners[i], corners[4 + i]};
  }
  return edges;
}

} // namespace

WindowRect WindowRect::grownBy(double margin) const
{
  const auto [left, right] = std::minmax({first.x(), second.x()});
  const auto [bottom, top] = std::minmax({first.y(), second.y()});
  return {{left - margin, bottom - margin}, {right + margin, top + margin}};
}

std::optional<PickFrustum> PickFrustum::through(const WindowRect& rect, const WindowProjection& projection)
{
  const auto [from, to] = rect.grownBy(0.0);
  const std::array<osg::Vec2d, 4> places = {from, {to.x(), from.y()}, to, {from.x(), to.y()}};
  Corners corners;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto ray = projection.rayAt(places[i]);
    if (!ray) return std::nullopt;
    corners[i] = ray->nearPoint;
    corners[4 + i] = ray->farPoint;
  }
  return PickFrustum{polytopeOf(corners), edgesOf(corners)};
}

std::optional<PickFrustum> PickFrustum::in(const osg::Matrixd& matrix) const
{
  osg::Matrixd inverse;
  if (!inverse.invert(matrix)) return std::nullopt;
  PickFrustum local = *this;
  local.polytope.transformProvidingInverse(matrix);
  for (auto& [from, to] : local.edges) {
    from = from * inverse;
    to = to * inverse;
  }
  return local;
}

} // namespace nalt
