#pragma once

#include <osg/Vec3f>

namespace nalt {

/// Colour of the axis x (0), y (1) or z (2), the same for the orientation axes and for every handle.
inline osg::Vec3f axisColor(int axis)
{
  switch (axis) {
  case 0:
    return {0.15F, 0.30F, 0.95F};
  case 1:
    return {0.90F, 0.15F, 0.15F};
  default:
    return {0.10F, 0.65F, 0.20F};
  }
}

} // namespace nalt
