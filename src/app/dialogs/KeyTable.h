#pragma once

#include <string>

namespace nalt {

/// A key as users read it: "Ctrl+Shift+S", "z", "Shift+Z", "Space". `key` is FLTK's, with its modifiers.
std::string keyInWords(int key);

/// All keys of menus and viewports that do something, as tables in HTML; made from the tables that serve them.
std::string keyTables();

} // namespace nalt
