#include "core/selection/PivotCommand.h"

#include "core/ApiReference.h"
#include "core/LuaText.h"
#include "core/Model.h"

namespace nalt {

PivotCommand::PivotCommand(Model& model, const PivotState& before, const PivotState& after)
    : Command("Change Pivot"), model_(model), before_(before), after_(after)
{}

void PivotCommand::undo()
{
  model_.selections().setPivot(before_);
}

void PivotCommand::redo()
{
  model_.selections().setPivot(after_);
}

std::string PivotCommand::scriptText() const
{
  const auto place = after_.place.value_or(osg::Vec3d());
  return luaCall("changePivot", place.x(), place.y(), place.z());
}

std::string PivotCommand::commentText() const
{
  return ApiReference::commentText("changePivot");
}

void changePivot(Model& model, const osg::Vec3d& place, bool undoable)
{
  auto& selections = model.selections();
  const PivotState before{.place = selections.pivot()};
  const PivotState after{.place = place};
  selections.setPivot(after);
  if (undoable) model.commandStack().add(std::make_unique<PivotCommand>(model, before, after));
}

} // namespace nalt
