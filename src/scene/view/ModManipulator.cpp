#include "scene/view/ModManipulator.h"

#include "core/Model.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

constexpr double edgeRoll = 0.7; // share of the roll in a drag along the very edge of the window
constexpr double controllerStep = 5000.0;
constexpr double controllerTurn = 7000.0;

} // namespace

ModManipulator::ModManipulator(Model* model) : model_(model) {}

void ModManipulator::setByMatrix(const osg::Matrixd& matrix)
{
  pose_.centre = osg::Vec3d(0, 0, -pose_.distance) * matrix;
  pose_.orientation = matrix.getRotate();
}

void ModManipulator::setByInverseMatrix(const osg::Matrixd& matrix)
{
  setByMatrix(osg::Matrixd::inverse(matrix));
}

bool ModManipulator::handle(const osgGA::GUIEventAdapter& event, osgGA::GUIActionAdapter&)
{
  using Event = osgGA::GUIEventAdapter;
  if (event.getEventType() == Event::RELEASE) {
    gesture_ = CameraGesture::none;
    return true;
  }
  if (event.getEventType() != Event::PUSH && event.getEventType() != Event::DRAG) return false;

  const double width = event.getXmax() + event.getXmin();
  const double height = event.getYmax() + event.getYmin();
  if (width <= 0.0 || height <= 0.0) return false;
  const double x = (event.getX() - (event.getXmax() - event.getXmin()) / 2.0) / (width / 2.0);
  const double y = ((event.getYmax() - event.getYmin()) / 2.0 - event.getY()) / (height / 2.0);

  if (event.getEventType() == Event::DRAG) {
    const double dx = x - lastX_;
    const double dy = y - lastY_;
    switch (event.getButtonMask()) {
    case Event::LEFT_MOUSE_BUTTON:
      rotate(dx, dy, event.getXnormalized(), event.getYnormalized());
      break;
    case Event::MIDDLE_MOUSE_BUTTON:
      pan(dx, dy);
      break;
    case Event::RIGHT_MOUSE_BUTTON:
      zoom(dy);
      break;
    default:
      return false;
    }
  }
  lastX_ = x;
  lastY_ = y;
  if (event.getEventType() == Event::DRAG) changed();
  return true;
}

void ModManipulator::pan(double dx, double dy)
{
  pose_.centre += (pose_.up() * -dy + pose_.right() * -dx) * speed_.pan;
  gesture_ = CameraGesture::pan;
}

void ModManipulator::zoom(double dy)
{
  const double delta = -dy * speed_.zoom;
  pose_.distance -= delta;
  if (lens_.orthographic) pose_.distance = std::max(pose_.distance, 0.0);
  if (delta != 0.0) gesture_ = delta > 0.0 ? CameraGesture::zoomIn : CameraGesture::zoomOut;
}

/// Tumbles in the middle of the window and rolls along its edges, like a trackball without a sphere.
void ModManipulator::rotate(double dx, double dy, double edgeX, double edgeY)
{
  const double p = edgeRoll * edgeY;
  turn(pose_.viewDirection() * p + pose_.up() * (1.0 - std::abs(p)), -dx * speed_.rotate);
  const double q = edgeRoll * edgeX;
  turn(pose_.viewDirection() * q + pose_.right() * (1.0 - std::abs(q)), dy * speed_.rotate);
  gesture_ = CameraGesture::rotate;
}

/// `axis` in world coordinates, of any length.
void ModManipulator::turn(const osg::Vec3d& axis, double angle)
{
  pose_.orientation = pose_.orientation * osg::Quat(angle, axis);
  pose_.orientation /= pose_.orientation.length(); // rounding must not grow over a long drag
}

void ModManipulator::setPose(const CameraPose& pose)
{
  pose_ = pose;
  changed();
}

void ModManipulator::lookAt(const osg::Vec3d& eye, const osg::Vec3d& centre, const osg::Vec3d& up)
{
  setPose(poseLookingAt(eye, centre, up, pose_));
}

void ModManipulator::setOrthographic(bool orthographic)
{
  lens_.orthographic = orthographic;
  changed();
}

void ModManipulator::setClip(double nearClip, double farClip)
{
  lens_.nearClip = nearClip;
  lens_.farClip = farClip;
  changed();
}

void ModManipulator::setFieldOfView(double degrees)
{
  lens_.fieldOfView = degrees;
  changed();
}

void ModManipulator::setAspect(double aspect)
{
  lens_.aspect = aspect;
  updateProjection(); // only this window changed its size, and it is being drawn
}

void ModManipulator::setProjectionTarget(osg::Matrixd* projection)
{
  projection_ = projection;
  changed();
}

void ModManipulator::updateProjection()
{
  if (projection_) *projection_ = projectionMatrix(lens_, pose_.distance);
}

void ModManipulator::turnWheel(double notches, bool fine)
{
  pose_.distance -= notches * speed_.zoom * (fine ? 0.01 : 0.1);
  changed();
}

void ModManipulator::moveByController(const osg::Vec3d& translation, const osg::Vec3d& axis, double angle)
{
  if (translation.length2() == 0.0 && (axis.length2() == 0.0 || angle == 0.0)) return;
  pose_.centre -= (pose_.right() * translation.x() + pose_.up() * translation.y()) * (speed_.pan / controllerStep);
  pose_.distance -= translation.z() * speed_.zoom / controllerStep;
  if (lens_.orthographic) pose_.distance = std::max(pose_.distance, 0.0);
  const double k = speed_.rotate * angle / controllerTurn;
  turn(pose_.up(), -axis.y() * k);
  turn(pose_.right(), -axis.x() * k);
  turn(pose_.orientation * osg::Vec3d(0, 0, 1), -axis.z() * k);
  changed();
}

void ModManipulator::changed()
{
  updateProjection();
  if (model_) model_->redrawViewports();
}

} // namespace nalt
