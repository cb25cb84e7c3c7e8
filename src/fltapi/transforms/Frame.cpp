#include "fltapi/transforms/Frame.h"

namespace fltapi {

osg::Matrixd frameOf(const osg::Vec3d& origin, const osg::Vec3d& onXAxis, const osg::Vec3d& inPlane)
{
  auto x = onXAxis - origin;
  const double xLength = x.normalize();
  auto z = x ^ (inPlane - origin);
  const double zLength = z.normalize();
  if (xLength == 0 || zLength == 0) return osg::Matrixd::translate(origin);
  const auto y = z ^ x;
  return {x.x(),      x.y(),      x.z(),      0, //
          y.x(),      y.y(),      y.z(),      0, //
          z.x(),      z.y(),      z.z(),      0, //
          origin.x(), origin.y(), origin.z(), 1};
}

} // namespace fltapi
