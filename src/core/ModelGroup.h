#pragma once

#include <FL/Fl_Group.H>

namespace nalt {

/// Holds the tabs with the open models, and beside their labels the button that closes the one in front. The tabs fill
/// the group under that button, so the group passes presses on it past them. Files dropped on it are opened.
class ModelGroup : public Fl_Group {
public:
  ModelGroup(int x, int y, int w, int h);

  /// The button is a child of the group; null is allowed.
  void setCloseButton(Fl_Widget* button) { closeButton_ = button; }
  int handle(int event) override;
  /// The button keeps its distance from the upper right corner.
  void resize(int x, int y, int w, int h) override;

private:
  Fl_Widget* closeButton_ = nullptr;
  bool closePressed_ = false;
};

} // namespace nalt
