#pragma once

#include <FL/Enumerations.H>

namespace nalt {

/// The type of a label in a menu that keeps away from the key behind it. FLTK's own touches the key where a check mark
/// stands before the label. Made when it is first asked for.
Fl_Labeltype menuLabel();

} // namespace nalt
