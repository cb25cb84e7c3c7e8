#pragma once

#include <FL/Fl_Button.H>

namespace nalt {

/// A button of a tool bar: a picture, flat until the mouse is over it. It has no keyboard focus, so that the keys stay
/// with the viewport.
class NaltButton : public Fl_Button {
public:
  static constexpr int size = 30; ///< pixels, both ways

  /// `picture` names a built-in icon, `tooltip` must outlive the button.
  NaltButton(int x, int y, const char* picture, const char* tooltip);

  int handle(int event) override;
  /// Where it is narrow the picture is small.
  void resize(int x, int y, int w, int h) override;

protected:
  void draw() override;

private:
  void setPicture();

  const char* picture_;
  bool hovered_ = false;
};

} // namespace nalt
