#pragma once

#include "core/Gizmo.h"
#include "scene/view/picking/MouseModifiers.h"

#include <optional>
#include <osg/Vec2d>
#include <osg/Vec3d>
#include <osg/ref_ptr>

namespace nalt {

class Tool;
class Viewport;

/// The middle mouse button in one viewport: it works the gadgets of the current tool, gives the tool positions, moves
/// the pivot with Ctrl, and sets the points by which the grid is aligned. Window places are in pixels with y upward.
class ToolGesture {
public:
  explicit ToolGesture(Viewport& viewport) : viewport_(viewport) {}

  void press(const osg::Vec2d& window, const MouseModifiers& modifiers);
  void drag(const osg::Vec2d& window, const MouseModifiers& modifiers);
  void release(const osg::Vec2d& window, const MouseModifiers& modifiers);
  /// The mouse moves with no button down: the gadget under it shows that it is there.
  void hover(const osg::Vec2d& window);
  /// The mouse left the window.
  void leave();

  /// The last position that a tool was given; null before the first.
  const std::optional<osg::Vec3d>& lastPosition() const { return lastPosition_; }

private:
  /// What the mouse points at. Nothing at all ends the event without a word to the tool; a place without a position has
  /// the tool see the window alone.
  struct Target {
    bool exists = true;
    std::optional<osg::Vec3d> position;
  };

  Tool* tool() const;
  /// Of the current tool, which has a gizmo.
  Gadget* gadgetAt(const MouseRay& ray) const;
  bool gridWants() const;
  bool beginGadget(const osg::Vec2d& window);
  bool endGadget(const osg::Vec2d& window);
  void highlight(Gadget* gadget);
  Target targetAt(const osg::Vec2d& window) const;
  std::optional<osg::Vec3d> cornerForDrag(const osg::Vec2d& window) const;
  void deliver(const std::optional<osg::Vec3d>& position, const osg::Vec2d& window, bool release);
  void deliverDrag(const std::optional<osg::Vec3d>& position, const osg::Vec2d& window);
  void note(const osg::Vec3d& position, bool isNew);
  void finishOrMovePivot(const osg::Vec2d& window, bool ofWhatIsHit);

  Viewport& viewport_;
  osg::ref_ptr<Gadget> hovered_;
  const Tool* hoveredBy_ = nullptr; ///< the tool that the gadget belongs to; for comparison only
  osg::ref_ptr<Gadget> dragged_;
  Tool* user_ = nullptr;             ///< the tool that has had the first pick of this gesture; for comparison only
  bool hasPosition_ = false;         ///< it got one with that
  std::optional<osg::Vec3d> corner_; ///< the one that the gesture with Shift took hold of
  std::optional<osg::Vec3d> lastPosition_;
  osg::Vec2d lastWindow_;
};

} // namespace nalt
