#pragma once

#include <osg/GL>
#include <osg/Vec2d>
#include <span>
#include <vector>

namespace nalt {

/// Corners of triangles, three each, that fill a polygon which runs counterclockwise. Its edges may touch, as where a
/// bridge leads to a hole; where they cross, the filling is wrong in that place. Mostly takes milliseconds for
/// thousands of corners. Empty when it would take many seconds.
std::vector<GLuint> clipEars(std::span<const osg::Vec2d> corners);

} // namespace nalt
