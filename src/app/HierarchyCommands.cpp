#include "app/Commands.h"
#include "app/Gui.h"
#include "core/Model.h"
#include "core/hierarchy/DeleteSelected.h"
#include "core/hierarchy/SetParent.h"
#include "core/hierarchy/Shift.h"

// What changes the place of nodes in the tree.

namespace nalt::commands {

namespace {

void shift(const Gui& gui, Shift direction)
{
  if (Model* model = gui.currentModel()) shiftSelected(*model, direction, /*undoable=*/true);
}

} // namespace

void deleteSelected(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::deleteSelected(*model, /*undoable=*/true);
}

void setParent(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::setParent(*model, /*undoable=*/true);
}

void shiftFarLeft(Gui& gui)
{
  shift(gui, Shift::farLeft);
}

void shiftLeft(Gui& gui)
{
  shift(gui, Shift::left);
}

void shiftRight(Gui& gui)
{
  shift(gui, Shift::right);
}

void shiftFarRight(Gui& gui)
{
  shift(gui, Shift::farRight);
}

} // namespace nalt::commands
