#pragma once

namespace nalt {

/// Builds the main window with all that is round the viewports, centred on the screen but not shown, and fills
/// GuiWidgets. Needs a display.
void buildMainWindow();

/// Deletes the main window and clears GuiWidgets.
void destroyMainWindow();

} // namespace nalt
