#pragma once

#include <algorithm>
#include <cmath>
#include <osg/Matrixd>
#include <osg/Vec3>

namespace nalt {

// Files hold what they like. A single coordinate that is no number, or too large to be squared, would take the extent
// of the whole model with it, and then nothing at all would be seen.

inline constexpr double farthest = 1e18;

/// Whether the scene can show something there.
inline bool isFinite(const osg::Vec3& position)
{
  return std::abs(position.x()) <= farthest && std::abs(position.y()) <= farthest && std::abs(position.z()) <= farthest;
}

/// Whether the scene can show something that is moved so.
inline bool isFinite(const osg::Matrixd& matrix)
{
  return std::all_of(matrix.ptr(), matrix.ptr() + 16, [](double value) { return std::abs(value) <= farthest; });
}

} // namespace nalt
