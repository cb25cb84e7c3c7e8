#pragma once

#include "core/Command.h"
#include "fltapi/PrimNodeRecord.h"

#include <osg/ref_ptr>
#include <span>
#include <vector>

namespace nalt {

class Model;

/// Where selected nodes go among their siblings.
enum class Shift { farLeft, left, right, farRight };

/// One row for each.
struct ShiftInfo {
  Shift shift;
  const char* commandName;
  const char* function; ///< name of the script function
};
const ShiftInfo& infoOf(Shift shift);

/// Siblings in another order.
class ShiftCommand : public Command {
public:
  using Order = std::vector<osg::ref_ptr<fltapi::Record>>;

  /// @param after all children of `parent`, ancillary records too
  ShiftCommand(Model& model, Shift shift, fltapi::PrimNodeRecord& parent, Order after);

  void undo() override { arrange(before_); }
  void redo() override { arrange(after_); }
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;
  std::string scriptText() const override;
  std::string commentText() const override;

  bool changesNothing() const { return before_ == after_; }

private:
  void arrange(const Order& order);

  Model& model_;
  Shift shift_;
  osg::ref_ptr<fltapi::PrimNodeRecord> parent_;
  Order before_;
  Order after_;
};

/// Shifts the selected nodes, which keep their own order. A step takes each block of them past one sibling. False when
/// nothing moved: after a message if they have different parents or belong to an external reference.
bool shiftSelected(Model& model, Shift shift, bool undoable);

} // namespace nalt
