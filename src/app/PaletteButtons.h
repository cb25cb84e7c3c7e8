#pragma once

#include <FL/Fl_Button.H>

#include <optional>

namespace nalt {

class Gui;
class Model;

/// A button with a strip of color below its label.
class ColorStripButton : public Fl_Button {
public:
  ColorStripButton(int x, int y, int w, int h, const char* label) : Fl_Button(x, y, w, h, label) {}

  /// Without a color there is no strip.
  void setStrip(std::optional<Fl_Color> color);

protected:
  void draw() override;

private:
  std::optional<Fl_Color> strip_;
};

/// The color on the button of the current color: the one that tools put on geometry, none without a model.
std::optional<Fl_Color> currentColorShown(Model* model);

/// Takes the current palette entries of the current model over to their buttons.
void updatePaletteButtons(const Gui& gui);

} // namespace nalt
