#include "core/selection/RecordedChange.h"

namespace nalt {

SelectionChange recordedChange(const std::string&, const std::string& script, bool undoable)
{
  SelectionChange change;
  change.undoable = undoable;
  change.script = script;
  return change;
}

} // namespace nalt
