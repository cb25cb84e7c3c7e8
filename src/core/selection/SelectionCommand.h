#pragma once

#include "core/Command.h"
#include "core/selection/SelectionSet.h"

namespace nalt {

/// A change of the selection: what left it and what joined it.
class SelectionCommand : public Command {
public:
  /// @param endsEmpty nothing is selected after the change, which is then recorded as such
  SelectionCommand(Model& model, Selections removed, Selections added, PivotState pivotBefore, PivotState pivotAfter,
                   bool endsEmpty, const SelectionChange& change);

  void undo() override;
  void redo() override;
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;
  std::string scriptText() const override { return script_; }
  std::string commentText() const override { return comment_; }

private:
  Model& model_;
  Selections removed_;
  Selections added_;
  PivotState pivotBefore_;
  PivotState pivotAfter_;
  std::string script_;
  std::string comment_;
};

} // namespace nalt
