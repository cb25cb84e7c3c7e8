#pragma once

#include "app/SettingsFile.h"

namespace nalt {

class Gui;

/// What an interactive run takes over from the one before: preferences, recent files, the main window's place.
struct Session {
  Settings settings;
  SettingsFile::Result result;
};

/// Reads the settings file and puts its preferences and recent files in force.
Session restoreSession(Gui& gui);

/// Places the shown main window as it was, or leaves it in the middle of the screen; never with its title bar above it.
void placeMainWindow(const Session& session);

/// Writes the settings file with what is in force now.
void saveSession(const Gui& gui);

/// Removes what the help server of a newer version left beside the settings file at `path`.
void removeHelpServerFiles(const std::string& path);

} // namespace nalt
