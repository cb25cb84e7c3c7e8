#pragma once

namespace nalt {

/// Runs the script argv[1] with no window and no display. The exit status of the program.
int runScriptMode(int argc, char** argv);

} // namespace nalt
