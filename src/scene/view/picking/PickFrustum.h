#pragma once

#include "scene/view/picking/WindowProjection.h"

#include <array>
#include <optional>
#include <osg/Polytope>

namespace nalt {

/// A rectangle of a window, with any two corners that lie opposite each other, in pixels with y upward.
struct WindowRect {
  osg::Vec2d first;
  osg::Vec2d second;

  bool isPoint() const { return first == second; }
  /// With sorted corners, and larger by `margin` on all sides.
  WindowRect grownBy(double margin) const;
  osg::Vec2d centre() const { return (first + second) * 0.5; }
};

/// The part of space that is seen through a rectangle of a window, between the clip planes.
struct PickFrustum {
  using Edge = std::pair<osg::Vec3d, osg::Vec3d>;

  osg::Polytope polytope; ///< inside is where all planes are positive
  std::array<Edge, 12> edges;

  /// Null when the window can't be led back into space.
  static std::optional<PickFrustum> through(const WindowRect& rect, const WindowProjection& projection);
  /// The same in the coordinates of something that `matrix` leads to space. Null for a matrix without an inverse, below
  /// which everything is flat.
  std::optional<PickFrustum> in(const osg::Matrixd& matrix) const;
};

} // namespace nalt
