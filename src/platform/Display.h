#pragma once

namespace nalt {

/// Whether a window could be opened now: connects to the display that the environment names, and leaves it again.
/// To be asked before FLTK, which ends the process when there is no display.
bool displayAvailable();

} // namespace nalt
