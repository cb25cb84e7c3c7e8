#include "app/GuiWidgets.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include <algorithm>

namespace nalt {

GuiWidgets& GuiWidgets::get()
{
  static GuiWidgets widgets;
  return widgets;
}

void centreOverMainWindow(Fl_Window& window)
{
  Fl_Window* over = GuiWidgets::get().mainWindow;
  int x = 0, y = 0, w = 0, h = 0;
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

} // namespace nalt
