#include "script/bindings/ModelBindings.h"

#include "fltapi/OpcodeTable.h"
#include "script/bindings/BindingSupport.h"

namespace nalt::bindings {

namespace {

constexpr double programVersion = 2.9;

bool refuseSameName(const std::string& filename)
{
  Shell::get().warning("Can't create multiple models with the same filename " + filename + ".");
  return false;
}

std::string withFltExtension(const std::string& filename)
{
  const bool has = filename.ends_with(".flt") || filename.ends_with(".FLT");
  return has ? filename : filename + ".flt";
}

int getVersion(lua_State* lua)
{
  lua_pushnumber(lua, ScriptRun::active() ? programVersion : 0.0);
  return 1;
}

int newModel(lua_State* lua)
{
  auto* run = ScriptRun::active();
  if (!run) return giveBoolean(lua, false);
  const auto filename = fileArgument(lua, 1);
  answerWith(Answer::yes);
  if (run->modelNamed(filename)) return giveBoolean(lua, refuseSameName(filename));
  auto* model = Shell::get().newModel(filename);
  if (model) run->enter(*model);
  return giveBoolean(lua, model != nullptr);
}

int openModel(lua_State* lua)
{
  auto* run = ScriptRun::active();
  if (!run) return giveBoolean(lua, false);
  const auto filename = fileArgument(lua, 1);
  answerWith(Answer::yes);
  if (auto* model = run->modelNamed(filename)) {
    run->setCurrent(*model);
    return giveBoolean(lua, true);
  }
  if (!Shell::get().openModel(filename, /*synchronous=*/true)) return giveBoolean(lua, false);
  auto* model = Shell::get().currentModel();
  const bool opened = model && model->path() == filename;
  if (opened) run->enter(*model);
  return giveBoolean(lua, opened);
}

int saveModel(lua_State* lua)
{
  if (!runWithModel()) return giveBoolean(lua, false);
  const int version = integerArgument(lua, 1, fltapi::currentVersion);
  answerWith(Answer::yes);
  return giveBoolean(lua, Shell::get().saveModel(version, /*synchronous=*/true));
}

int saveModelAs(lua_State* lua)
{
  auto* run = runWithModel();
  if (!run) return giveBoolean(lua, false);
  const auto filename = withFltExtension(fileArgument(lua, 1));
  const int version = integerArgument(lua, 2, fltapi::currentVersion);
  answerWith(Answer::yes);
  const auto* other = run->modelNamed(filename);
  if (other && other != run->currentModel()) return giveBoolean(lua, refuseSameName(filename));
  const bool saved = Shell::get().saveModelAs(filename, version, /*synchronous=*/true);
  if (saved) run->rename();
  return giveBoolean(lua, saved);
}

int saveAllModels(lua_State* lua)
{
  auto* run = ScriptRun::active();
  if (!run) return giveBoolean(lua, false);
  auto* before = run->currentModel();
  bool all = true;
  for (const auto& [filename, model] : run->models()) {
    run->setCurrent(*model);
    answerWith(Answer::yes);
    all = Shell::get().saveModel(fltapi::currentVersion, /*synchronous=*/true) && all;
  }
  if (before) run->setCurrent(*before);
  return giveBoolean(lua, before && all);
}

int isModelUnsaved(lua_State* lua)
{
  const auto* run = runWithModel();
  return giveBoolean(lua, run && run->currentModel()->isDirty());
}

int closeModel(lua_State*)
{
  auto* run = runWithModel();
  if (!run) return 0;
  answerWith(Answer::no);
  if (Shell::get().closeModel()) run->dropCurrent();
  return 0;
}

int closeAllModels(lua_State*)
{
  auto* run = ScriptRun::active();
  if (!run) return 0;
  while (!run->models().empty()) {
    run->setCurrent(*run->models().begin()->second);
    answerWith(Answer::no);
    if (!Shell::get().closeModel()) break;
    run->dropCurrent();
  }
  return 0;
}

int setCurrentModel(lua_State* lua)
{
  auto* run = ScriptRun::active();
  if (!run) return giveBoolean(lua, false);
  auto* model = run->modelNamed(fileArgument(lua, 1));
  if (model) run->setCurrent(*model);
  return giveBoolean(lua, model != nullptr);
}

int getCurrentModelFilename(lua_State* lua)
{
  const auto* run = runWithModel();
  return giveText(lua, run ? run->currentFilename() : std::string{});
}

constexpr Binding table[] = {
    {"getVersion", getVersion},
    {"newModel", newModel},
    {"openModel", openModel},
    {"saveModel", saveModel},
    {"saveModelAs", saveModelAs},
    {"saveAllModels", saveAllModels},
    {"isModelUnsaved", isModelUnsaved},
    {"closeModel", closeModel},
    {"closeAllModels", closeAllModels},
    {"setCurrentModel", setCurrentModel},
    {"getCurrentModelFilename", getCurrentModelFilename},
};

} // namespace

std::span<const Binding> modelBindings()
{
  return table;
}

} // namespace nalt::bindings
