#include "app/EventHandler.h"

#include "app/Action.h"
#include "app/Commands.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/InputGate.h"
#include "app/MenuKeys.h"
#include "core/KeyboardFocus.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input_.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Text_Display.H>

namespace nalt {

namespace {

EventHandler* installed = nullptr;

bool isInMainWindow(const Fl_Window* window)
{
  while (window && window->window())
    window = window->window();
  return window && window == GuiWidgets::get().mainWindow;
}

/// Ctrl with the keys of the clipboard means the text.
bool isInText()
{
  const Fl_Widget* focus = Fl::focus();
  return dynamic_cast<const Fl_Input_*>(focus) || dynamic_cast<const Fl_Text_Display*>(focus);
}

bool isModifier(int key)
{
  return key >= FL_Shift_L && key <= FL_Alt_R;
}

int sendToMenus()
{
  Fl_Menu_Bar* bar = GuiWidgets::get().menuBar;
  return bar && bar->handle(FL_SHORTCUT) ? 1 : 0;
}

/// Ctrl with a digit is quicker to press than what the menu shows, which has Alt as well.
int sendDigitToMenus()
{
  const int state = Fl::e_state;
  Fl::e_state |= FL_ALT;
  const int used = sendToMenus();
  Fl::e_state = state;
  return used;
}

void deleteSelected()
{
  Gui& gui = Gui::get();
  if (!when::selection(gui)) return;
  commands::deleteSelected(gui);
  gui.updateWidgets();
}

} // namespace

EventHandler::EventHandler() : Fl_Widget(0, 0, 0, 0) {}

EventHandler::~EventHandler()
{
  if (installed != this) return;
  installed = nullptr;
  Fl::event_dispatch(nullptr);
}

EventHandler* EventHandler::get()
{
  return installed;
}

void EventHandler::install()
{
  installed = this;
  Fl::event_dispatch(dispatch);
}

void EventHandler::forget(Fl_Widget& widget)
{
  undoWidgets_.erase(&widget);
  if (keyboardWidget_ == &widget) keyboardWidget_ = nullptr;
}

int EventHandler::handle(int event)
{
  switch (event) {
  case FL_FOCUS:
  case FL_UNFOCUS:
  case FL_DND_ENTER:
  case FL_DND_DRAG:
  case FL_DND_LEAVE:
  case FL_DND_RELEASE:
    return 1;
  case FL_PASTE:
    Shell::get().openDropped(Fl::event_text() ? Fl::event_text() : "");
    return 1;
  case FL_CLOSE:
    Gui::get().exitProgram();
    return 1;
  case FL_SHORTCUT:
    return sendToMenus();
  default:
    return Fl_Widget::handle(event);
  }
}

int EventHandler::dispatch(int event, Fl_Window* window)
{
  if (const auto answer = answerOfInputGate(event, window)) return *answer;
  if (installed && Fl::grab() && event == FL_KEYDOWN) return sendToOpenMenu(window);
  if (!installed || Fl::grab() || Fl::modal()) return Fl::handle_(event, window);
  switch (event) {
  case FL_KEYDOWN:
    return installed->keyDown(window);
  case FL_KEYUP:
    return installed->keyUp(window);
  case FL_CLOSE:
    return isInMainWindow(window) ? installed->handle(event) : Fl::handle_(event, window);
  default:
    return Fl::handle_(event, window);
  }
}

int EventHandler::keyDown(Fl_Window* window)
{
  const int key = Fl::event_key();
  const bool inMainWindow = isInMainWindow(window);
  const bool control = Fl::event_ctrl() && !isModifier(key);
  if (control) {
    if (const int used = controlKey(inMainWindow)) return used;
  }
  if (inMainWindow) {
    const bool isPlain = !Fl::event_ctrl() && !Fl::event_alt();
    if (key == FL_Escape) return 1; // or FLTK closes the window
    if ((key == FL_Delete || key == FL_BackSpace) && isPlain && !isTyping()) {
      deleteSelected();
      return 1;
    }
    if (key == FL_F + 4 && Fl::event_alt()) {
      closes_ = true;
      return 1;
    }
    const Fl_Widget* focus = Fl::focus();
    if (keyboardWidget_ && (!focus || focus == window)) Fl::focus(keyboardWidget_);
  }
  if (const int used = Fl::handle_(FL_KEYDOWN, window)) return used;
  return inMainWindow ? 0 : sendToMenus(); // a floating window has no menus of its own
}

/// What nobody wants goes on like any other key.
int EventHandler::controlKey(bool inMainWindow)
{
  const int key = Fl::event_key();
  if ((key == 'y' || key == 'z') && undoWidgets_.contains(Fl::focus())) return sendToMenus();
  if (key >= '0' && key <= '7' && sendDigitToMenus()) return 1;
  return inMainWindow && !isInText() ? sendToMenus() : 0;
}

int EventHandler::keyUp(Fl_Window* window)
{
  if (closes_ && Fl::event_key() == FL_F + 4) {
    closes_ = false;
    Gui::get().exitProgram();
    return 1;
  }
  return Fl::handle_(FL_KEYUP, window);
}

} // namespace nalt
