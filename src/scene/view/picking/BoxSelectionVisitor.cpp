#include "scene/view/picking/BoxSelectionVisitor.h"

#include "scene/view/picking/PickMath.h"

#include <algorithm>

namespace nalt {

namespace {

using Planes = osg::Polytope::PlaneList;

/// One bit for each plane that has the point outside. A point without a place is outside of all.
template <class Point>
unsigned outsideOf(const Planes& planes, const Point& point)
{
  unsigned bits = 0;
  unsigned bit = 1;
  for (const auto& plane : planes) {
    if (!(plane.distance(point) >= 0.0)) bits |= bit;
    bit <<= 1U;
  }
  return bits;
}

bool isInside(const Planes& planes, const osg::BoundingBox& box)
{
  for (unsigned i = 0; i < 8; ++i)
    if (outsideOf(planes, box.corner(i)) != 0) return false;
  return true;
}

} // namespace

BoxSelectionVisitor::BoxSelectionVisitor(const PickFrustum& frustum, std::uint32_t bits, SelectionMode mode,
                                         Found found)
    : SceneWalk(bits), frustum_(frustum), local_(frustum), mode_(mode), found_(std::move(found))
{}

bool BoxSelectionVisitor::matrixChanged()
{
  const auto local = matrix().isIdentity() ? std::optional(frustum_) : frustum_.in(matrix());
  if (local) local_ = *local;
  return local.has_value();
}

bool BoxSelectionVisitor::mayTouch(const osg::BoundingSphere& bound) const
{
  if (!bound.valid()) return false;
  const osg::Vec3d centre(bound.center());
  const double radius = safeRadius(bound);
  return std::ranges::none_of(local_.polytope.getPlaneList(),
                              [&](const osg::Plane& plane) { return plane.distance(centre) < -radius; });
}

bool BoxSelectionVisitor::mayTouch(const osg::BoundingBox& bound) const
{
  if (!bound.valid()) return false;
  unsigned outside = ~0U;
  for (unsigned i = 0; i < 8; ++i)
    outside &= outsideOf(local_.polytope.getPlaneList(), bound.corner(i));
  return outside == 0;
}

bool BoxSelectionVisitor::report(const Hit& hit)
{
  if (found_(hit)) return true;
  stop();
  return false;
}

void BoxSelectionVisitor::visit(const osg::Drawable& drawable)
{
  const bool allInside = isInside(local_.polytope.getPlaneList(), drawable.getBoundingBox());
  switch (mode_) {
  case SelectionMode::vertex:
    forEachPrimitive(drawable, getTraversalMask(),
                     [&](const PickPrimitive& primitive) { return visitCorners(primitive, allInside); });
    break;
  case SelectionMode::edge:
    forEachPrimitive(drawable, getTraversalMask(),
                     [&](const PickPrimitive& primitive) { return visitEdges(primitive, allInside); });
    break;
  case SelectionMode::polygon:
  case SelectionMode::lightPoint:
    forEachPrimitive(drawable, getTraversalMask(), [&](const PickPrimitive& primitive) {
      if (selectionModeOf(primitive.record->opcode()) != mode_ || !searches(primitive)) return true;
      return !(allInside || touches(primitive)) || report({primitive.record});
    });
    break;
  default:
    visitOwned(drawable, allInside);
  }
}

/// All polygons of a drawable have the same nodes above them, so one of them is enough.
void BoxSelectionVisitor::visitOwned(const osg::Drawable& drawable, bool allInside)
{
  auto* owner = ownerInPath(mode_);
  if (!owner || owners_.contains(owner)) return;
  const bool missed = forEachPrimitive(drawable, getTraversalMask(), [&](const PickPrimitive& primitive) {
    return !searches(primitive) || !(allInside || touches(primitive));
  });
  if (missed) return;
  owners_.insert(owner);
  report({owner});
}

/// Light points are points and all else is lines and surfaces, so neither is in the way of the other.
bool BoxSelectionVisitor::searches(const PickPrimitive& primitive) const
{
  const bool wantsPoints = mode_ == SelectionMode::lightPoint || mode_ == SelectionMode::lightPointSystem;
  return primitive.isPoints() == wantsPoints;
}

bool BoxSelectionVisitor::visitCorners(const PickPrimitive& primitive, bool allInside)
{
  if (!primitive.showsVertexList()) return true;
  const auto& planes = local_.polytope.getPlaneList();
  for (std::size_t i = 0; i < primitive.corners.size(); ++i) {
    if (!allInside && outsideOf(planes, primitive.corners[i]) != 0) continue;
    if (!report({primitive.record, i, i, primitive.corners[i], primitive.corners[i]})) return false;
  }
  return true;
}

bool BoxSelectionVisitor::visitEdges(const PickPrimitive& primitive, bool allInside)
{
  if (!primitive.showsVertexList()) return true;
  const auto& planes = local_.polytope.getPlaneList();
  return primitive.forEachEdge([&](std::size_t i, std::size_t j) {
    const auto& from = primitive.corners[i];
    const auto& to = primitive.corners[j];
    if (!allInside && !crosses(planes, from, to)) return true;
    return report({primitive.record, i, j, from, to});
  });
}

bool BoxSelectionVisitor::touches(const PickPrimitive& primitive) const
{
  const auto& planes = local_.polytope.getPlaneList();
  unsigned outside = ~0U;
  for (const auto& corner : primitive.corners) {
    const auto bits = outsideOf(planes, corner);
    if (bits == 0) return true;
    outside &= bits;
  }
  if (outside != 0 || primitive.isPoints()) return false; // all beyond one plane
  const bool noEdge = primitive.forEachEdge(
      [&](std::size_t i, std::size_t j) { return !crosses(planes, primitive.corners[i], primitive.corners[j]); });
  if (!noEdge) return true;
  // No edge comes near: the box may still look right through the middle.
  return !primitive.forEachTriangle([&](std::size_t i, std::size_t j, std::size_t k) {
    const osg::Vec3d a(primitive.corners[i]);
    const osg::Vec3d b(primitive.corners[j]);
    const osg::Vec3d c(primitive.corners[k]);
    return std::ranges::none_of(local_.edges, [&](const PickFrustum::Edge& edge) {
      return meetingPoint(edge.first, edge.second, a, b, c).has_value();
    });
  });
}

} // namespace nalt
