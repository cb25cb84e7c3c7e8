#include "scene/view/CameraCursor.h"

#include <FL/Fl_Window.H>

namespace nalt {

void showCameraCursor(Fl_Window& window, CameraGesture gesture)
{
  if (!window.shown()) return;
  window.cursor(gesture == CameraGesture::none ? FL_CURSOR_DEFAULT : FL_CURSOR_MOVE);
}

} // namespace nalt
