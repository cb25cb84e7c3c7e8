#pragma once

#include "core/Grid.h"
#include "core/VPBase.h"
#include "scene/view/CornerMarks.h"
#include "scene/view/FLTKActionAdapter.h"
#include "scene/view/FLTKEventAdapter.h"
#include "scene/view/GridPlacement.h"
#include "scene/view/ModManipulator.h"
#include "scene/view/Overlays.h"
#include "scene/view/ViewScene.h"
#include "scene/view/ViewportPreferences.h"
#include "scene/view/picking/Picker.h"
#include "scene/view/picking/SelectionGesture.h"
#include "scene/view/picking/ToolGesture.h"

#include <FL/Fl_Gl_Window.H>
#include <osg/FrameStamp>
#include <osg/Image>
#include <osg/Timer>
#include <osgUtil/SceneView>

#include <optional>
#include <string>

namespace nalt {

/// One OpenGL panel that shows one model with a camera of its own. It draws only when something asks for a redraw. Can
/// be made and bound without a display; only drawing needs one.
class Viewport : public Fl_Gl_Window, public VPBase {
public:
  /// `name` says which corner of the model it takes ("ul", "ur", "ll", "lr"); it must outlive the viewport.
  Viewport(int x, int y, int w, int h, const char* name);
  ~Viewport() override;

  // VPBase
  Fl_Widget& widget() override { return *this; }
  bool drawsScene() const override { return true; }
  void bind(Model& model, std::uint32_t bit) override;
  void unbind() override;
  void setActive(bool active) override;
  Grid* grid() override { return &grid_; }
  void gridChanged() override;

  Model* model() const { return model_; }
  bool isActive() const { return active_; }
  /// Takes the keyboard and becomes the active viewport of its model.
  void activate();
  const std::string& name() const { return name_; }
  /// The viewport's own bit in the node masks of the scene; all bits before it is bound.
  std::uint32_t bits() const { return traversalMask_; }
  ModManipulator& camera() { return *camera_; }
  const ModManipulator& camera() const { return *camera_; }
  osgUtil::SceneView& sceneView() { return *sceneView_; }
  ViewScene& scene() { return scene_; }

  const ViewStyle& style() const { return style_; }
  void setStyle(const ViewStyle& style);
  bool orthographic() const { return camera_->lens().orthographic; }
  void setOrthographic(bool orthographic) { camera_->setOrthographic(orthographic); }
  /// A light at the eye, or one that stands still in the sky.
  bool headLight() const;
  void setHeadLight(bool headLight);
  const ViewportPreferences& preferences() const { return preferences_; }
  /// In force at once. A value that nothing can be drawn with is left as it was.
  void setPreferences(const ViewportPreferences& preferences);

  bool showsGrid() const { return grid_.isVisible(); }
  void showGrid(bool shown);
  GridPlacement& gridPlacement() { return gridPlacement_; }
  /// A point that the user picked with the middle mouse button. False unless the grid is shown and waits for one.
  bool gridPoint(const osg::Vec3d& point);
  /// Where a line of sight meets the grid, on a crossing of lines while snapping is on; none for a hidden grid too.
  std::optional<osg::Vec3d> pointOnGrid(const osg::Vec3d& nearPoint, const osg::Vec3d& farPoint) const;
  bool snapsToGrid() const;

  /// The rectangle that is being drawn with the mouse; none at the end of the drag.
  void setRubberBand(const std::optional<RubberBand>& band);

  // What is under the mouse. Window places in pixels, y upward.
  WindowProjection projection() const;
  Picker picker() const;
  /// What the rectangle holds of the current pick mode; null for nothing.
  std::unique_ptr<Selection> pick(const WindowRect& rect) const;
  SelectionGesture& selectionGesture() { return selectionGesture_; }
  ToolGesture& toolGesture() { return toolGesture_; }

  /// Frames the whole model; an empty one leaves the camera where it is. Automatic speeds follow the model's size.
  void fitInView();
  /// Looks along `direction` at the same centre; a zero `up` is chosen by the direction.
  void viewAlong(const osg::Vec3d& direction, const osg::Vec3d& up = osg::Vec3d());
  /// Frames what is selected; leaves the camera where it is when that is nothing.
  void fitToSelection();
  std::string storedView() const { return textOf(camera_->pose()); }
  /// False, and the camera unchanged, when `text` isn't what `storedView` gives.
  bool recallView(const std::string& text);
  /// Half the diagonal of the model's box; 0 for an empty one.
  double modelRadius() const;
  /// Takes the sensitivities of the preferences over.
  void updateCameraSpeed();
  void openMenu();

  /// What the viewport shows now, without frame and axes; null when it can't be drawn, as on a hidden tab.
  osg::ref_ptr<osg::Image> capture();
  /// Where the last capture went, for the proposal of the next one; empty before the first.
  const std::string& captureFile() const { return captureFile_; }
  void setCaptureFile(const std::string& path) { captureFile_ = path; }

  /// Stays away, after a message for the first one, on a display without OpenGL.
  void show() override;
  using Fl_Gl_Window::show;
  void hide() override;
  void resize(int x, int y, int w, int h) override;
  int handle(int event) override;

protected:
  void draw() override;

private:
  void setModelNode(osg::Node* node);
  osg::BoundingBoxd modelBox() const;
  void readPixels();
  void drawOverlays();
  void shrinkPolygons(bool shrunk);
  /// In window pixels, y upward; none for what lies behind the eye.
  std::optional<osg::Vec2d> projected(const osg::Vec3d& point) const;
  int handlePush();
  int handleDrag();
  int handleRelease();
  void dragCamera();
  /// The mouse of FLTK's current event in window pixels, y upward.
  osg::Vec2d mousePlace() const;
  Lens pickLens() const;
  int handleKey();
  void startGesture();
  void endGesture();
  void showGesture(CameraGesture gesture);

  std::string name_;
  Model* model_ = nullptr;
  bool active_ = false;
  std::uint32_t traversalMask_ = ~0U;
  ViewScene scene_;
  CornerMarks cornerMarks_;
  osg::ref_ptr<osgUtil::SceneView> sceneView_ = new osgUtil::SceneView;
  osg::ref_ptr<ModManipulator> camera_;
  osg::ref_ptr<osg::FrameStamp> frameStamp_ = new osg::FrameStamp;
  osg::ref_ptr<FLTKEventAdapter> events_ = new FLTKEventAdapter;
  FLTKActionAdapter actions_;
  osg::Timer timer_;
  GLContext drawnContext_ = nullptr; ///< the one that the scene view's state belongs to
  ViewStyle style_;
  ViewportPreferences preferences_;
  Grid grid_;
  GridPlacement gridPlacement_;
  std::optional<RubberBand> rubberBand_;
  std::string captureFile_;
  bool capturePending_ = false;
  osg::ref_ptr<osg::Image> captured_;
  SelectionGesture selectionGesture_{*this};
  ToolGesture toolGesture_{*this};
  bool doubleClick_ = false;            ///< the left button went down for the second time
  std::optional<CameraButton> gesture_; ///< the drag of the right button in force
  CameraGesture shownGesture_ = CameraGesture::none;
};

} // namespace nalt
