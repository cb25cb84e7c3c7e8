#include "app/FileOperations.h"

#include "app/Gui.h"
#include "core/ExternalReferences.h"
#include "core/Externals.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/WaitCursor.h"
#include "fltapi/FltFile.h"

#include <algorithm>

// The operations on external references.

namespace nalt {

namespace {

/// @param deed "revert", say
std::string questionForExternals(const char* deed)
{
  std::string question = "Do you want to ";
  question += deed;
  question += " externals? Note that the selection will be cleared and the command list will be erased.";
  return question;
}

} // namespace

Model* FileOperations::agreedModel(const char* deed)
{
  waitUntilIdle();
  Model* model = gui_.currentModel();
  return model && gui_.ask(questionForExternals(deed)) == Answer::yes ? model : nullptr;
}

bool FileOperations::revertExternals(bool synchronous)
{
  Model* model = agreedModel("revert");
  if (!model) return false;
  dropExternals(*model);
  return runExternals(FileOperationKind::revertExternals, *model, {}, synchronous);
}

bool FileOperations::loadExternals(const std::vector<std::string>& paths, bool synchronous)
{
  Model* model = agreedModel("load/unload");
  if (!model) return false;
  dropExternals(*model, paths);
  return runExternals(FileOperationKind::loadExternals, *model, paths, synchronous);
}

bool FileOperations::unloadExternals(const std::vector<std::string>& paths)
{
  Model* model = agreedModel("load/unload");
  if (!model) return false;
  const WaitCursor cursor;
  dropExternals(*model, paths);
  return true;
}

bool FileOperations::redirectExternals(const std::string& path, const std::string& newPath, bool synchronous)
{
  Model* model = agreedModel("load/unload");
  if (!model) return false;
  if (!nalt::redirectExternals(*model, path, newPath)) {
    gui_.warning("Couldn't refer to " + newPath + ".\nThe path has more than 199 bytes, or it is the same.");
    return false;
  }
  return runExternals(FileOperationKind::loadExternals, *model, {newPath}, synchronous);
}

bool FileOperations::reloadChangedExternals(bool synchronous)
{
  Model* model = gui_.currentModel();
  if (busy() || !model || !model->fltFile() || !Preferences::get().reloadExternals) return false;
  std::vector<std::string> changed = model->fltFile()->changedExternals();
  std::erase_if(changed, [&](const std::string& path) { return !declined_.isNew(*model, path); });
  if (changed.empty()) return false;
  if (gui_.ask("At least one external reference was changed on disk. Do you want to reload changed external "
               "references? Note that the command list will be erased.") != Answer::yes) {
    for (const std::string& path : changed)
      declined_.add(*model, path);
    return false;
  }
  dropExternals(*model, changed);
  return runExternals(FileOperationKind::revertExternals, *model, changed, synchronous);
}

bool FileOperations::runExternals(FileOperationKind kind, Model& model, const std::vector<std::string>& paths,
                                  bool synchronous)
{
  auto job = makeJob(kind, model.path());
  job->model = &model;
  job->externals = paths;
  job->options.loadExternals = job->options.loadExternals || kind == FileOperationKind::loadExternals;
  return run(std::move(job), synchronous);
}

} // namespace nalt
