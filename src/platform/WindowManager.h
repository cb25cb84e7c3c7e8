#pragma once

/// Talks to the window manager about one window of this process. `display` and `window` are the X server's.
struct _XDisplay;

namespace nalt {

/// Asks for the largest size; without a window manager nothing happens.
void maximizeWindow(_XDisplay* display, unsigned long window);
bool isWindowMaximized(_XDisplay* display, unsigned long window);

} // namespace nalt
