#pragma once

class Fl_Widget;

namespace nalt {

/// Whether the keys go into a text: a field that can be written, or an editor.
bool isTyping();

/// Gives the keys to `widget`, unless another window has them or must be answered first: FLTK would send the keys of
/// that window past it, so that it couldn't even be closed by one.
void giveKeysTo(Fl_Widget& widget);

} // namespace nalt
