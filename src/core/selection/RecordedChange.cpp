#include "core/selection/RecordedChange.h"

#include "core/ApiReference.h"

namespace nalt {

SelectionChange recordedChange(const std::string& function, const std::string& script, bool undoable)
{
  SelectionChange change;
  change.undoable = undoable;
  change.script = script;
  change.comment = ApiReference::commentText(function);
  return change;
}

} // namespace nalt
