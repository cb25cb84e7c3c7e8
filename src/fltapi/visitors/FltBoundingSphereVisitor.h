#pragma once

#include "fltapi/nodes/SwitchRecord.h"
#include "fltapi/visitors/VertexVisitors.h"

#include <osg/BoundingBox>
#include <vector>

namespace fltapi {

/// The box of all vertices at and below where the visitor starts, each transformed by the matrices on its way. Of a
/// switch only what its current mask shows counts; nodes that are hidden everywhere don't.
///
/// Instances of instances, and files that show one another, can show more than anybody can walk. Behind a large amount
/// the box of each is computed once and taken along as a whole, so the result may be too large where they are turned.
class FltBoundingSphereVisitor : public RecordVisitor {
public:
  /// @param above from the coordinates of the first node's parent to those of the box
  explicit FltBoundingSphereVisitor(const osg::Matrixd& above = {}) : matrices_{above} { revisit = true; }

  using RecordVisitor::apply;
  void apply(PrimNodeRecord& node) override;
  void apply(VertexListRecord& list) override;
  void apply(SwitchRecord& node) override;
  void apply(InstanceReferenceRecord& reference) override;
  void apply(ExternalRecord& reference) override;

  /// Not valid when there were no vertices.
  const osg::BoundingBoxd& box() const { return box_; }
  /// How often a vertex is shown; the largest integer stands for all that are larger.
  int vertexCount() const { return vertexCount_; }

private:
  /// What an instance or file shows, in its own coordinates.
  struct Extent {
    osg::BoundingBoxd box;
    int vertexCount = 0;
  };

  /// Takes along what hangs at a reference; `walk` goes through it.
  template <class Walk>
  void addShown(PrimNodeRecord& reference, const Record& shown, const Walk& walk);
  template <class Walk>
  const Extent& extentOf(const Record& shown, const Walk& walk);
  void count(int vertices);

  std::vector<osg::Matrixd> matrices_;
  osg::BoundingBoxd box_;
  int vertexCount_ = 0;
  int references_ = 0; ///< how many lead to the place where the visitor is
  int walked_ = 0;     ///< references and what hangs there
  std::map<const Record*, Extent> extents_;
};

} // namespace fltapi
