#include "core/dialogs/DialogWindow.h"

#include <FL/Fl.H>

#include <algorithm>

namespace nalt {

void placeOver(Fl_Window& window, Fl_Window* over)
{
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
  if (over && over->shown()) {
    Fl::screen_work_area(x, y, w, h, over->x() + over->w() / 2, over->y() + over->h() / 2);
    const int wantedX = over->x() + (over->w() - window.w()) / 2;
    const int wantedY = over->y() + (over->h() - window.h()) / 2;
    window.position(std::clamp(wantedX, x, std::max(x, x + w - window.w())),
                    std::clamp(wantedY, y, std::max(y, y + h - window.h())));
  } else {
    Fl::screen_work_area(x, y, w, h);
    window.position(x + (w - window.w()) / 2, y + (h - window.h()) / 2);
  }
}

DialogWindow::DialogWindow(int w, int h, const char* title) : Fl_Double_Window(w, h, title)
{
  set_non_modal();
}

void DialogWindow::open()
{
  if (!shown()) {
    opening();
    if (!placed_) placeOver(*this, Fl::first_window());
    placed_ = true;
  }
  show();
}

void DialogWindow::hide()
{
  const bool wasShown = shown();
  Fl_Double_Window::hide();
  if (wasShown) closed();
}

} // namespace nalt
