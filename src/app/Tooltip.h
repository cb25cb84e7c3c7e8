#pragma once

#include <string>

class Fl_Widget;

namespace nalt {

/// Gives `widget` a tooltip that may change at any time. FLTK remembers the address of a text that it is about to show,
/// so texts given once stay for good: only for texts of which there are few.
void setTooltip(Fl_Widget& widget, const std::string& text);

} // namespace nalt
