#include "script/bindings/ModelBindings.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "fltapi/OpcodeTable.h"
#include "script/Call.h"
#include "script/ScriptRun.h"

#include <algorithm>

namespace nalt::bindings {

namespace {

constexpr double programVersion = 2.9;
constexpr int oldestVersion = 1570;

bool refuseSameName(const std::string& filename)
{
  Shell::get().warning("Can't create multiple models with the same filename " + filename + ".");
  return false;
}

/// No name stays none: saving says so.
std::string withFltExtension(const std::string& filename)
{
  const bool has = filename.empty() || filename.ends_with(".flt") || filename.ends_with(".FLT");
  return has ? filename : filename + ".flt";
}

int versionOf(const Call& call)
{
  return std::clamp(call.integer("version"), oldestVersion, static_cast<int>(fltapi::currentVersion));
}

bool makeModel(ScriptRun& run, const std::string& filename)
{
  if (run.modelNamed(filename)) return refuseSameName(filename);
  auto* model = Shell::get().newModel(filename);
  if (model) run.enter(*model);
  return model != nullptr;
}

bool open(ScriptRun& run, const std::string& filename)
{
  if (auto* model = run.modelNamed(filename)) {
    run.setCurrent(*model);
    return true;
  }
  if (!Shell::get().openModel(filename, /*synchronous=*/true)) return false;
  auto* model = Shell::get().currentModel();
  if (!model || model->path() != filename) return false;
  run.enter(*model);
  return true;
}

bool saveAs(ScriptRun& run, const std::string& filename, int version)
{
  if (filename.empty()) {
    Shell::get().warning("Empty filename.");
    return false;
  }
  const auto* other = run.modelNamed(filename);
  if (other && other != run.currentModel()) return refuseSameName(filename);
  if (!Shell::get().saveModelAs(filename, version, /*synchronous=*/true)) return false;
  run.rename();
  return true;
}

bool saveAll(ScriptRun& run)
{
  auto* before = run.currentModel();
  if (!before) return false;
  bool all = true;
  for (const auto& [filename, model] : run.models()) {
    run.setCurrent(*model);
    all = Shell::get().saveModel(fltapi::currentVersion, /*synchronous=*/true) && all;
  }
  run.setCurrent(*before);
  return all;
}

int getVersion(Call& call)
{
  return call.give(programVersion);
}

int newModel(Call& call)
{
  return call.give(makeModel(call.run(), call.text("filename")));
}

int openModel(Call& call)
{
  return call.give(open(call.run(), call.text("filename")));
}

int revertModel(Call& call)
{
  const bool reverted = Shell::get().revertModel(/*synchronous=*/true);
  call.run().replaceCurrent(); // a failure puts the model back
  return call.give(reverted);
}

int saveModel(Call& call)
{
  return call.give(Shell::get().saveModel(versionOf(call), /*synchronous=*/true));
}

int saveModelAs(Call& call)
{
  return call.give(saveAs(call.run(), withFltExtension(call.text("filename")), versionOf(call)));
}

int saveAllModels(Call& call)
{
  return call.give(saveAll(call.run()));
}

int isModelUnsaved(Call& call)
{
  return call.give(call.model().isDirty());
}

int closeModel(Call& call)
{
  call.run().closeCurrent();
  return call.giveNothing();
}

int closeAllModels(Call& call)
{
  call.run().closeAll();
  return call.giveNothing();
}

int setCurrentModel(Call& call)
{
  auto* model = call.run().modelNamed(call.text("filename"));
  if (model) call.run().setCurrent(*model);
  return call.give(model != nullptr);
}

int getCurrentModelFilename(Call& call)
{
  return call.give(call.run().currentFilename());
}

constexpr Binding table[] = {
    {"getVersion", getVersion},
    {"newModel", newModel},
    {"openModel", openModel},
    {"revertModel", revertModel},
    {"saveModel", saveModel},
    {"saveModelAs", saveModelAs},
    {"isModelUnsaved", isModelUnsaved},
    {"closeModel", closeModel},
    {"setCurrentModel", setCurrentModel},
    {"getCurrentModelFilename", getCurrentModelFilename},
    {"saveAllModels", saveAllModels},
    {"closeAllModels", closeAllModels},
};

} // namespace

std::span<const Binding> modelBindings()
{
  return table;
}

} // namespace nalt::bindings
