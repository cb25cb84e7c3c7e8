#pragma once

#include <osg/Geometry>
#include <osg/StateSet>
#include <osg/Vec3>
#include <osg/ref_ptr>

#include <vector>

namespace nalt {

/// One number as text in all the places where corners have it. Faces the viewer, has the same size at every distance,
/// and is never covered.
class VertexNumber : public osg::Geometry {
public:
  /// @param number 0 or more
  VertexNumber(int number, std::vector<osg::Vec3> places);

  int number() const { return number_; }
  const std::vector<osg::Vec3>& places() const { return places_; }
  /// How all numbers are drawn: white digits with a dark rim, over everything.
  static osg::StateSet* sharedState();

  osg::BoundingBox computeBoundingBox() const override;
  void drawImplementation(osg::RenderInfo& renderInfo) const override;

protected:
  ~VertexNumber() override = default;

private:
  void layOut(const osg::Matrixd& toWindow, double width, double height) const;

  int number_;
  std::vector<osg::Vec3> places_;
  std::vector<osg::Vec3> digitCorners_; ///< pixels, around the middle of the text; four for each digit
  std::vector<osg::Vec2> digitUvs_;
  // What is drawn in one frame, in pixels of the window.
  osg::ref_ptr<osg::Vec3Array> corners_ = new osg::Vec3Array;
  osg::ref_ptr<osg::Vec2Array> uvs_ = new osg::Vec2Array;
  osg::ref_ptr<osg::DrawArrays> quads_ = new osg::DrawArrays(GL_QUADS);
};

} // namespace nalt
