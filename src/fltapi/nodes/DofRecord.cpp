#include "fltapi/nodes/DofRecord.h"

#include "fltapi/transforms/Frame.h"

#include <osg/Math>

namespace fltapi {

namespace {

osg::Vec3d availableOr(const osg::Vec3d& point, const osg::Vec3d& substitute)
{
  const bool missing = point.x() == notAvailable && point.y() == notAvailable && point.z() == notAvailable;
  return missing ? substitute : point;
}

} // namespace

osg::Matrixd DofRecord::matrix() const
{
  const auto frame =
      frameOf(availableOr(get(fields.origin), {0, 0, 0}), availableOr(get(fields.pointOnXAxis), {1, 0, 0}),
              availableOr(get(fields.pointInXYPlane), {0, 1, 0}));
  const auto now = [this](const DofRange& range) { return get(range.current); };
  const auto turn = [&](const DofRange& angle, const osg::Vec3d& axis) {
    return osg::Matrixd::rotate(osg::DegreesToRadians(now(angle)), axis);
  };
  return osg::Matrixd::inverse(frame) *
         osg::Matrixd::scale(now(fields.scaleX), now(fields.scaleY), now(fields.scaleZ)) * turn(fields.yaw, {0, 0, 1}) *
         turn(fields.roll, {0, 1, 0}) * turn(fields.pitch, {1, 0, 0}) *
         osg::Matrixd::translate(now(fields.x), now(fields.y), now(fields.z)) * frame;
}

} // namespace fltapi
