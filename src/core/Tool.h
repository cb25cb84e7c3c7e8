#pragma once

#include "core/Gizmo.h"

#include <osg/Group>
#include <osg/Vec2d>
#include <osg/Vec3d>
#include <osg/ref_ptr>

#include <string>

class Fl_Widget;

namespace fltapi {
class FltFile;
}

namespace osgUtil {
class SceneView;
}

namespace nalt {

class Model;
class SelectionSet;

/// What a tool button that is down stands for. It takes picks and drags from the viewports of its model and turns them
/// into edits, and each finished gesture into one Command. A model owns at most one.
///
/// The middle mouse button gives a tool one first pick, then any number of drags, and with `released()` set one more
/// first pick (or, where the mouse is on nothing, a drag by nothing). Positions are in the coordinates of the whole
/// model, window positions in pixels of the viewport with y upward.
class Tool {
public:
  enum class Writes { nothing, records };

  /// @param writes a tool that writes to records refuses what belongs to external references
  explicit Tool(Writes writes) : writes_(writes) {}
  virtual ~Tool();
  Tool(const Tool&) = delete;
  Tool& operator=(const Tool&) = delete;

  // Input. Tools take what they need and leave out the rest.
  virtual void firstPick(const osg::Vec3d& /*position*/) {}
  virtual void drag(const osg::Vec3d& /*delta*/) {}
  virtual void firstPick(const osg::Vec2d& /*window*/) {}
  virtual void drag(const osg::Vec2d& /*delta*/) {}
  /// The middle button went up with Ctrl held. True when that ended something and the pivot is to stay.
  virtual bool finish() { return false; }
  /// The axis that the user picked as an edge, of any length.
  virtual void axisPicked(const osg::Vec3d& /*axis*/) {}

  /// Does the work, unless it is being done already or `wantsRun` is false, with the wait cursor meanwhile.
  void perform();

  // What others tell the tool
  virtual void selectionChanged();
  /// Null takes the tool off its model.
  virtual void setModel(Model* model);
  /// After an undo or redo: panel and gizmo take over what has changed.
  virtual void refresh() {}
  /// The tool's own panel, if it has one, goes into the main window.
  virtual void attachPanel() {}

  // What it shows
  virtual void redraw();
  /// Draws over the finished picture of a viewport, in pixels with y upward.
  virtual void drawOverlay(osgUtil::SceneView& /*view*/) {}
  /// The sentence of guidance for the status line when the tool starts.
  virtual std::string statusText() const { return {}; }
  /// Null for tools without a panel.
  virtual Fl_Widget* panel() { return nullptr; }

  // How the viewports treat it
  /// Picked positions are those of the surface under the mouse.
  virtual bool plantsOnSurface() const { return false; }
  bool writesRecords() const { return writes_ == Writes::records; }
  /// The gesture is over: what was changed so far becomes a command.
  bool released() const { return released_; }
  void setReleased(bool released) { released_ = released; }
  Gizmo* gizmo() const { return gizmo_.get(); }
  /// Holds what the tool adds to the scene of its model.
  osg::Group& sceneGroup() { return *sceneGroup_; }

protected:
  virtual void run() = 0;
  virtual bool wantsRun() const { return true; }
  void setGizmo(Gizmo* gizmo);

  // Null without a model.
  Model* model() const { return model_; }
  fltapi::FltFile* file() const;
  SelectionSet* selections() const;

private:
  Model* model_ = nullptr;
  osg::ref_ptr<osg::Group> sceneGroup_ = new osg::Group;
  osg::ref_ptr<Gizmo> gizmo_;
  Writes writes_;
  bool released_ = false;
  bool running_ = false;
};

} // namespace nalt
