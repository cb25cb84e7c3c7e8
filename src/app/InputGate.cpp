#include "app/InputGate.h"

#include "app/Gui.h"
#include "app/GuiWidgets.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>

namespace nalt {

namespace {

constexpr double focusDelay = 0.2; // seconds, in which a dialog that gave the focus back is gone

bool isInput(int event)
{
  switch (event) {
  case FL_PUSH:
  case FL_DRAG:
  case FL_RELEASE:
  case FL_MOUSEWHEEL:
  case FL_KEYDOWN:
  case FL_SHORTCUT:
    return true;
  default:
    return false;
  }
}

bool isInMainWindow(const Fl_Window* window)
{
  while (window && window->window())
    window = window->window();
  return window && window == GuiWidgets::get().mainWindow;
}

/// Whether the mouse is on something that may be used at any time.
bool isOnOpenBar(const Fl_Window* window)
{
  const GuiWidgets& widgets = GuiWidgets::get();
  return window == widgets.mainWindow && (Fl::event_inside(widgets.menuBar) || Fl::event_inside(widgets.upperToolBar));
}

void lookForChanges(void*)
{
  Fl_Window* const main = GuiWidgets::get().mainWindow;
  if (main && main->shown() && !Fl::modal() && !Fl::grab())
    Gui::get().files().reloadChangedExternals(/*synchronous=*/false);
}

} // namespace

std::optional<int> answerOfInputGate(int event, Fl_Window* window)
{
  // Back from another program, which may have changed a file. Asking must wait until this event is over.
  if (event == FL_FOCUS && isInMainWindow(window) && !Fl::has_timeout(lookForChanges))
    Fl::add_timeout(focusDelay, lookForChanges);
  const bool closed = isInput(event) && isInMainWindow(window) && !Fl::grab() && Gui::get().files().busy();
  if (!closed) return std::nullopt;
  if (event == FL_KEYDOWN || event == FL_SHORTCUT) {
    GuiWidgets::get().menuBar->handle(FL_SHORTCUT);
    return 1;
  }
  return isOnOpenBar(window) ? std::nullopt : std::optional(1);
}

} // namespace nalt
