#pragma once

#include <osg/GL>
#include <osg/Vec3>
#include <osg/Vec3d>
#include <span>
#include <vector>

namespace nalt {

/// The normal of a polygon by its corners: the sum of the cross products of neighbouring edges from the first corner,
/// as long as twice the polygon's area.
osg::Vec3d areaNormal(std::span<const osg::Vec3> corners);

/// Whether a fan from the first corner fills the polygon as it should be filled. Polygons without area count as convex.
bool isConvex(std::span<const osg::Vec3> corners, const osg::Vec3d& areaNormal);

/// Corners of triangles, three each, that fill the polygon and turn as it does. Empty when there is nothing to fill.
/// A polygon whose edges cross gets triangles between its own corners, since none can be made up here; a scribble of
/// thousands of corners whose edges cross nearly everywhere gets none, and so a fan.
std::vector<GLuint> tessellate(std::span<const osg::Vec3> corners, const osg::Vec3d& areaNormal);

} // namespace nalt
