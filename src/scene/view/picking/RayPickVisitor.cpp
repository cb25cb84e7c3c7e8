#include "scene/view/picking/RayPickVisitor.h"

#include "scene/view/picking/PickMath.h"

#include <cmath>

namespace nalt {

namespace {

/// Polygons in one plane with different corners are met at almost the same distance: corners have seven digits.
constexpr double cornerDigits = 2e-7;

int subfaceDepthOf(const fltapi::PrimNodeRecord& record)
{
  int depth = 0;
  for (const auto* above = record.parent(); above && above->holdsSubfaces(); above = above->parent())
    ++depth;
  return depth;
}

/// Of the whole polygon, so that each of its triangles faces the same way.
osg::Vec3d normalOf(const PickPrimitive& primitive)
{
  osg::Vec3d normal;
  primitive.forEachTriangle([&](std::size_t i, std::size_t j, std::size_t k) {
    const osg::Vec3d a(primitive.corners[i]);
    normal += (osg::Vec3d(primitive.corners[j]) - a) ^ (osg::Vec3d(primitive.corners[k]) - a);
    return true;
  });
  return normal;
}

} // namespace

RayPickVisitor::RayPickVisitor(const MouseRay& ray, std::uint32_t bits, SelectionMode family)
    : SceneWalk(bits),
      nearPoint_(ray.nearPoint),
      farPoint_(ray.farPoint),
      from_(ray.nearPoint),
      to_(ray.farPoint),
      family_(family)
{}

bool RayPickVisitor::matrixChanged()
{
  osg::Matrixd inverse;
  if (!inverse.invert(matrix())) return false;
  from_ = nearPoint_ * inverse;
  to_ = farPoint_ * inverse;
  const auto& m = matrix();
  const osg::Vec3d x(m(0, 0), m(0, 1), m(0, 2));
  const osg::Vec3d y(m(1, 0), m(1, 1), m(1, 2));
  const osg::Vec3d z(m(2, 0), m(2, 1), m(2, 2));
  mirrored_ = (x ^ y) * z < 0.0;
  return true;
}

bool RayPickVisitor::mayTouch(const osg::BoundingSphere& bound) const
{
  return meets(bound, from_, to_);
}

bool RayPickVisitor::mayTouch(const osg::BoundingBox& bound) const
{
  return meets(bound, from_, to_);
}

bool RayPickVisitor::isBetter(double place, const Rank& rank) const
{
  if (!nearest_) return true;
  const auto way = farPoint_ - nearPoint_;
  const auto sight = way * nearest_->place;
  const double same = cornerDigits * (sight.length() + (nearPoint_ + sight).length());
  if (std::abs(place - nearest_->place) * way.length() > same) return place < nearest_->place;
  return rank > rank_;
}

fltapi::PrimNodeRecord* RayPickVisitor::ownerOf(fltapi::PrimNodeRecord& record) const
{
  return selectionModeOf(record.opcode()) == family_ ? &record : ownerInPath(family_);
}

void RayPickVisitor::visit(const osg::Drawable& drawable)
{
  forEachPrimitive(drawable, getTraversalMask(), [&](const PickPrimitive& primitive) {
    std::optional<double> place;
    primitive.forEachTriangle([&](std::size_t i, std::size_t j, std::size_t k) {
      const auto met = meetingPoint(from_, to_, osg::Vec3d(primitive.corners[i]), osg::Vec3d(primitive.corners[j]),
                                    osg::Vec3d(primitive.corners[k]));
      if (met && (!place || *met < *place)) place = met;
      return true;
    });
    if (!place) return true;
    const double facing = normalOf(primitive) * (from_ - to_);
    const Rank rank{mirrored_ ? facing <= 0.0 : facing >= 0.0, subfaceDepthOf(*primitive.record)};
    if (!isBetter(*place, rank)) return true;
    nearest_ = Hit{primitive.record, ownerOf(*primitive.record), *place};
    rank_ = rank;
    return true;
  });
}

} // namespace nalt
