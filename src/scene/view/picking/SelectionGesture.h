#pragma once

#include "scene/view/picking/MouseModifiers.h"
#include "scene/view/picking/PickFrustum.h"

#include <optional>

namespace nalt {

class Viewport;

/// The left mouse button in one viewport: a click or a rubber band selects when the button goes up. Window places are
/// in pixels with y upward.
class SelectionGesture {
public:
  explicit SelectionGesture(Viewport& viewport) : viewport_(viewport) {}

  void press(const osg::Vec2d& window);
  void drag(const osg::Vec2d& window);
  /// Selects what is under the mouse or in the band instead of what was selected; with Shift beside it, with Alt the
  /// contrary, and with Ctrl each element changes sides. A double click opens the attributes of what it hit, too.
  void release(const osg::Vec2d& window, const MouseModifiers& modifiers, bool doubleClick);
  /// Nothing is going to be selected.
  void cancel();

  /// From press to release, to be drawn over the picture.
  const std::optional<WindowRect>& band() const { return band_; }
  /// The next press gives the current tool an edge as axis, and leaves the selection alone.
  void pickAxis() { picksAxis_ = true; }
  bool picksAxis() const { return picksAxis_; }

private:
  void giveAxis(const WindowRect& rect);
  void select(const WindowRect& rect, const MouseModifiers& modifiers, bool doubleClick);

  Viewport& viewport_;
  std::optional<WindowRect> band_;
  bool picksAxis_ = false;
};

} // namespace nalt
