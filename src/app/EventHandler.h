#pragma once

#include <FL/Fl_Widget.H>

#include <set>

class Fl_Window;

namespace nalt {

/// Gets each key of the program's windows first, and decides who else may have it: the menus, the widget with the
/// focus, or nobody. It is never shown. Dialogs that wait for an answer, and menus that are open, keep all keys to
/// themselves.
class EventHandler : public Fl_Widget {
public:
  EventHandler();
  ~EventHandler() override;

  /// The one in force; null before the window is built.
  static EventHandler* get();
  /// From now on every event comes here first.
  void install();

  void draw() override {}
  /// What is meant for the program as a whole: dropped files, and the window's wish to close.
  int handle(int event) override;

  /// Gets the keys while nothing else has the focus; null for nobody.
  void setKeyboardWidget(Fl_Widget* widget) { keyboardWidget_ = widget; }
  /// While `widget` has the focus, Ctrl+Y and Ctrl+Z redo and undo edits of the model instead of typing. It must be
  /// forgotten before it goes.
  void sendUndoToMenus(Fl_Widget& widget) { undoWidgets_.insert(&widget); }
  void forget(Fl_Widget& widget);

private:
  static int dispatch(int event, Fl_Window* window);
  int keyDown(Fl_Window* window);
  int keyUp(Fl_Window* window);
  int controlKey(bool inMainWindow);

  Fl_Widget* keyboardWidget_ = nullptr;
  std::set<const Fl_Widget*> undoWidgets_;
  bool closes_ = false; ///< Alt and F4 are down
};

} // namespace nalt
