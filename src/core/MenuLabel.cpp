#include "core/MenuLabel.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

namespace nalt {

namespace {

constexpr int roomBehind = 14; // pixels

/// Behind the type of tab labels.
constexpr auto type = static_cast<Fl_Labeltype>(FL_FREE_LABELTYPE + 1);

void draw(const Fl_Label* label, int x, int y, int w, int h, Fl_Align align)
{
  fl_font(label->font, label->size);
  fl_color(label->color);
  fl_draw(label->value, x, y, w, h, align, label->image);
}

void measure(const Fl_Label* label, int& w, int& h)
{
  fl_font(label->font, label->size);
  fl_measure(label->value, w, h);
  w += roomBehind;
}

} // namespace

Fl_Labeltype menuLabel()
{
  static const bool once = (Fl::set_labeltype(type, draw, measure), true);
  (void)once;
  return type;
}

} // namespace nalt
