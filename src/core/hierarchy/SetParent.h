#pragma once

#include "core/Command.h"
#include "fltapi/PrimNodeRecord.h"

#include <osg/ref_ptr>

namespace nalt {

class Model;

/// Another node became the one that new nodes go below.
class SetParentCommand : public Command {
public:
  SetParentCommand(Model& model, fltapi::PrimNodeRecord* before, fltapi::PrimNodeRecord* after);

  void undo() override { exchange(); }
  void redo() override { exchange(); }
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;
  std::string scriptText() const override;
  std::string commentText() const override;

private:
  void exchange();

  Model& model_;
  osg::ref_ptr<fltapi::PrimNodeRecord> other_; ///< what undo or redo brings back
  osg::ref_ptr<fltapi::PrimNodeRecord> current_;
};

/// New nodes go below the one selected node; for a polygon and what belongs to one, below its object. False, after a
/// message, when that node can't be it, and false when nothing is selected.
bool setParent(Model& model, bool undoable);

} // namespace nalt
