#pragma once

#include <FL/Fl_Button.H>
#include <osg/Vec3f>

#include <functional>
#include <string>

namespace nalt {

/// Shows a colour and, pressed, lets the user choose another one. Red, green and blue run from 0 to 1.
class ColorButton : public Fl_Button {
public:
  /// `title` is that of the window in which the colour is chosen.
  ColorButton(int x, int y, int w, int h, std::string title);

  const osg::Vec3f& rgb() const { return rgb_; }
  void setRgb(const osg::Vec3f& rgb);

  /// After the user chose a colour.
  std::function<void()> onChange;

protected:
  void draw() override;

private:
  void choose();

  std::string title_;
  osg::Vec3f rgb_;
};

} // namespace nalt
