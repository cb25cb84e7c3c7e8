#include "core/selection/SelectionCommand.h"

#include "core/Model.h"

namespace nalt {

SelectionCommand::SelectionCommand(Model& model, Selections removed, Selections added, PivotState pivotBefore,
                                   PivotState pivotAfter, bool endsEmpty, const SelectionChange& change)
    : Command("Selection"),
      model_(model),
      removed_(std::move(removed)),
      added_(std::move(added)),
      pivotBefore_(pivotBefore),
      pivotAfter_(pivotAfter),
      script_(change.script),
      comment_(change.comment)
{
  if (!endsEmpty) return;
  script_ = "nalt.selectNone()";
  comment_ = "--\n-- nalt.selectNone()\n-- Clears all selections.";
}

void SelectionCommand::undo()
{
  model_.selections().exchange(added_, removed_, pivotBefore_);
}

void SelectionCommand::redo()
{
  model_.selections().exchange(removed_, added_, pivotAfter_);
}

void SelectionCommand::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  removed_.replaceRecord(oldRecord, newRecord);
  added_.replaceRecord(oldRecord, newRecord);
}

} // namespace nalt
