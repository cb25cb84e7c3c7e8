#pragma once

namespace nalt {

/// Keys that are held while the mouse is used.
struct MouseModifiers {
  bool shift = false;
  bool ctrl = false;
  bool alt = false;

  /// Of FLTK's current event.
  static MouseModifiers now();
};

} // namespace nalt
