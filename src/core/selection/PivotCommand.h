#pragma once

#include "core/Command.h"
#include "core/selection/SelectionSet.h"

namespace nalt {

/// The pivot was put elsewhere.
class PivotCommand : public Command {
public:
  PivotCommand(Model& model, const PivotState& before, const PivotState& after);

  void undo() override;
  void redo() override;
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
  std::string scriptText() const override;
  std::string commentText() const override;

private:
  Model& model_;
  PivotState before_;
  PivotState after_;
};

/// Puts the pivot of the selection to a place of the whole model, until another selection takes it to its own middle.
/// @param undoable hands a command to the model's stack
void changePivot(Model& model, const osg::Vec3d& place, bool undoable);

} // namespace nalt
