#pragma once

class Fl_Widget;

namespace nalt {

/// Whether the keys go into a text: a field that can be written, or an editor.
bool isTyping();

/// Gives the keys to `widget`, unless a modal window that it isn't in has them: FLTK would then send them to `widget`
/// all the same, and the window could no longer be answered by a key.
void giveKeysTo(Fl_Widget& widget);

} // namespace nalt
