#include "app/GuiWidgets.h"

#include "core/dialogs/DialogWindow.h"

namespace nalt {

GuiWidgets& GuiWidgets::get()
{
  static GuiWidgets widgets;
  return widgets;
}

void centreOverMainWindow(Fl_Window& window)
{
  placeOver(window, GuiWidgets::get().mainWindow);
}

} // namespace nalt
