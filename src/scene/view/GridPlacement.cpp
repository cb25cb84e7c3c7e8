#include "scene/view/GridPlacement.h"

#include "core/GridOperations.h"
#include "core/Shell.h"

#include <string>

namespace nalt {

namespace {

constexpr int lastStep = 3;

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
    const int step = step_;
    step_ = step == lastStep ? 0 : step + 1;
    if (step == 1)
      setGridOrigin(model, point, /*undoable=*/true);
    else if (step == 2)
      setGridPointOnAxis(model, point, /*undoable=*/true);
    else
      setGridThirdPoint(model, point, /*undoable=*/true);
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
