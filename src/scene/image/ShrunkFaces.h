#pragma once

#include <osg/Geometry>
#include <osg/ref_ptr>

namespace nalt {

class FaceGeometry;
class NaltPolygon;

/// The arrays of a geometry once more, with the corners of each polygon moved towards its centre. Points stay where
/// they are. All but the positions is shared.
class ShrunkFaces {
public:
  explicit ShrunkFaces(const FaceGeometry& faces);

  const osg::Vec3Array& positions() const { return *positions_; }
  /// After the corners of a polygon moved.
  void update(const NaltPolygon& polygon);
  /// What is drawn in place of the geometry's own arrays.
  const osg::Geometry& arrays() const { return *arrays_; }
  osg::Geometry& arrays() { return *arrays_; }

private:
  void shrink(const NaltPolygon& polygon);

  const FaceGeometry& faces_;
  osg::ref_ptr<osg::Vec3Array> positions_ = new osg::Vec3Array;
  osg::ref_ptr<osg::Geometry> arrays_ = new osg::Geometry;
};

} // namespace nalt
