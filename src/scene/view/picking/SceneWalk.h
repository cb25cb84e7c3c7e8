#pragma once

#include "core/selection/SelectionMode.h"

#include <osg/Drawable>
#include <osg/NodeVisitor>
#include <osg/Transform>

#include <cstdint>

namespace fltapi {
class PrimNodeRecord;
}

namespace nalt {

/// Leads a search through what one viewport shows of a scene: hidden nodes, and children that switches and levels of
/// detail have off, are left out, and so is what lies below bounds that the search can't touch.
class SceneWalk : public osg::NodeVisitor {
public:
  void apply(osg::Node& node) override;
  void apply(osg::Transform& transform) override;
  void apply(osg::Drawable& drawable) override;

  /// From the coordinates that are being walked to those of the scene.
  const osg::Matrixd& matrix() const { return matrix_; }
  /// The nearest record of the family above what is being visited, on the way that led there. Null when there is none.
  fltapi::PrimNodeRecord* ownerInPath(SelectionMode family) const;

protected:
  /// `bits` of the node masks that the viewport draws.
  explicit SceneWalk(std::uint32_t bits);

  /// `matrix()` is another one. False leaves out what lies below it.
  virtual bool matrixChanged() = 0;
  virtual bool mayTouch(const osg::BoundingSphere& bound) const = 0;
  virtual bool mayTouch(const osg::BoundingBox& bound) const = 0;
  virtual void visit(const osg::Drawable& drawable) = 0;
  /// Ends the walk.
  void stop() { stopped_ = true; }

private:
  osg::Matrixd matrix_;
  bool stopped_ = false;
};

} // namespace nalt
