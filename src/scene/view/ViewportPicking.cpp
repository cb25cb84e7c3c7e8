#include "core/Model.h"
#include "core/Preferences.h"
#include "core/Shell.h"
#include "scene/view/Viewport.h"
#include "scene/view/picking/PickMath.h"

#include <FL/Fl.H>

#include <algorithm>

// What a viewport has under the mouse.

namespace nalt {

namespace {

/// Of the far clip plane's distance: perspective needs a near one in front of the eye.
constexpr double nearestShare = 1e-7;

} // namespace

/// The camera's lens as the picture has it: with automatic clip planes, these reach around the model.
Lens Viewport::pickLens() const
{
  Lens lens = camera_->lens();
  const osg::Node* scene = scene_.model();
  if (!preferences_.automaticClip || !scene || !scene->getBound().valid()) return lens;
  const osg::BoundingSphere& bound = scene->getBound();
  const double radius = safeRadius(bound);
  const double middle = -(osg::Vec3d(bound.center()) * camera_->getInverseMatrix()).z();
  double nearest = middle - radius;
  double farthest = middle + radius;
  if (!lens.orthographic) {
    if (!(farthest > 0.0)) return lens; // all of it is behind the eye
    nearest = std::max(nearest, farthest * nearestShare);
  }
  if (!(nearest < farthest)) return lens;
  lens.nearClip = nearest;
  lens.farClip = farthest;
  return lens;
}

WindowProjection Viewport::projection() const
{
  return {camera_->getInverseMatrix(), projectionMatrix(pickLens(), camera_->pose().distance), static_cast<double>(w()),
          static_cast<double>(h())};
}

Picker Viewport::picker() const
{
  return {scene_.model(), projection(), traversalMask_, Preferences::get().pickTolerance};
}

std::unique_ptr<Selection> Viewport::pick(const WindowRect& rect) const
{
  return picker().pick(Shell::get().pickMode(), rect);
}

osg::Vec2d Viewport::mousePlace() const
{
  return {static_cast<double>(Fl::event_x()), static_cast<double>(h() - Fl::event_y())};
}

} // namespace nalt
