#pragma once

#include <FL/Fl_Check_Button.H>

namespace nalt {

/// A check button that can't be taken for a radio button: the widget set's scheme rounds its small box to a circle.
class CheckBox : public Fl_Check_Button {
public:
  using Fl_Check_Button::Fl_Check_Button;

protected:
  void draw() override;
};

} // namespace nalt
