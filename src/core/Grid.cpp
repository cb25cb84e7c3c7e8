#include "core/Grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace nalt {

namespace {

constexpr double straight = 1e-9;         // sine of the smallest angle between the directions to the two points
constexpr double largeGrid = 100.0;       // model units
constexpr double largeBesideModel = 10.0; // times the model's radius

osg::Vec3d unit(osg::Vec3d vector)
{
  vector.normalize();
  return vector;
}

} // namespace

bool Grid::setPoints(const Points& points)
{
  const osg::Vec3d normal = unit(points.onAxis - points.origin) ^ unit(points.third - points.origin);
  if (!(normal.length() > straight)) return false;
  points_ = points;
  return true;
}

bool Grid::setOrigin(const osg::Vec3d& origin)
{
  const osg::Vec3d difference = origin - points_.origin;
  return setPoints({origin, points_.onAxis + difference, points_.third + difference});
}

bool Grid::addOffset(double offset)
{
  return setOrigin(points_.origin + axes().normal * offset);
}

Grid::Axes Grid::axes() const
{
  const osg::Vec3d first = unit(points_.onAxis - points_.origin);
  const osg::Vec3d toThird = unit(points_.third - points_.origin);
  const osg::Vec3d normal = unit(first ^ toThird);
  return {first, unit(normal ^ first), normal};
}

bool Grid::setSpacing(double spacing)
{
  if (!std::isfinite(spacing) || spacing <= 0.0) return false;
  spacing_ = spacing;
  return true;
}

bool Grid::setThickLineNumber(int number)
{
  if (number == 0) return false;
  thickLineNumber_ = number;
  return true;
}

void Grid::setHalfSize(double lines)
{
  halfSize_ = static_cast<int>(std::clamp(lines, 1.0, double{std::numeric_limits<int>::max()}));
}

void Grid::redouble(double modelRadius)
{
  const double size = halfSize_ * spacing_;
  if (size > largeGrid && size > largeBesideModel * modelRadius) return;
  setHalfSize(halfSize_ * 2.0);
}

void Grid::setColors(const osg::Vec4f& color, const osg::Vec4f& axisColor)
{
  color_ = color;
  axisColor_ = axisColor;
}

std::optional<osg::Vec3d> Grid::intersection(const osg::Vec3d& nearPoint, const osg::Vec3d& farPoint) const
{
  const osg::Vec3d normal = axes().normal;
  const double along = (farPoint - nearPoint) * normal;
  if (along == 0.0) return std::nullopt;
  const double t = ((points_.origin - nearPoint) * normal) / along;
  return nearPoint + (farPoint - nearPoint) * t;
}

std::optional<osg::Vec3d> Grid::snapped(const osg::Vec3d& point) const
{
  const Axes axes = this->axes();
  const osg::Vec3d place = (point - points_.origin) / spacing_;
  const double i = place * axes.first;
  const double j = place * axes.second;
  if (std::abs(i - std::round(i)) > snapTolerance_ || std::abs(j - std::round(j)) > snapTolerance_) return std::nullopt;
  return points_.origin + (axes.first * std::round(i) + axes.second * std::round(j)) * spacing_;
}

} // namespace nalt
