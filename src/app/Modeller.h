#pragma once

namespace nalt {

/// The interactive program from its first window to its last: builds the main window, opens the files of the command
/// line and runs until the window is closed. Returns the exit status. Without a display it says so and how to do
/// without.
int runModeller(int argc, char** argv);

} // namespace nalt
