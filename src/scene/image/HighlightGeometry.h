#pragma once

#include "scene/image/FaceRuns.h"

#include <cstdint>
#include <osg/Geometry>
#include <osg/PrimitiveSet>
#include <vector>

namespace nalt {

class FaceGeometry;

/// Draws again what is marked in a geometry of polygons: whole polygons, edges and corners. It uses the arrays of that
/// geometry, so that what moves there moves here too, and works its lists out when it is drawn.
class HighlightGeometry : public osg::Geometry {
public:
  /// `source` must tell when it goes away.
  HighlightGeometry(FaceGeometry& source, osg::Vec3Array& positions);

  /// Null once the source is gone.
  FaceGeometry* source() const { return source_; }
  void forgetSource() { source_ = nullptr; }
  /// Marks, masks or places of the polygons changed.
  void changed() { lists_.clear(); }

  /// What one set of viewports sees, as numbers of corners in the shared arrays.
  class Lists : public osg::Referenced {
  public:
    explicit Lists(std::uint32_t viewportBits) : polygons(new FaceRuns(viewportBits)) {}

    osg::ref_ptr<FaceRuns> polygons;
    osg::ref_ptr<osg::DrawElementsUInt> edges = new osg::DrawElementsUInt(GL_LINES);
    osg::ref_ptr<osg::DrawElementsUInt> corners = new osg::DrawElementsUInt(GL_POINTS);

  protected:
    ~Lists() override = default;
  };
  /// Only to be called while there is a source.
  const Lists& listsFor(std::uint32_t viewportBits) const;

  osg::BoundingBox computeBoundingBox() const override;
  void drawImplementation(osg::RenderInfo& renderInfo) const override;
  void resizeGLObjectBuffers(unsigned maxSize) override;
  void releaseGLObjects(osg::State* state = nullptr) const override;

protected:
  ~HighlightGeometry() override = default;

private:
  FaceGeometry* source_;
  mutable std::vector<osg::ref_ptr<Lists>> lists_;
};

} // namespace nalt
