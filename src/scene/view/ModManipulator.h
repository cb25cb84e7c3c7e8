#pragma once

#include "scene/view/CameraMath.h"

#include <osg/observer_ptr>
#include <osgGA/CameraManipulator>

namespace nalt {

class Model;

/// What a mouse drag is doing to the camera, so that the window can show it as a cursor.
enum class CameraGesture { none, rotate, pan, zoomIn, zoomOut };

/// The camera of one viewport. Every change rewrites the projection it was given and redraws all viewports of its
/// model, since gizmos and selections may follow the camera.
class ModManipulator : public osgGA::CameraManipulator {
public:
  /// `model` outlives the manipulator, or is null in tests and previews.
  explicit ModManipulator(Model* model);

  void setByMatrix(const osg::Matrixd& matrix) override;
  void setByInverseMatrix(const osg::Matrixd& matrix) override;
  osg::Matrixd getMatrix() const override { return pose_.matrix(); }
  osg::Matrixd getInverseMatrix() const override { return pose_.inverseMatrix(); }
  void setNode(osg::Node* node) override { node_ = node; }
  const osg::Node* getNode() const override { return node_.get(); }
  osg::Node* getNode() override { return node_.get(); }
  /// Takes PUSH, DRAG and RELEASE: button 1 rotates, 2 pans, 4 (the right one of a mask) zooms. False for all else.
  bool handle(const osgGA::GUIEventAdapter& event, osgGA::GUIActionAdapter& action) override;
  using osgGA::CameraManipulator::handle;

  const CameraPose& pose() const { return pose_; }
  const Lens& lens() const { return lens_; }
  const CameraSpeed& speed() const { return speed_; }
  CameraGesture gesture() const { return gesture_; }

  void setPose(const CameraPose& pose);
  void lookAt(const osg::Vec3d& eye, const osg::Vec3d& centre, const osg::Vec3d& up);
  void setOrthographic(bool orthographic);
  void setClip(double nearClip, double farClip);
  void setFieldOfView(double degrees);
  void setAspect(double aspect);
  void setSpeed(const CameraSpeed& speed) { speed_ = speed; }
  /// The matrix to be kept up to date, null for none. Not owned.
  void setProjectionTarget(osg::Matrixd* projection);
  /// Writes the projection anew; the scene view narrows its near and far clip in place at each frame.
  void updateProjection();

  /// One notch of the wheel away from the user is 1. No limit: the eye may pass the centre.
  void turnWheel(double notches, bool fine);
  /// One state of a six-axis controller: a translation, and a rotation by `angle` about `axis`.
  void moveByController(const osg::Vec3d& translation, const osg::Vec3d& axis, double angle);

private:
  void pan(double dx, double dy);
  void zoom(double dy);
  void rotate(double dx, double dy, double edgeX, double edgeY);
  void turn(const osg::Vec3d& axis, double angle);
  void changed();

  Model* model_;
  osg::observer_ptr<osg::Node> node_;
  CameraPose pose_;
  CameraSpeed speed_;
  double lastX_ = 0.0;
  double lastY_ = 0.0;
  osg::Matrixd* projection_ = nullptr;
  Lens lens_;
  CameraGesture gesture_ = CameraGesture::none;
};

} // namespace nalt
