#pragma once

#include "scene/view/ModManipulator.h"

class Fl_Window;

namespace nalt {

/// Shows in `window` what a drag does to the camera; `none` gives the default cursor back. Does nothing for a window
/// that isn't shown.
void showCameraCursor(Fl_Window& window, CameraGesture gesture);

} // namespace nalt
