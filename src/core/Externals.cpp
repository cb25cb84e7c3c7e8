#include "core/Externals.h"

#include "core/Model.h"
#include "fltapi/AllRecords.h"
#include "fltapi/ExternalFiles.h"
#include "scene/image/UpdateExternalsVisitor.h"

#include <algorithm>

namespace nalt {

using fltapi::ExternalRecord;

std::vector<ExternalRecord*> externalsOf(const Model& model)
{
  const auto* file = model.fltFile();
  return file ? file->externalReferences() : std::vector<ExternalRecord*>();
}

namespace {

template <class Test>
void dropThose(Model& model, const Test& isMeant)
{
  SelectionChange quietly;
  quietly.undoable = false;
  for (int i = 0; i < 2; ++i) // the former selection too
    model.selections().select(Selections(), quietly);
  model.commandStack().clear();
  for (ExternalRecord* external : externalsOf(model)) {
    if (!isMeant(*external)) continue;
    if (!external->resolvedPath().empty())
      fltapi::ExternalFiles::get().forget(fltapi::canonicalPath(external->resolvedPath()));
    external->show(nullptr, {});
  }
  model.checkParent();
  showExternals(model);
}

} // namespace

void dropExternals(Model& model)
{
  dropThose(model, [](const ExternalRecord&) { return true; });
}

void dropExternals(Model& model, const std::vector<std::string>& paths)
{
  dropThose(model, [&](const ExternalRecord& external) {
    return std::ranges::find(paths, external.getName()) != paths.end();
  });
}

void showExternals(Model& model)
{
  if (Sync* sync = model.sync()) {
    UpdateExternalsVisitor visitor(*sync);
    for (ExternalRecord* external : externalsOf(model))
      external->accept(visitor);
  }
  model.redrawViewports();
}

} // namespace nalt
