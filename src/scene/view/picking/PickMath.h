#pragma once

#include <optional>
#include <osg/BoundingBox>
#include <osg/BoundingSphere>
#include <osg/Polytope>
#include <osg/Vec3d>

namespace nalt {

/// Whether some of the way from `from` to `to` lies where no plane is negative.
bool crosses(const osg::Polytope::PlaneList& planes, const osg::Vec3d& from, const osg::Vec3d& to);

/// How far on the way from `from` to `to` it goes through the triangle, from 0 to 1. Null when it passes by, or runs
/// along it.
std::optional<double> meetingPoint(const osg::Vec3d& from, const osg::Vec3d& to, const osg::Vec3d& a,
                                   const osg::Vec3d& b, const osg::Vec3d& c);

/// The radius with room for the digits that bounds lack.
double safeRadius(const osg::BoundingSphere& bound);
/// Whether the way from `from` to `to` touches the bounds.
bool meets(const osg::BoundingSphere& bound, const osg::Vec3d& from, const osg::Vec3d& to);
bool meets(const osg::BoundingBox& bound, const osg::Vec3d& from, const osg::Vec3d& to);

} // namespace nalt
