#pragma once

#include "fltapi/RecordVisitor.h"

#include <osg/BoundingBox>
#include <osg/Matrixd>

namespace nalt {

/// The box of all vertices that it meets, in the coordinates of the record that it starts with (behind that record's
/// own matrix). Matrices and the current masks of switches count; all levels of detail do, and what is hidden in all
/// viewports doesn't. Each reference to an instance counts where it stands.
class FltBoundingSphereVisitor : public fltapi::RecordVisitor {
public:
  FltBoundingSphereVisitor() { revisit = true; }

  using fltapi::RecordVisitor::apply;
  void apply(fltapi::PrimNodeRecord& record) override;
  void apply(fltapi::SwitchRecord& record) override;
  void apply(fltapi::MeshRecord& record) override;
  void apply(fltapi::VertexListRecord& record) override;
  void apply(fltapi::InstanceReferenceRecord& record) override;

  /// Not valid when there were no vertices.
  const osg::BoundingBoxd& box() const { return box_; }
  osg::Vec3d center() const { return box_.valid() ? box_.center() : osg::Vec3d(); }
  /// Of the sphere around the box; 0 without vertices.
  double radius() const { return box_.valid() ? box_.radius() : 0; }

private:
  /// Goes on below the record in the record's coordinates.
  template <class Walk>
  void within(fltapi::PrimNodeRecord& record, const Walk& walk);

  osg::Matrixd matrix_;
  bool started_ = false;
  osg::BoundingBoxd box_;
};

} // namespace nalt
