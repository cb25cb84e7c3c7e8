#include "app/Action.h"

#include "app/Gui.h"
#include "core/Model.h"

namespace nalt::when {

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

} // namespace nalt::when
