#include "core/dialogs/ColorButton.h"

#include <FL/Fl.H>
#include <FL/Fl_Color_Chooser.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>
#include <utility>

namespace nalt {

namespace {

uchar byteOf(float part)
{
  return static_cast<uchar>(std::lround(std::clamp(part, 0.0F, 1.0F) * 255.0F));
}

} // namespace

ColorButton::ColorButton(int x, int y, int w, int h, std::string title)
    : Fl_Button(x, y, w, h), title_(std::move(title))
{
  callback([](Fl_Widget* widget, void*) { static_cast<ColorButton*>(widget)->choose(); });
}

void ColorButton::setRgb(const osg::Vec3f& rgb)
{
  rgb_ = rgb;
  redraw();
}

void ColorButton::choose()
{
  double r = rgb_.x();
  double g = rgb_.y();
  double b = rgb_.z();
  if (!fl_color_chooser(title_.c_str(), r, g, b)) return;
  setRgb(osg::Vec3f(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b)));
  if (onChange) onChange();
}

void ColorButton::draw()
{
  constexpr int frame = 4;
  draw_box();
  const bool usable = active_r() != 0;
  const Fl_Color shown = fl_rgb_color(byteOf(rgb_.x()), byteOf(rgb_.y()), byteOf(rgb_.z()));
  fl_rectf(x() + frame, y() + frame, w() - 2 * frame, h() - 2 * frame, usable ? shown : fl_inactive(shown));
  fl_rect(x() + frame, y() + frame, w() - 2 * frame, h() - 2 * frame, fl_color_average(FL_BLACK, color(), 0.5F));
  if (Fl::focus() == this) draw_focus();
}

} // namespace nalt
