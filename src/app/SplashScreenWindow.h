#pragma once

#include <FL/Fl_Double_Window.H>

#include <memory>

class Fl_RGB_Image;

namespace nalt {

/// The picture that greets the user, in the middle of the screen. A click hides it. Needs a display.
class SplashScreenWindow : public Fl_Double_Window {
public:
  SplashScreenWindow();
  ~SplashScreenWindow() override;
  int handle(int event) override;

private:
  std::unique_ptr<Fl_RGB_Image> picture_;
};

} // namespace nalt
