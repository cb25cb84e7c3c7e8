#include "app/SoftBox.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

namespace nalt {

namespace {

void draw(int x, int y, int w, int h, Fl_Color color)
{
  fl_rectf(x, y, w, h, color);
  fl_rect(x, y, w, h, fl_color_average(color, FL_BLACK, 0.7F));
}

} // namespace

Fl_Boxtype softBox()
{
  static const bool once = (Fl::set_boxtype(FL_FREE_BOXTYPE, draw, 1, 1, 2, 2), true);
  (void)once;
  return FL_FREE_BOXTYPE;
}

} // namespace nalt
