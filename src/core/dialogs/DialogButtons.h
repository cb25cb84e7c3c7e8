#pragma once

#include <deque>
#include <functional>
#include <vector>

class Fl_Button;
class Fl_Widget;

namespace nalt {

/// Keeps what widgets do when they are used; lives as long as they do.
class Actions {
public:
  Actions() = default;
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;

  void connect(Fl_Widget& widget, std::function<void()> run);

private:
  std::deque<std::function<void()>> runs_; // FLTK keeps pointers to them
};

/// Lets the user use `widget`, or not.
void setActive(Fl_Widget& widget, bool active);

struct DialogButton {
  const char* label; ///< "&" in front of its key
  std::function<void()> run;
  bool isDefault = false; ///< Return presses it
  const char* tooltip = nullptr;
};

/// Makes a row of buttons at the right end of the lower edge of a window of that size, in that order, in the current
/// group.
std::vector<Fl_Button*> addDialogButtons(int width, int height, Actions& actions, std::vector<DialogButton> buttons);

} // namespace nalt
