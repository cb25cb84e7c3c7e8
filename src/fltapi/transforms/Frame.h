#pragma once

#include <osg/Matrixd>
#include <osg/Vec3d>

namespace fltapi {

/// The right-handed frame of three points: the x axis runs from `origin` to `onXAxis`, `inPlane` lies in the plane of x
/// and y. The rows are the axes, the last one the origin. Points without a direction give the world's axes at the
/// origin.
osg::Matrixd frameOf(const osg::Vec3d& origin, const osg::Vec3d& onXAxis, const osg::Vec3d& inPlane);

/// Files mark a coordinate that isn't available by this value.
inline constexpr double notAvailable = -1.0e8;

} // namespace fltapi
