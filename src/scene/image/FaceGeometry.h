#pragma once

#include "scene/image/FaceRuns.h"
#include "scene/image/FaceState.h"
#include "scene/image/HighlightGeometry.h"
#include "scene/image/NaltPolygon.h"
#include "scene/image/PolygonShape.h"
#include "scene/image/ShrinkVisitor.h"
#include "scene/image/ShrunkFaces.h"
#include "scene/image/ViewportTable.h"

#include <array>
#include <memory>
#include <optional>
#include <osg/Geometry>
#include <vector>

namespace nalt {

/// Polygons of one parent and one state, drawn from shared arrays in a few calls. Its first primitive sets are the
/// polygons, in the order of their corners; others (such as the points of selected vertices) may follow.
///
/// It holds a limited number of corners, so that moving one of them never uploads or measures a whole large model.
class FaceGeometry : public osg::Geometry, public Shrinkable {
public:
  FaceGeometry(FaceState& state, ViewportTable& viewports);

  static constexpr int cornerLimit = 1 << 16;
  static constexpr const char* largeVerticesName = "largevertices";

  FaceState& state() const { return *state_; }
  const ViewportTable& viewports() const { return *viewports_; }
  bool hasRoomFor(int corners) const { return cornerCount() == 0 || cornerCount() + corners <= cornerLimit; }
  int cornerCount() const { return static_cast<int>(positions_->size()); }
  /// Polygons that are shown, those that wait to be cut out not counted.
  int polygonCount() const { return polygonCount_ - removedCount_; }
  /// Null for a primitive set that is no polygon.
  NaltPolygon* polygonAt(unsigned primitiveSet) const;

  /// The polygon belongs to the geometry.
  NaltPolygon* append(const PolygonShape& shape, fltapi::PrimNodeRecord* record);
  /// Gives a polygon of this geometry new corners, as many as it has.
  void rewrite(NaltPolygon& polygon, const PolygonShape& shape);
  /// Marks a polygon of this geometry, which shows no more from now on; `compact` cuts all marked ones out in one pass.
  void remove(NaltPolygon& polygon);
  void compact();

  /// Viewports that show at least one polygon.
  std::uint32_t visibleMask() const;
  void maskChanged(std::uint32_t before, std::uint32_t after);

  /// Another number after each change of what is shown.
  unsigned revision() const { return revision_; }

  void prepareShrunk(bool shrunk) override;
  const ShrunkFaces& shrunk() const;
  /// Where the viewports of these bits, which all show polygons shrunk or all don't, draw the corners.
  const osg::Vec3Array& positionsIn(std::uint32_t viewportBits) const;

  /// Takes the marks of a polygon's record over. True when the geometry got its first mark or lost its last one.
  bool setMarks(NaltPolygon& polygon, std::uint8_t marks);
  bool hasMarks() const { return markedCount_ > 0; }
  /// Draws what is marked, from the same arrays. Made when it is first asked for.
  HighlightGeometry& highlight();

  void drawImplementation(osg::RenderInfo& renderInfo) const override;
  void resizeGLObjectBuffers(unsigned maxSize) override;
  void releaseGLObjects(osg::State* state = nullptr) const override;

protected:
  ~FaceGeometry() override;

private:
  void dropLargeVertices();
  void dirtyArrays();
  void runsChanged();
  const FaceRuns& runsFor(std::uint32_t viewportBits) const;

  osg::ref_ptr<FaceState> state_;
  osg::ref_ptr<ViewportTable> viewports_;
  osg::ref_ptr<osg::Vec3Array> positions_ = new osg::Vec3Array;
  osg::ref_ptr<osg::Vec3Array> normals_;
  osg::ref_ptr<osg::Vec4ubArray> colors_ = new osg::Vec4ubArray;
  std::array<osg::ref_ptr<osg::Vec2Array>, textureLayers> uvs_;
  int polygonCount_ = 0;
  int removedCount_ = 0;
  int maskedCount_ = 0; ///< polygons that some viewport doesn't show
  int markedCount_ = 0; ///< polygons with marks
  osg::ref_ptr<HighlightGeometry> highlight_;
  /// Made when they are first drawn. Without hidden polygons all viewports share one.
  mutable std::vector<osg::ref_ptr<FaceRuns>> runs_;
  mutable std::optional<std::uint32_t> visibleMask_;
  mutable std::unique_ptr<ShrunkFaces> shrunk_; ///< made when it is first needed
  unsigned revision_ = 0;
};

} // namespace nalt
