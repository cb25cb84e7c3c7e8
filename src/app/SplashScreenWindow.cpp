#include "app/SplashScreenWindow.h"

#include "app/Version.h"
#include "core/drawing/Icons.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>

namespace nalt {

namespace {

constexpr int width = 320;
constexpr int height = 200;

} // namespace

SplashScreenWindow::SplashScreenWindow()
    : Fl_Double_Window(Fl::w() / 2 - width / 2, Fl::h() / 2 - height / 2, width, height, "Welcome to Nalt"),
      picture_(makeIcon("splash", width, height))
{
  border(0);
  auto* picture = new Fl_Box(0, 0, width, height);
  picture->image(picture_.get());
  auto* version = new Fl_Box(75, 52, 75, 20, versionLabel);
  version->labelfont(FL_HELVETICA_BOLD);
  version->labelsize(14);
  version->labelcolor(FL_BLACK);
  version->align(FL_ALIGN_INSIDE | FL_ALIGN_BOTTOM_LEFT);
  end();
}

SplashScreenWindow::~SplashScreenWindow() = default;

int SplashScreenWindow::handle(int event)
{
  if (event != FL_PUSH) return Fl_Double_Window::handle(event);
  hide();
  return 1;
}

} // namespace nalt
