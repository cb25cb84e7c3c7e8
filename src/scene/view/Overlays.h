#pragma once

#include "scene/view/ViewportPreferences.h"

#include <osg/Quat>
#include <osg/Vec2d>
#include <osg/Vec3f>

namespace nalt {

/// Drawn in window pixels with OpenGL's own calls, so they need a current context. Each restores what it changes.

/// The quad behind the scene, `top` at the upper edge.
void drawBackground(int width, int height, const osg::Vec3f& top, const osg::Vec3f& bottom);

/// The rectangle that the left mouse button draws. Window pixels, y upward.
struct RubberBand {
  osg::Vec2d first;
  osg::Vec2d second;
};
/// In black and white, so that it can be seen on any ground.
void drawRubberBand(int width, int height, const RubberBand& band);

/// Marks the place that the selection turns and scales about.
void drawPickPoint(int width, int height, const osg::Vec2d& place);

/// The outline of the window; the active viewport has a further one two pixels inside.
void drawFrame(int width, int height, bool active);

/// The world's axes as the camera with `orientation` sees them, near a corner of the window, with arrow heads and
/// letters.
void drawOrientationAxes(int width, int height, AxesCorner corner, const osg::Quat& orientation);

/// Says in a corner that has no axes whether the view is a perspective or an orthographic one.
void drawProjectionMarker(int width, int height, AxesCorner axes, bool orthographic);

} // namespace nalt
