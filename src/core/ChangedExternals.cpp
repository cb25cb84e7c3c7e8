#include "core/ChangedExternals.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "core/WaitCursor.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "scene/image/UpdateExternalsVisitor.h"

namespace nalt {

bool offerReloadOfExternals(Model& model)
{
  auto* file = model.fltFile();
  if (!file || !file->header()) return false;
  const auto changed = file->changedExternals();
  if (changed.empty()) return false;
  const auto answer = Shell::get().ask("At least one external reference was changed on disk. Do you want to reload "
                                       "changed external references? Note that the command list will be erased.");
  if (answer != Answer::yes) {
    file->keepExternals(changed);
    return false;
  }
  const WaitCursor cursor;
  model.commandStack().clear();
  model.selections().forgetAll();
  file->reloadExternals(changed);
  if (auto* sync = model.sync()) {
    UpdateExternalsVisitor visitor(*sync);
    file->header()->accept(visitor);
  }
  model.checkParent();
  model.redrawViewports();
  return true;
}

} // namespace nalt
