#include "app/PaletteButtons.h"

#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "core/Model.h"

#include <FL/fl_draw.H>

namespace nalt {

void ColorStripButton::setStrip(std::optional<Fl_Color> color)
{
  if (strip_ == color) return;
  strip_ = color;
  redraw();
}

void ColorStripButton::draw()
{
  constexpr int margin = 5;
  constexpr int height = 6;
  Fl_Button::draw();
  if (!strip_) return;
  const int top = y() + h() - margin - height;
  fl_rectf(x() + margin, top, w() - 2 * margin, height, *strip_); // in full also where the button is inactive
  fl_rect(x() + margin, top, w() - 2 * margin, height, fl_color_average(FL_BLACK, color(), 0.5F));
}

std::optional<Fl_Color> currentColorShown(Model* model)
{
  if (!model) return std::nullopt;
  const auto color = model->paletteIndices().currentColor();
  return fl_rgb_color(color.r, color.g, color.b); // FL_BLACK for black: the number 0 would mean another color
}

void updatePaletteButtons(const Gui& gui)
{
  GuiWidgets::get().palettes.front()->setStrip(currentColorShown(gui.currentModel()));
}

} // namespace nalt
