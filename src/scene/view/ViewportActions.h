#pragma once

#include <FL/Fl_Menu_Item.H>

#include <functional>
#include <span>
#include <vector>

namespace nalt {

class Viewport;

/// One thing that a viewport can do, as its menu, its keys and the main window's Viewport menu offer it.
struct ViewportAction {
  const char* group; ///< submenu, null for the menu itself
  const char* label;
  int key;                             ///< FLTK key, with FL_SHIFT for a capital letter; 0 for none
  void (*run)(Viewport&);              ///< null: not to be had in this program yet, shown inactive
  bool (*isOn)(const Viewport&);       ///< null for what isn't a choice or a switch
  bool isChoice = false;               ///< one of several next to each other rather than a switch
  void (*runKey)(Viewport&) = nullptr; ///< what the key does when it isn't the same as picking the entry
  int otherKey = 0;
};

std::span<const ViewportAction> viewportActions();

/// What lets the user see and change the preferences of a viewport; the window round the viewports sets it. Empty at
/// first: "Viewport Preferences..." does nothing then.
std::function<void(Viewport&)>& viewportPreferencesEditor();

/// The menu of `viewport` with its check marks as they are now, for a pop-up or as part of another menu, with the end
/// mark of FLTK's menus behind it. Without a viewport nothing is on. The user data of an entry is its ViewportAction,
/// its callback is `callback`.
std::vector<Fl_Menu_Item> viewportMenu(const Viewport* viewport, Fl_Callback* callback);

/// Does what `action` says; `byKey` when its key was pressed instead of its entry picked.
void runViewportAction(const ViewportAction& action, Viewport& viewport, bool byKey);

/// Runs the action of the key in FLTK's current event. False when there is none, so that menus can have the key.
bool runViewportKey(Viewport& viewport);

} // namespace nalt
