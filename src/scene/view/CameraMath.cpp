#include "scene/view/CameraMath.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>
#include <locale>
#include <sstream>
#include <vector>

namespace nalt {

namespace {

constexpr double smallestHalfHeight = 1e-9;
constexpr double widestView = 179.0; // degrees

bool isFinite(const osg::BoundingBoxd& box)
{
  for (int i = 0; i < 3; ++i) {
    if (!std::isfinite(box._min[i]) || !std::isfinite(box._max[i])) return false;
  }
  return true;
}

/// The value 50 of a slider should suit a model of everyday size and 100 one of planetary size.
double linearSpeed(int value)
{
  return std::pow(value / 100.0, 21) * 2e7 + 0.1;
}

/// From pi / 16 to 8 pi.
double angularSpeed(int value)
{
  return std::pow(value / 100.0, 4) * 24.936391687868984 + 0.19634954084936207;
}

} // namespace

osg::Matrixd CameraPose::matrix() const
{
  return osg::Matrixd::translate(0, 0, distance) * osg::Matrixd::rotate(orientation) * osg::Matrixd::translate(centre);
}

osg::Matrixd CameraPose::inverseMatrix() const
{
  return osg::Matrixd::translate(-centre) * osg::Matrixd::rotate(orientation.inverse()) *
         osg::Matrixd::translate(0, 0, -distance);
}

osg::Matrixd projectionMatrix(const Lens& lens, double distance)
{
  const double aspect = lens.aspect > 0.0 ? lens.aspect : 1.0;
  if (!lens.orthographic) {
    const double vertical = std::min(lens.fieldOfView / aspect, widestView);
    return osg::Matrixd::perspective(vertical, aspect, lens.nearClip, lens.farClip);
  }
  const double angle = osg::DegreesToRadians(lens.fieldOfView);
  double halfWidth = 0.0;
  double halfHeight = 0.0;
  if (aspect > 1.0) {
    halfWidth = std::tan(angle / 2.0) * 2.0 * std::abs(distance);
    halfHeight = halfWidth / aspect;
  } else {
    halfHeight = std::tan(aspect * angle / 2.0) * 2.0 * std::abs(distance);
    halfWidth = aspect * halfHeight;
  }
  if (halfHeight < smallestHalfHeight || halfWidth < smallestHalfHeight * aspect) {
    halfHeight = smallestHalfHeight;
    halfWidth = smallestHalfHeight * aspect;
  }
  return osg::Matrixd::ortho(-halfWidth, halfWidth, -halfHeight, halfHeight, lens.nearClip, lens.farClip);
}

CameraPose poseLookingAt(const osg::Vec3d& eye, const osg::Vec3d& centre, const osg::Vec3d& up,
                         const CameraPose& before)
{
  CameraPose pose = before;
  pose.centre = centre;
  pose.distance = (eye - centre).length();
  if (pose.distance == 0.0) return pose;
  // Straight up and straight down need another "up" than their own line.
  const bool parallel = ((centre - eye) ^ up).length2() == 0.0;
  const osg::Vec3d across = std::abs(centre.z() - eye.z()) < pose.distance ? osg::Vec3d(0, 0, 1) : osg::Vec3d(0, 1, 0);
  pose.orientation = osg::Matrixd::inverse(osg::Matrixd::lookAt(eye, centre, parallel ? across : up)).getRotate();
  return pose;
}

CameraPose poseAlong(osg::Vec3d direction, osg::Vec3d up, const CameraPose& before, bool fitFollows)
{
  if (direction.normalize() == 0.0) return before;
  if (up.length2() == 0.0) {
    const bool alongZ = direction.x() == 0.0 && direction.y() == 0.0;
    up = alongZ ? osg::Vec3d(0, 1, 0) : osg::Vec3d(0, 0, 1);
  }
  if (!fitFollows) direction *= std::max(1.0, before.distance);
  return poseLookingAt(before.centre - direction, before.centre, up, before);
}

std::optional<CameraPose> poseFitting(const osg::BoundingBoxd& wanted, const CameraPose& before, const Lens& lens,
                                      int width, int height)
{
  if (!wanted.valid() || !isFinite(wanted)) return std::nullopt;
  osg::BoundingBoxd box = wanted;
  if ((box._max - box._min).length() < 2.0 * lens.nearClip) {
    const osg::Vec3d margin(lens.nearClip, lens.nearClip, lens.nearClip);
    box.set(box._min - margin, box._max + margin);
  }
  const double radius = std::max((box._max - box._min).length() / 2.0, lens.nearClip);
  // Dividing by the angle instead of its tangent leaves a margin that grows with the field of view.
  const double horizontal = osg::DegreesToRadians(lens.fieldOfView) / 2.0;
  const double vertical = width > 0 ? osg::DegreesToRadians(height * lens.fieldOfView / width) / 2.0 : 0.0;
  const double forWidth = horizontal != 0.0 ? radius / horizontal : 0.0;
  const double forHeight = vertical != 0.0 ? radius / vertical : 0.0;

  CameraPose pose = before;
  pose.centre = (box._min + box._max) / 2.0;
  pose.distance = forWidth != 0.0 || forHeight != 0.0 ? std::max(forWidth, forHeight) : 3.0 * radius;
  return pose;
}

std::string textOf(const CameraPose& pose)
{
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << pose.centre.x() << ' ' << pose.centre.y() << ' ' << pose.centre.z() << ' ' << pose.distance;
  for (int i = 0; i < 4; ++i)
    text << ' ' << pose.orientation[i];
  return text.str();
}

std::optional<CameraPose> poseFromText(const std::string& text)
{
  std::istringstream words(text);
  words.imbue(std::locale::classic());
  std::vector<double> numbers;
  for (std::string word; words >> word;) {
    std::istringstream field(word);
    field.imbue(std::locale::classic());
    double number = 0.0;
    if (!(field >> number) || field.peek() != std::istringstream::traits_type::eof()) return std::nullopt;
    numbers.push_back(number);
  }
  if (numbers.size() != 8) return std::nullopt;
  CameraPose pose;
  pose.centre.set(numbers[0], numbers[1], numbers[2]);
  pose.distance = numbers[3];
  pose.orientation.set(numbers[4], numbers[5], numbers[6], numbers[7]);
  if (pose.orientation.length2() == 0.0) return std::nullopt; // no direction to look in
  return pose;
}

CameraSpeed cameraSpeed(const Sensitivity& sensitivity, double radius, double nearClip, double spacing)
{
  const double automatic = radius > 0.0 ? radius + nearClip : spacing;
  CameraSpeed speed;
  speed.pan = sensitivity.autoPan ? automatic : linearSpeed(sensitivity.pan);
  speed.zoom = sensitivity.autoZoom ? 2.0 * automatic : linearSpeed(sensitivity.zoom);
  speed.rotate = angularSpeed(sensitivity.rotate);
  return speed;
}

} // namespace nalt
