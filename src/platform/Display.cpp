#include "platform/Display.h"

#include <X11/Xlib.h>

namespace nalt {

bool displayAvailable()
{
  ::Display* display = XOpenDisplay(nullptr);
  if (!display) return false;
  XCloseDisplay(display);
  return true;
}

} // namespace nalt
