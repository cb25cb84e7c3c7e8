#include "scene/view/GridPlacement.h"

#include "core/GridOperations.h"
#include "core/Model.h"
#include "core/Shell.h"

#include <string>

namespace nalt {

namespace {

constexpr int lastStep = 3;

/// The third point makes way when the axis is to run through it.
bool layAxis(Model& model, const osg::Vec3d& point)
{
  if (setGridPointOnAxis(model, point, /*undoable=*/true)) return true;
  const osg::Vec3d origin = model.grid().points().origin;
  if (point == origin) return false;
  return setGridThirdPoint(model, origin + model.grid().axes().normal, /*undoable=*/true) &&
         setGridPointOnAxis(model, point, /*undoable=*/true);
}

bool layPoint(Model& model, int step, const osg::Vec3d& point)
{
  if (step == 1) return setGridOrigin(model, point, /*undoable=*/true);
  return step == 2 ? layAxis(model, point) : setGridThirdPoint(model, point, /*undoable=*/true);
}

} // namespace

void GridPlacement::toggleAligning()
{
  translates_ = false;
  step_ = step_ == 0 ? 1 : 0;
  showStatus();
}

void GridPlacement::startTranslating()
{
  step_ = 0;
  translates_ = true;
  showStatus();
}

bool GridPlacement::take(Model& model, const osg::Vec3d& point)
{
  if (translates_) {
    translates_ = false;
    setGridOrigin(model, point, /*undoable=*/true);
  } else if (step_ > 0) {
    if (layPoint(model, step_, point)) step_ = step_ == lastStep ? 0 : step_ + 1;
  } else {
    return false;
  }
  showStatus();
  return true;
}

void GridPlacement::showStatus() const
{
  Shell& shell = Shell::get();
  if (shell.quiet()) return;
  if (translates_)
    shell.setStatusLine("Translating grid, set new origin point");
  else if (step_ > 0)
    shell.setStatusLine("Aligning grid, set point " + std::to_string(step_));
  else
    shell.setStatusLine("");
}

} // namespace nalt
