#include "scene/view/Viewport.h"

#include "core/KeyboardFocus.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/Shell.h"
#include "core/Tool.h"
#include "scene/view/CameraCursor.h"
#include "scene/view/ContextId.h"
#include "scene/view/Overlays.h"
#include "scene/view/ViewportActions.h"
#include "scene/view/WindowPixels.h"

#include <FL/Fl.H>
#include <FL/Fl_Menu_Item.H>
#include <osg/ComputeBoundsVisitor>
#include <osg/Light>
#include <osg/Notify>
#include <osg/PolygonMode>

#include <iostream>
#include <utility>

namespace nalt {

namespace {

/// OpenGL's complaints about a context that is going away help nobody.
class SilentOsg {
public:
  SilentOsg() { osg::setNotifyLevel(osg::ALWAYS); }
  ~SilentOsg() { osg::setNotifyLevel(before_); }

private:
  osg::NotifySeverity before_ = osg::getNotifyLevel();
};

CameraButton buttonOfModifiers()
{
  if (Fl::event_shift()) return CameraButton::zoom;
  return Fl::event_ctrl() ? CameraButton::pan : CameraButton::rotate;
}

CameraGesture startOf(CameraButton button)
{
  switch (button) {
  case CameraButton::rotate:
    return CameraGesture::rotate;
  case CameraButton::pan:
    return CameraGesture::pan;
  case CameraButton::zoom:
    break;
  }
  return CameraGesture::zoomIn;
}

/// Between frames edits let go of arrays and buffers. OpenSceneGraph knows what it bound last by address and passes
/// over it when it comes again; a new array at an old one's address would be drawn from a buffer that isn't there.
void forgetArrays(osg::State& state)
{
  state.disableAllVertexArrays();
  state.unbindVertexBufferObject();
  state.unbindElementBufferObject();
}

bool isModifier(int key)
{
  return key >= FL_Shift_L && key <= FL_Alt_R;
}

/// Once, and not before the windows stand: the message waits for an answer.
void sayThatOpenGlIsMissing()
{
  static bool said = false;
  if (said) return;
  said = true;
  Fl::add_timeout(0.0, [](void*) {
    Shell::get().warning("This display has no OpenGL, so that models can't be shown. All else works as usual.");
  });
}

/// Null when the mouse is elsewhere.
Viewport* viewportBelowMouse(const Model& model)
{
  int x = 0;
  int y = 0;
  Fl::get_mouse(x, y);
  for (VPBase* panel : model.viewports()) {
    auto* viewport = dynamic_cast<Viewport*>(panel);
    if (!viewport) continue;
    const int left = viewport->x_root();
    const int top = viewport->y_root();
    if (x >= left && y >= top && x < left + viewport->w() && y < top + viewport->h()) return viewport;
  }
  return nullptr;
}

void pickedInMenu(Fl_Widget*, void*) {} // the pop-up's caller runs the entry itself

} // namespace

Viewport::Viewport(int x, int y, int w, int h, const char* name)
    : Fl_Gl_Window(x, y, w, h), name_(name), camera_(new ModManipulator(nullptr))
{
  mode(FL_RGB | FL_DOUBLE | FL_DEPTH);
  end();
  sceneView_->setDefaults(osgUtil::SceneView::STANDARD_SETTINGS);
  sceneView_->setFrameStamp(frameStamp_);
  scene_.root()->addChild(cornerMarks_.root());
  sceneView_->setSceneData(scene_.root());
  sceneView_->getCamera()->setClearMask(GL_DEPTH_BUFFER_BIT); // the background paints the colour
  osg::StateSet* global = sceneView_->getGlobalStateSet();
  global->setAttribute(new osg::PolygonMode);
  global->setMode(GL_CULL_FACE, osg::StateAttribute::ON);
  global->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
  global->setMode(GL_LIGHTING, osg::StateAttribute::ON);
  camera_->setProjectionTarget(&sceneView_->getProjectionMatrix());
  setPreferences(ViewportPreferences());
  Viewport::resize(x, y, w, h);
}

Viewport::~Viewport()
{
  Viewport::hide();
}

void Viewport::show()
{
  if (shown() || can_do())
    Fl_Gl_Window::show();
  else
    sayThatOpenGlIsMissing();
}

/// FLTK destroys the context here and nowhere else, so this is the last moment at which its objects can be freed.
void Viewport::hide()
{
  if (context()) {
    const SilentOsg silent;
    make_current();
    sceneView_->releaseAllGLObjects();
    sceneView_->flushAllDeletedGLObjects();
  }
  Fl_Gl_Window::hide();
}

void Viewport::bind(Model& model, std::uint32_t bit)
{
  model_ = &model;
  traversalMask_ = bit;
  cornerMarks_.watch(&model.selections());
  sceneView_->setCullMask(bit);
  setModelNode(model.sceneRoot());
  scene_.setExtras(model.sceneExtras());
  ViewStyle style = style_;
  style.textureLayers = model.switches().textureLayers;
  setStyle(style);
}

void Viewport::unbind()
{
  shrinkPolygons(false);
  model_ = nullptr;
  active_ = false;
  cornerMarks_.watch(nullptr);
  cornerMarks_.clear();
  scene_.setModel(nullptr);
  scene_.setExtras(nullptr);
  camera_ = new ModManipulator(nullptr);
  camera_->setProjectionTarget(&sceneView_->getProjectionMatrix());
}

/// A document that is loaded again, or put in place of another one, keeps the view.
void Viewport::setModelNode(osg::Node* node)
{
  if (node == scene_.model() && camera_->getNode() == node) return;
  const bool hadModel = scene_.model() != nullptr;
  const osg::ref_ptr<ModManipulator> former = camera_;
  former->setProjectionTarget(nullptr);
  scene_.setModel(node);
  camera_ = new ModManipulator(model_);
  camera_->setNode(node);
  camera_->setClip(preferences_.nearClip, preferences_.farClip);
  camera_->setFieldOfView(preferences_.fieldOfView);
  camera_->setAspect(former->lens().aspect);
  camera_->setProjectionTarget(&sceneView_->getProjectionMatrix());
  fitInView();
  updateCameraSpeed(); // not that of the fit
  if (hadModel) camera_->setPose(former->pose());
  camera_->setOrthographic(former->lens().orthographic);
}

void Viewport::setActive(bool active)
{
  if (active == active_) return;
  active_ = active;
  redraw();
}

void Viewport::setStyle(const ViewStyle& style)
{
  style_ = style;
  scene_.apply(style);
  shrinkPolygons(style.shrunkPolygons);
  redraw();
}

void Viewport::shrinkPolygons(bool shrunk)
{
  Sync* const sync = model_ ? model_->sync() : nullptr;
  if (!sync) return;
  const std::uint32_t before = sync->shrinkingBits();
  const std::uint32_t now = shrunk ? before | traversalMask_ : before & ~traversalMask_;
  if (now != before) sync->setShrinkingBits(now);
}

void Viewport::setRubberBand(const std::optional<RubberBand>& band)
{
  rubberBand_ = band;
  redraw();
}

bool Viewport::headLight() const
{
  return sceneView_->getLightingMode() == osgUtil::SceneView::HEADLIGHT;
}

void Viewport::setHeadLight(bool headLight)
{
  sceneView_->setLightingMode(headLight ? osgUtil::SceneView::HEADLIGHT : osgUtil::SceneView::SKY_LIGHT);
  redraw();
}

void Viewport::setPreferences(const ViewportPreferences& preferences)
{
  preferences_ = usable(preferences, preferences_);
  scene_.apply(preferences_);
  grid_.setSpacing(preferences_.gridSpacing);
  grid_.setThickLineNumber(preferences_.thickLineNumber);
  grid_.setColors(preferences_.gridColor, preferences_.gridAxisColor);
  scene_.apply(grid_);
  camera_->setClip(preferences_.nearClip, preferences_.farClip);
  camera_->setFieldOfView(preferences_.fieldOfView);

  osg::Light* light = sceneView_->getLight();
  light->setAmbient(preferences_.lightAmbient);
  light->setDiffuse(preferences_.lightDiffuse);
  light->setSpecular(preferences_.lightSpecular);

  const bool automatic = preferences_.automaticClip;
  sceneView_->setComputeNearFarMode(automatic ? osg::CullSettings::COMPUTE_NEAR_FAR_USING_BOUNDING_VOLUMES
                                              : osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
  sceneView_->setCullingMode(automatic ? osg::CullingSet::VIEW_FRUSTUM_SIDES_CULLING
                                       : osg::CullingSet::VIEW_FRUSTUM_CULLING);
  sceneView_->setSmallFeatureCullingPixelSize(preferences_.smallFeaturePixels);
  redraw();
}

osg::BoundingBoxd Viewport::modelBox() const
{
  osg::BoundingBoxd box;
  if (!scene_.model()) return box;
  osg::ComputeBoundsVisitor bounds;
  bounds.setTraversalMask(traversalMask_);
  scene_.model()->accept(bounds);
  const osg::BoundingBox& found = bounds.getBoundingBox();
  if (found.valid()) box.set(found._min, found._max);
  return box;
}

double Viewport::modelRadius() const
{
  const osg::BoundingBoxd box = modelBox();
  return box.valid() ? box.radius() : 0.0;
}

void Viewport::updateCameraSpeed()
{
  camera_->setSpeed(cameraSpeed(Preferences::get().sensitivity, modelRadius(), preferences_.nearClip, grid_.spacing()));
}

void Viewport::fitInView()
{
  const osg::BoundingBoxd box = modelBox();
  // Unlike the speed after loading, this one leaves the near clip out.
  camera_->setSpeed(
      cameraSpeed(Preferences::get().sensitivity, box.valid() ? box.radius() : 0.0, /*nearClip=*/0.0, grid_.spacing()));
  if (const auto pose = poseFitting(box, camera_->pose(), camera_->lens(), w(), h())) camera_->setPose(*pose);
}

void Viewport::fitToSelection()
{
  if (!model_) return;
  osg::BoundingBoxd box;
  for (const auto& [mode, selection] : model_->selections().current().families())
    box.expandBy(selection->boundingBox());
  if (const auto pose = poseFitting(box, camera_->pose(), camera_->lens(), w(), h())) camera_->setPose(*pose);
}

void Viewport::viewAlong(const osg::Vec3d& direction, const osg::Vec3d& up)
{
  const bool fit = Preferences::get().zoomViewpointToModel;
  camera_->setPose(poseAlong(direction, up, camera_->pose(), fit));
  if (fit) fitInView();
}

void Viewport::gridChanged()
{
  preferences_.gridSpacing = grid_.spacing();
  scene_.apply(grid_);
  redraw();
}

void Viewport::showGrid(bool shown)
{
  grid_.setVisible(shown);
  gridChanged();
}

bool Viewport::gridPoint(const osg::Vec3d& point)
{
  if (!model_ || !grid_.isVisible() || !gridPlacement_.waits()) return false;
  activate(); // the grid of the active viewport is the one that the operations work on
  return gridPlacement_.take(*model_, point);
}

std::optional<osg::Vec3d> Viewport::pointOnGrid(const osg::Vec3d& nearPoint, const osg::Vec3d& farPoint) const
{
  if (!grid_.isVisible()) return std::nullopt;
  const auto point = grid_.intersection(nearPoint, farPoint);
  return point && snapsToGrid() ? grid_.snapped(*point) : point;
}

bool Viewport::snapsToGrid() const
{
  return model_ && model_->switches().snapToGrid;
}

bool Viewport::recallView(const std::string& text)
{
  const auto pose = poseFromText(text);
  if (pose) camera_->setPose(*pose);
  return pose.has_value();
}

void Viewport::resize(int x, int y, int w, int h)
{
  Fl_Gl_Window::resize(x, y, w, h);
  if (w <= 0 || h <= 0) return;
  events_->resize(w, h);
  camera_->setAspect(static_cast<double>(w) / h);
}

void Viewport::draw()
{
  if (!context()) return;           // the display refused to make one
  if (context() != drawnContext_) { // the first time, or after hide() and show()
    const osg::ref_ptr<osg::State> state = new osg::State;
    state->setContextID(nextContextId());
    sceneView_->setState(state);
    drawnContext_ = context();
  }
  if (!valid()) sceneView_->setViewport(0, 0, w(), h());
  const double now = timer_.time_s();
  frameStamp_->setFrameNumber(frameStamp_->getFrameNumber() + 1);
  frameStamp_->setReferenceTime(now);
  frameStamp_->setSimulationTime(now);
  camera_->handle(events_->frame(now), actions_);
  camera_->updateProjection();
  sceneView_->setViewMatrix(camera_->getInverseMatrix());
  if (model_) model_->selections().settlePivot();
  if (const Sync* const sync = model_ ? model_->sync() : nullptr)
    cornerMarks_.update(*sync, traversalMask_, style_, preferences_);
  sceneView_->update();
  sceneView_->cull();
  drawBackground(w(), h(), preferences_.backgroundTop, preferences_.backgroundBottom);
  sceneView_->draw();
  forgetArrays(*sceneView_->getState());
  if (capturePending_) readPixels();
  drawOverlays();
}

osg::ref_ptr<osg::Image> Viewport::capture()
{
  if (!shown() || !visible_r()) return nullptr;
  capturePending_ = true;
  redraw();
  Fl::flush();
  capturePending_ = false;
  return std::exchange(captured_, nullptr);
}

void Viewport::readPixels()
{
  capturePending_ = false;
  captured_ = new osg::Image;
  glReadBuffer(GL_BACK);
  captured_->readPixels(0, 0, w(), h(), GL_RGB, GL_UNSIGNED_BYTE);
}

std::optional<osg::Vec2d> Viewport::projected(const osg::Vec3d& point) const
{
  const osg::Matrixd toWindow = sceneView_->getViewMatrix() * sceneView_->getProjectionMatrix();
  const osg::Vec4d clip = osg::Vec4d(point, 1.0) * toWindow;
  if (!(clip.w() > 0.0)) return std::nullopt;
  return osg::Vec2d((clip.x() / clip.w() + 1.0) * w() / 2.0, (clip.y() / clip.w() + 1.0) * h() / 2.0);
}

void Viewport::drawOverlays()
{
  if (rubberBand_) drawRubberBand(w(), h(), *rubberBand_);
  if (const auto pivot = model_ ? model_->selections().pivot() : std::nullopt)
    if (const auto place = projected(*pivot)) drawPickPoint(w(), h(), *place);
  if (Tool* tool = model_ ? model_->tool() : nullptr) {
    const WindowPixels pixels(w(), h());
    tool->drawOverlay(*sceneView_);
  }
  drawFrame(w(), h(), active_);
  drawOrientationAxes(w(), h(), preferences_.axesCorner, camera_->pose().orientation);
  drawProjectionMarker(w(), h(), preferences_.axesCorner, orthographic());
}

int Viewport::handle(int event)
{
  switch (event) {
  case FL_PUSH:
    return handlePush();
  case FL_DRAG:
    return handleDrag();
  case FL_RELEASE:
    return handleRelease();
  case FL_MOUSEWHEEL:
    camera_->turnWheel(-Fl::event_dy(), Fl::event_shift() != 0);
    return 1;
  case FL_KEYDOWN:
    return handleKey();
  case FL_SHORTCUT:
    return isModifier(Fl::event_key()) ? 1 : Fl_Gl_Window::handle(event);
  case FL_ENTER:
    // The active viewport gets the keys back when the mouse comes to it, unless somebody is typing.
    if (active_ && !isTyping()) giveKeysTo(*this);
    return 1;
  case FL_MOVE:
    toolGesture_.hover(mousePlace());
    return 1;
  case FL_LEAVE:
    toolGesture_.leave();
    return 1;
  case FL_FOCUS:
  case FL_UNFOCUS:
    return 1;
  default:
    return Fl_Gl_Window::handle(event);
  }
}

void Viewport::activate()
{
  if (shown()) take_focus();
  if (model_) model_->setActiveViewport(this);
}

int Viewport::handlePush()
{
  activate();
  const bool doubleClick = Fl::event_clicks() > 0;
  if (doubleClick) Fl::event_clicks(-1); // a third click is a first one again
  switch (Fl::event_button()) {
  case FL_LEFT_MOUSE:
    doubleClick_ = doubleClick;
    selectionGesture_.press(mousePlace());
    break;
  case FL_MIDDLE_MOUSE:
    selectionGesture_.cancel();
    toolGesture_.press(mousePlace(), MouseModifiers::now());
    break;
  case FL_RIGHT_MOUSE:
    selectionGesture_.cancel();
    if (Fl::event_ctrl() && Fl::event_alt())
      openMenu();
    else
      startGesture();
    break;
  default:
    break;
  }
  return 1;
}

int Viewport::handleDrag()
{
  const int state = Fl::event_state();
  if ((state & (FL_BUTTON1 | FL_BUTTON2 | FL_BUTTON3)) == 0) {
    std::cerr << "Unknown mouse button: " << state << std::endl;
    return 0;
  }
  if (state & FL_BUTTON1) selectionGesture_.drag(mousePlace());
  if (state & FL_BUTTON2) toolGesture_.drag(mousePlace(), MouseModifiers::now());
  if (state & FL_BUTTON3) dragCamera();
  return 1;
}

void Viewport::dragCamera()
{
  if (!gesture_) return;
  if (buttonOfModifiers() != *gesture_) {
    endGesture();
    startGesture();
  }
  camera_->handle(events_->drag(Fl::event_x(), Fl::event_y()), actions_);
  showGesture(camera_->gesture());
}

int Viewport::handleRelease()
{
  switch (Fl::event_button()) {
  case FL_LEFT_MOUSE:
    selectionGesture_.release(mousePlace(), MouseModifiers::now(), doubleClick_);
    break;
  case FL_MIDDLE_MOUSE:
    toolGesture_.release(mousePlace(), MouseModifiers::now());
    break;
  case FL_RIGHT_MOUSE:
    if (gesture_) endGesture();
    break;
  default:
    break;
  }
  return 1;
}

void Viewport::startGesture()
{
  gesture_ = buttonOfModifiers();
  camera_->handle(events_->press(Fl::event_x(), Fl::event_y(), *gesture_), actions_);
  showGesture(startOf(*gesture_));
}

void Viewport::endGesture()
{
  camera_->handle(events_->release(Fl::event_x(), Fl::event_y()), actions_);
  gesture_.reset();
  showGesture(CameraGesture::none);
}

void Viewport::showGesture(CameraGesture gesture)
{
  if (gesture == shownGesture_) return;
  shownGesture_ = gesture;
  showCameraCursor(*this, gesture);
}

int Viewport::handleKey()
{
  const int key = Fl::event_key();
  if (isModifier(key) || key == FL_Escape) return 1;
  if (key == FL_Menu) {
    // The keys are the active viewport's, but the menu is that of the one which is pointed at.
    if (Viewport* pointedAt = model_ ? viewportBelowMouse(*model_) : nullptr) pointedAt->openMenu();
    return 1;
  }
  const bool plain = !Fl::event_shift() && !Fl::event_ctrl() && !Fl::event_alt();
  if (key == 'u' && plain) return 1; // next to i and h: a slip must not reach anything else
  return runViewportKey(*this) ? 1 : 0;
}

void Viewport::openMenu()
{
  const std::vector<Fl_Menu_Item> items = viewportMenu(this, pickedInMenu);
  const Fl_Menu_Item* picked = items.front().popup(Fl::event_x(), Fl::event_y());
  if (!picked || !picked->user_data()) return;
  const auto& action = *static_cast<const ViewportAction*>(picked->user_data());
  const bool byKey = picked->shortcut() != 0 && Fl::test_shortcut(static_cast<Fl_Shortcut>(picked->shortcut())) != 0;
  runViewportAction(action, *this, byKey);
}

} // namespace nalt
