#pragma once

#include "core/Preferences.h"
#include "scene/view/ViewportPreferences.h"

namespace nalt {

class Gui;
class Viewport;

/// Puts `wanted` in force: on all open models, viewports and command lists at once.
void applyPreferences(Gui& gui, const Preferences& wanted);

/// Puts `wanted` in force for one viewport.
void applyViewportPreferences(Viewport& viewport, const ViewportPreferences& wanted);

} // namespace nalt
