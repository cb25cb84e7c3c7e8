#pragma once

#include <FL/Enumerations.H>

class Fl_Box;

namespace nalt {

/// Makes a line of text in the current group, one row high. What doesn't fit is cut off. A text that changes, a path
/// say, is `plain`: "@" and "&" in it mean themselves.
Fl_Box* addDialogText(int x, int y, int w, const char* text, Fl_Align align = FL_ALIGN_LEFT, bool plain = false);

} // namespace nalt
