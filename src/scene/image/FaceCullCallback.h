#pragma once

#include "scene/image/ViewportTable.h"

#include <osg/Drawable>
#include <osg/ref_ptr>

namespace nalt {

/// On each geometry of polygons: leaves out those that show nothing in the viewport that culls, and notes for the draw
/// stage which viewport a context belongs to.
class FaceCullCallback : public osg::DrawableCullCallback {
public:
  explicit FaceCullCallback(ViewportTable& viewports) : viewports_(&viewports) {}
  bool cull(osg::NodeVisitor* visitor, osg::Drawable* drawable, osg::RenderInfo* info) const override;

protected:
  ~FaceCullCallback() override = default;

private:
  osg::ref_ptr<ViewportTable> viewports_;
};

} // namespace nalt
