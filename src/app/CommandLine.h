#pragma once

namespace nalt {

/// What the program does in this run; decided once, from its first argument.
enum class RunMode { help, version, structSizes, script, modeller };

/// `environmentAsksForSizes`: NALT_DEBUG_STRUCT_SIZES is set, to whatever.
RunMode runModeOf(int argc, const char* const* argv, bool environmentAsksForSizes);

/// Says on standard output how the program is called.
void printHelp();

} // namespace nalt
