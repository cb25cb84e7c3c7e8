#include "scene/view/CameraCursor.h"

#include "core/drawing/Icons.h"

#include <FL/Fl_Window.H>

namespace nalt {

namespace {

constexpr int cursorSize = 24;

const char* pictureOf(CameraGesture gesture)
{
  switch (gesture) {
  case CameraGesture::rotate:
    return "cursor-rotate";
  case CameraGesture::pan:
    return "cursor-pan";
  case CameraGesture::zoomIn:
    return "cursor-zoom-in";
  case CameraGesture::zoomOut:
    return "cursor-zoom-out";
  case CameraGesture::none:
    break;
  }
  return nullptr;
}

} // namespace

void showCameraCursor(Fl_Window& window, CameraGesture gesture)
{
  if (!window.shown()) return;
  const char* picture = pictureOf(gesture);
  if (!picture)
    window.cursor(FL_CURSOR_DEFAULT);
  else
    window.cursor(icon(picture, cursorSize), cursorSize / 2, cursorSize / 2);
}

} // namespace nalt
