#include "app/Action.h"

#include "app/Gui.h"
#include "core/Model.h"

namespace nalt {

namespace when {

bool always(const Gui&)
{
  return true;
}

bool never(const Gui&)
{
  return false;
}

bool idle(const Gui& gui)
{
  return !gui.files().busy();
}

bool model(const Gui& gui)
{
  return gui.currentModel() != nullptr;
}

bool idleModel(const Gui& gui)
{
  return model(gui) && idle(gui);
}

bool revertable(const Gui& gui)
{
  return idleModel(gui) && !gui.currentModel()->isNew();
}

bool severalModels(const Gui& gui)
{
  return gui.modelCount() > 1;
}

bool viewport(const Gui& gui)
{
  return model(gui) && gui.currentModel()->activeViewport() != nullptr;
}

bool selection(const Gui& gui)
{
  return idleModel(gui) && !gui.currentModel()->selections().empty();
}

bool undoable(const Gui& gui)
{
  return idleModel(gui) && !gui.currentModel()->commandStack().undoCommands().empty();
}

bool redoable(const Gui& gui)
{
  return idleModel(gui) && !gui.currentModel()->commandStack().redoCommands().empty();
}

bool recentFiles(const Gui& gui)
{
  return !gui.recentFiles().paths().empty();
}

} // namespace when

namespace {

constexpr const char* notThere = "not in this version";

}

const char* whyNot(Operation run, Condition enabled, const Gui& gui)
{
  return run ? whyNotOpen(enabled, gui) : notThere;
}

const char* whyNotOpen(Condition enabled, const Gui& gui)
{
  if (enabled(gui)) return nullptr;
  if (enabled == when::never) return notThere;
  if (enabled == when::recentFiles) return "no file was opened yet";
  if (!when::model(gui)) return "no model is open";
  if (enabled == when::severalModels) return "there is no other model";
  if (!when::idle(gui)) return "a file operation is running";
  if (enabled == when::revertable) return "the model has no file yet";
  if (enabled == when::selection) return "nothing is selected";
  if (enabled == when::undoable) return "nothing to undo";
  if (enabled == when::redoable) return "nothing to redo";
  return "no viewport is active";
}

std::string withReason(const std::string& name, const char* reason)
{
  return reason ? name + " (" + reason + ")" : name;
}

} // namespace nalt
