#pragma once

#include <FL/Enumerations.H>

#include <string>

namespace nalt {

/// The type of the main menu's labels. Menus have no tooltips, so while the mouse is on an entry that can't be used the
/// status line says why.
/// @param whyNot what to say about the entry with that very label; empty for one that can be used. Asked while a menu
///               is drawn.
Fl_Labeltype labelWithReason(std::string (*whyNot)(const char* label));

} // namespace nalt
