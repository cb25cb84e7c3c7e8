#pragma once

#include <osg/Group>
#include <osg/Image>
#include <osg/Vec3d>
#include <osg/Vec4ub>
#include <osg/ref_ptr>

#include <cstdint>
#include <memory>
#include <string>

namespace nalt::tests {

/// Draws scenes as a viewport does, but into an image, without any display. One OpenGL context for each view.
class OffscreenView {
public:
  /// Null where there is no OpenGL without a display.
  static std::unique_ptr<OffscreenView> create(int width, int height);
  ~OffscreenView();
  OffscreenView(const OffscreenView&) = delete;
  OffscreenView& operator=(const OffscreenView&) = delete;

  /// Only nodes with one of these bits are drawn.
  void setBits(std::uint32_t bits);
  void setScene(osg::Node* scene);
  /// Edges only.
  void setWireframe(bool wireframe);
  /// Puts the whole scene into the view; `direction` is where the eye looks.
  void lookAlong(const osg::Vec3d& direction, const osg::Vec3d& up);
  /// The same view as another one's.
  void lookAs(const OffscreenView& other);
  /// A parallel projection onto the plane of x and y, seen from above: one unit is `pixels` pixels, the origin is the
  /// lower left corner.
  void lookDown(double pixels);

  /// Draws one frame.
  osg::ref_ptr<osg::Image> draw();
  /// Of the last frame; y counts from the bottom.
  osg::Vec4ub pixel(int x, int y) const;
  /// Pixels of the last frame that aren't background.
  int drawnPixels() const;
  /// The part of the last frame that isn't background, 0 to 1.
  double coverage() const;
  /// Writes the last frame to the folder for pictures, for people to look at.
  void save(const std::string& name) const;

  static osg::Vec4ub background() { return {51, 51, 102, 255}; }

private:
  OffscreenView(int width, int height);
  struct Context;

  std::unique_ptr<Context> context_;
};

} // namespace nalt::tests
