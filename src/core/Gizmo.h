#pragma once

#include "core/selection/SelectionSet.h"

#include <osg/Geode>
#include <osg/MatrixTransform>
#include <osg/Vec2d>
#include <osg/Vec3d>

namespace nalt {

/// The mouse as a gadget sees it: the line of sight through it in the coordinates of the whole model, and its place in
/// the window in pixels with y upward.
struct MouseRay {
  osg::Vec3d nearPoint;
  osg::Vec3d farPoint;
  osg::Vec2d window;
};

/// One handle of a gizmo: an axis, a plane or a ring that the middle mouse button drags.
class Gadget : public osg::Geode {
public:
  virtual void beginDrag(const MouseRay& mouse) = 0;
  virtual void drag(const MouseRay& mouse) = 0;
  /// The button went up. The tool's release flag is set already.
  virtual void endDrag(const MouseRay& mouse) = 0;
  virtual void reset() = 0;
  /// Shows that the mouse is over it.
  virtual void setHighlighted(bool highlighted) = 0;

protected:
  ~Gadget() override = default;
};

/// The handles that a tool puts at the pivot of the selection. They hang below the tool's scene group.
class Gizmo : public osg::MatrixTransform, public PivotListener {
public:
  /// Follows the pivot of these selections; null for none.
  virtual void setSelectionSet(SelectionSet* selections) = 0;
  /// Takes over from the preferences and the selection whether it is shown, and how large.
  virtual void update() = 0;
  /// The nearest gadget under the mouse, prepared for a drag; null when there is none.
  virtual Gadget* pick(const MouseRay& mouse) = 0;

protected:
  ~Gizmo() override = default;
};

} // namespace nalt
