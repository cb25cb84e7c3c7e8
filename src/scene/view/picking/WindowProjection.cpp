#include "scene/view/picking/WindowProjection.h"

#include "core/Shell.h"

#include <osg/Vec4d>

#include <cmath>

namespace nalt {

namespace {

osg::Matrixd windowMatrix(double width, double height)
{
  return osg::Matrixd::translate(1.0, 1.0, 1.0) * osg::Matrixd::scale(width / 2.0, height / 2.0, 0.5);
}

bool isFinite(const osg::Vec3d& point)
{
  return std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
}

} // namespace

WindowProjection::WindowProjection(const osg::Matrixd& view, const osg::Matrixd& projection, double width,
                                   double height)
    : width_(width), height_(height), toWindow_(view * projection * windowMatrix(width, height))
{
  invertible_ = width > 0.0 && height > 0.0 && toModel_.invert(toWindow_);
}

std::optional<MouseRay> WindowProjection::rayAt(const osg::Vec2d& window) const
{
  if (!invertible_) return std::nullopt;
  const MouseRay ray{osg::Vec3d(window.x(), window.y(), 0.0) * toModel_,
                     osg::Vec3d(window.x(), window.y(), 1.0) * toModel_, window};
  if (!isFinite(ray.nearPoint) || !isFinite(ray.farPoint)) return std::nullopt;
  return ray;
}

std::optional<osg::Vec2d> WindowProjection::toWindow(const osg::Vec3d& position) const
{
  const osg::Vec4d seen = osg::Vec4d(position, 1.0) * toWindow_;
  if (!(seen.w() > 0.0)) return std::nullopt;
  return osg::Vec2d(seen.x() / seen.w(), seen.y() / seen.w());
}

void warnOfLostProjection()
{
  Shell::get().warning("Couldn't project window coordinates into object coordinates");
}

} // namespace nalt
