#pragma once

#include <cstdint>
#include <memory>
#include <osg/PrimitiveSet>
#include <vector>

namespace fltapi {
class PrimNodeRecord;
}

namespace nalt {

class FaceGeometry;

/// One polygon (or point, or line) of a geometry that many polygons share: its run of corners in the shared arrays, and
/// the viewports that show it. Drawing goes through the geometry, which joins the runs; visitors that look for
/// intersections see each polygon as a primitive set of its own.
class NaltPolygon : public osg::DrawArrays {
public:
  NaltPolygon(FaceGeometry& geometry, fltapi::PrimNodeRecord* record, GLenum mode, int first, int count);

  /// The geometry that holds the polygon; null once it was taken out.
  FaceGeometry* geometry() const { return geometry_; }
  /// The face or light point that is shown.
  fltapi::PrimNodeRecord* record() const { return record_; }

  /// One bit for each viewport that shows the polygon.
  std::uint32_t mask() const { return mask_; }
  void setMask(std::uint32_t mask);
  bool isVisibleIn(std::uint32_t viewportBits) const { return mask_ & viewportBits; }
  /// Whether the record, or some of its vertices, are highlighted: the bits of Mark.
  std::uint8_t marks() const { return marks_; }

  /// Corners of triangles that fill the polygon, counted from its first one. Null when a fan does.
  const std::vector<GLuint>* triangles() const { return triangles_.get(); }
  /// An empty list means that a fan does. Gives true when that changed anything.
  bool setTriangles(const std::vector<GLuint>& triangles);
  /// The same with corners counted in the shared arrays.
  std::vector<GLuint> trianglesInArrays() const;

  void draw(osg::State& state, bool useVertexBufferObjects) const override;
  void accept(osg::PrimitiveFunctor& functor) const override;
  void accept(osg::PrimitiveIndexFunctor& functor) const override;

protected:
  ~NaltPolygon() override = default;

private:
  friend class FaceGeometry;

  FaceGeometry* geometry_;
  fltapi::PrimNodeRecord* record_;
  std::unique_ptr<std::vector<GLuint>> triangles_;
  std::uint32_t mask_ = ~0U;
  std::uint8_t marks_ = 0;
};

} // namespace nalt
