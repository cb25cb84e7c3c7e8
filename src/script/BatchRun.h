#pragma once

#include <string_view>

namespace nalt {

/// Whether a command line argument is a script to run: it ends in ".lua" or ".LUA".
bool isScript(std::string_view path);

/// Runs the script argv[1] with no window and gives the exit status: 0, or -1 when the script failed. A shell must be
/// installed that needs no display.
int runBatch(int argc, char** argv);

} // namespace nalt
