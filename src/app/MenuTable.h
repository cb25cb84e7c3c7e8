#pragma once

#include "app/Action.h"

#include <span>
#include <string>

namespace nalt {

/// One row of the menus, in their order: the title of a submenu, an entry, a place that is filled from elsewhere, or
/// the end of a submenu.
struct MenuRow {
  enum class Kind { submenu, entry, toolGroups, viewportMenu, macros, end };

  Kind kind;
  const char* label = nullptr; ///< with "&" in front of the letter that opens it
  int shortcut = 0;            ///< FLTK key
  Operation run = nullptr;     ///< null: its work isn't in the program yet
  Condition enabled = when::always;
  bool (*isOn)(const Gui&) = nullptr; ///< for check marks
  int flags = 0;                      ///< FLTK's
  /// What stands there instead of `label`, for a name that changes; the entry is hidden while it is empty.
  std::string (*text)(const Gui&) = nullptr;
};

std::span<const MenuRow> menuRows();

} // namespace nalt
