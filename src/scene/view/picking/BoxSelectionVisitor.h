#pragma once

#include "scene/view/picking/PickFrustum.h"
#include "scene/view/picking/PickPrimitive.h"
#include "scene/view/picking/SceneWalk.h"

#include <functional>
#include <unordered_set>

namespace nalt {

/// Finds what one viewport shows in a part of space: with hidden and back-facing polygons, and at any depth.
class BoxSelectionVisitor : public SceneWalk {
public:
  struct Hit {
    fltapi::PrimNodeRecord*
        record;                 ///< the node that was searched for; its polygon or light point for corners and edges
    std::size_t corner = 0;     ///< of the vertex list, of the corner or of the start of the edge
    std::size_t nextCorner = 0; ///< of the end of the edge
    osg::Vec3 position{};       ///< of `corner`
    osg::Vec3 nextPosition{};   ///< of `nextCorner`
  };
  /// Is called for each hit, several times for what is shown several times. False ends the search.
  using Found = std::function<bool(const Hit& hit)>;

  /// @param bits of the node masks that the viewport draws
  BoxSelectionVisitor(const PickFrustum& frustum, std::uint32_t bits, SelectionMode mode, Found found);

private:
  bool matrixChanged() override;
  bool mayTouch(const osg::BoundingSphere& bound) const override;
  bool mayTouch(const osg::BoundingBox& bound) const override;
  void visit(const osg::Drawable& drawable) override;

  bool visitCorners(const PickPrimitive& primitive, bool allInside);
  bool visitEdges(const PickPrimitive& primitive, bool allInside);
  void visitOwned(const osg::Drawable& drawable, bool allInside);
  bool searches(const PickPrimitive& primitive) const;
  bool touches(const PickPrimitive& primitive) const;
  bool report(const Hit& hit);

  const PickFrustum frustum_;
  PickFrustum local_;
  SelectionMode mode_;
  Found found_;
  std::unordered_set<const fltapi::PrimNodeRecord*> owners_; ///< that were found already
};

} // namespace nalt
