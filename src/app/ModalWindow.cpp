#include "app/ModalWindow.h"

#include "app/GuiWidgets.h"

#include <FL/Fl.H>

#include <algorithm>

namespace nalt {

ModalWindow::ModalWindow(int w, int h, const char* title) : Fl_Double_Window(w, h, title)
{
  set_modal();
}

void ModalWindow::runModal()
{
  centreOverMainWindow(*this);
  show();
  while (shown())
    Fl::wait();
}

} // namespace nalt
