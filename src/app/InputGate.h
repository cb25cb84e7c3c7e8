#pragma once

#include <optional>

class Fl_Window;

namespace nalt {

/// While a file operation runs the main window and its viewports ignore mouse and keys, so that nobody edits what a
/// worker reads. The menu bar and the upper tool bar stay open: what could disturb is off there. Gives what to answer
/// to an event of FLTK for `window`; nothing when the event may go on.
std::optional<int> answerOfInputGate(int event, Fl_Window* window);

} // namespace nalt
