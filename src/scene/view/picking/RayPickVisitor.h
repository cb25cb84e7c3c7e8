#pragma once

#include "scene/view/picking/PickPrimitive.h"
#include "scene/view/picking/SceneWalk.h"
#include "scene/view/picking/WindowProjection.h"

#include <optional>

namespace nalt {

/// Finds the nearest surface that one viewport shows along a line of sight. Lines and points have no surface.
class RayPickVisitor : public SceneWalk {
public:
  struct Hit {
    fltapi::PrimNodeRecord* record; ///< the face or mesh
    fltapi::PrimNodeRecord* owner;  ///< of the family that was asked for; null when there is none above the surface
    double place;                   ///< on the line of sight, from 0 to 1
  };

  /// @param family of the records that the caller wants to know of
  RayPickVisitor(const MouseRay& ray, std::uint32_t bits, SelectionMode family);

  /// Of several at the same distance the first that faces the viewer; a subface comes before what it lies on.
  const std::optional<Hit>& nearest() const { return nearest_; }

private:
  bool matrixChanged() override;
  bool mayTouch(const osg::BoundingSphere& bound) const override;
  bool mayTouch(const osg::BoundingBox& bound) const override;
  void visit(const osg::Drawable& drawable) override;

  struct Rank {
    bool facesViewer;
    int subfaceDepth;
    auto operator<=>(const Rank&) const = default;
  };
  bool isBetter(double place, const Rank& rank) const;
  fltapi::PrimNodeRecord* ownerOf(fltapi::PrimNodeRecord& record) const;

  const osg::Vec3d nearPoint_;
  const osg::Vec3d farPoint_;
  osg::Vec3d from_; ///< the line in the coordinates that are being walked
  osg::Vec3d to_;
  bool mirrored_ = false;
  SelectionMode family_;
  std::optional<Hit> nearest_;
  Rank rank_{};
};

} // namespace nalt
