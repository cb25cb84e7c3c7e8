#pragma once

namespace nalt {

class Gui;
struct GuiWidgets;

/// Builds the menu bar of the main window into the current group.
void buildMenuBar(GuiWidgets& widgets);

/// Switches every entry on or off, sets check marks and the names of recent files.
void updateMenuBar(const Gui& gui);

} // namespace nalt
