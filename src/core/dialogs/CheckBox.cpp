#include "core/dialogs/CheckBox.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

namespace nalt {

void CheckBox::draw()
{
  constexpr int side = 13;
  constexpr int gap = 4; // around the box
  const bool usable = active_r() != 0;
  const auto shade = [usable](Fl_Color full) { return usable ? full : fl_inactive(full); };
  const int left = x() + 2;
  const int top = y() + (h() - side) / 2;
  draw_box();
  fl_rectf(left, top, side, side, shade(FL_BACKGROUND2_COLOR));
  fl_rect(left, top, side, side, shade(fl_color_average(FL_BLACK, FL_BACKGROUND_COLOR, 0.5F)));
  if (value() != 0) {
    fl_color(shade(FL_BLACK));
    for (int line = 0; line < 3; ++line)
      fl_line(left + 3, top + 5 + line, left + 5, top + 7 + line, left + 9, top + 3 + line);
  }
  const int label = left + side + gap - x();
  draw_label(x() + label, y(), w() - label, h());
  if (Fl::focus() == this) draw_focus();
}

} // namespace nalt
