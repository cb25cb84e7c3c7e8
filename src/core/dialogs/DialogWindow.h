#pragma once

#include <FL/Fl_Double_Window.H>

namespace nalt {

/// Places `window` over the middle of `over`, or of the screen when there is none that is shown; never outside of the
/// screen. Needs a display.
void placeOver(Fl_Window& window, Fl_Window* over);

/// A window beside the main window. It stays above that one, keeps nothing waiting, and goes away with Escape or its
/// close button. Shown again, it stands where it was.
class DialogWindow : public Fl_Double_Window {
public:
  DialogWindow(int w, int h, const char* title);

  /// Shows the window with fresh content, or brings it to the front.
  void open();
  void hide() override;

protected:
  /// Before the window is shown.
  virtual void opening() {}
  /// After it was hidden; not when it is deleted while it is shown.
  virtual void closed() {}

private:
  bool placed_ = false;
};

} // namespace nalt
