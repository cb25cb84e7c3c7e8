#pragma once

#include <FL/Fl_Double_Window.H>

#include <string>

class Fl_Box;
class Fl_Progress;

namespace nalt {

/// Says what the program is busy with and how far it has come. It doesn't lock the other windows: the main window
/// ignores input by itself while an operation runs.
class ProgressWindow : public Fl_Double_Window {
public:
  ProgressWindow();

  /// Shows the window over the main one with the bar at 0, wide enough for `text`.
  void begin(const std::string& text);
  /// From 0 to 100. Redraws only when the bar would look different.
  void setProgress(double percent);
  void end();

private:
  Fl_Box* label_;
  Fl_Progress* bar_;
  int smallestLabel_;
};

} // namespace nalt
