#pragma once

#include "platform/SixAxisDevice.h"

namespace nalt {

class Viewport;

/// From now on a six-axis controller, if the computer has one, moves the camera of the current model's active viewport.
/// A second call does nothing. Needs a display.
void startSixAxisController();

/// What one event of the controller does to `viewport`: motions move the camera, and the "Fit" button frames the model.
void applySixAxisEvent(const SixAxisDevice::Event& event, Viewport& viewport);

} // namespace nalt
