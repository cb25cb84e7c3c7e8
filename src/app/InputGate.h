#pragma once

namespace nalt {

/// From now on the main window and its viewports ignore mouse and keys while a file operation runs, so that nobody
/// edits what a worker reads. The menu bar and the upper tool bar stay open: what could disturb is off there.
void installInputGate();

} // namespace nalt
