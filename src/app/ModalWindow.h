#pragma once

#include <FL/Fl_Double_Window.H>

namespace nalt {

/// A dialog that keeps everything else waiting until it is hidden. Stands centred over the main window.
class ModalWindow : public Fl_Double_Window {
public:
  ModalWindow(int w, int h, const char* title);

  /// Shows the window and comes back when it is hidden again.
  void runModal();
};

} // namespace nalt
