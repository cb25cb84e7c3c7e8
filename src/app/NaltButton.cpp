#include "app/NaltButton.h"

#include "core/drawing/Icons.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>

namespace nalt {

namespace {

constexpr int pictureSize = 24;
constexpr int smallestPicture = 8;

} // namespace

NaltButton::NaltButton(int x, int y, const char* picture, const char* tooltipText)
    : Fl_Button(x, y, size, size), picture_(picture)
{
  setPicture();
  tooltip(tooltipText);
  color(FL_BACKGROUND_COLOR);
  down_color(FL_SELECTION_COLOR);
  clear_visible_focus();
}

void NaltButton::setPicture()
{
  const int length = std::clamp(std::min(w(), h()) - 4, smallestPicture, pictureSize);
  image(icon(picture_, length));
  deimage(disabledIcon(picture_, length));
}

void NaltButton::resize(int newX, int newY, int newW, int newH)
{
  const bool other = newW != w() || newH != h();
  Fl_Button::resize(newX, newY, newW, newH);
  if (other) setPicture();
}

int NaltButton::handle(int event)
{
  if (event == FL_ENTER || event == FL_LEAVE) {
    hovered_ = event == FL_ENTER;
    redraw();
    return 1;
  }
  return Fl_Button::handle(event);
}

void NaltButton::draw()
{
  fl_rectf(x(), y(), w(), h(), color());
  if (value()) {
    fl_rectf(x() + 1, y() + 1, w() - 2, h() - 2, fl_color_average(down_color(), FL_WHITE, 0.28F));
    fl_rect(x() + 1, y() + 1, w() - 2, h() - 2, fl_color_average(down_color(), FL_WHITE, 0.75F));
  } else if (hovered_ && active_r()) {
    fl_rectf(x() + 1, y() + 1, w() - 2, h() - 2, fl_color_average(color(), FL_WHITE, 0.45F));
    fl_rect(x() + 1, y() + 1, w() - 2, h() - 2, fl_color_average(color(), FL_BLACK, 0.75F));
  }
  draw_label();
}

} // namespace nalt
