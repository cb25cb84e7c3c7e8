#pragma once

#include "scene/image/ShrinkVisitor.h"
#include "scene/image/ViewportTable.h"

#include <osg/Geometry>
#include <osg/ref_ptr>

namespace nalt {

/// The geometry of one mesh. Its polygons share their corners, so that shrunk they are drawn from arrays of their own.
class MeshGeometry : public osg::Geometry, public Shrinkable {
public:
  explicit MeshGeometry(const ViewportTable& viewports);

  const ViewportTable& viewports() const { return *viewports_; }
  void prepareShrunk(bool shrunk) override;
  /// Every polygon by itself, moved towards its centre.
  const osg::Geometry& shrunk() const;

  void drawImplementation(osg::RenderInfo& renderInfo) const override;
  void resizeGLObjectBuffers(unsigned maxSize) override;
  void releaseGLObjects(osg::State* state) const override;

protected:
  ~MeshGeometry() override = default;

private:
  osg::ref_ptr<const ViewportTable> viewports_;
  mutable osg::ref_ptr<osg::Geometry> shrunk_; ///< made when it is first needed
};

} // namespace nalt
