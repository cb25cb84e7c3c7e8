#pragma once

#include "core/Gizmo.h"

#include <osg/Matrixd>
#include <osg/Vec2d>
#include <osg/Vec3d>

#include <optional>

namespace nalt {

/// Leads from the coordinates of the whole model to the pixels of a window, with y upward, and back.
class WindowProjection {
public:
  /// `width` and `height` of the window in pixels.
  WindowProjection(const osg::Matrixd& view, const osg::Matrixd& projection, double width, double height);

  double width() const { return width_; }
  double height() const { return height_; }
  /// The line of sight through a pixel, from the near to the far clip plane. Null when the camera shows nothing that
  /// could be led back, such as a window without area.
  std::optional<MouseRay> rayAt(const osg::Vec2d& window) const;
  /// Null for what lies behind the eye.
  std::optional<osg::Vec2d> toWindow(const osg::Vec3d& position) const;

private:
  double width_;
  double height_;
  osg::Matrixd toWindow_;
  osg::Matrixd toModel_;
  bool invertible_;
};

/// Tells the user that the camera can't be led back.
void warnOfLostProjection();

} // namespace nalt
