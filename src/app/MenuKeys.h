#pragma once

class Fl_Window;

namespace nalt {

/// A key that was pressed while a menu of the bar is open.
///
/// FLTK is mended in two ways. It looks for the small letter in all open menus first, the bar among them, and for the
/// capital only then, so that a title like "S&cript" would take the "C" away from entries: here the capital comes
/// first. And it crashes on a key that comes before the menu of the last one is there, as when a slow picture makes
/// them wait: here each key has a turn of the event loop of its own.
int sendToOpenMenu(Fl_Window* window);

} // namespace nalt
