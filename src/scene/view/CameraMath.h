#pragma once

#include "core/Preferences.h"

#include <osg/BoundingBox>
#include <osg/Matrixd>
#include <osg/Quat>
#include <osg/Vec3d>

#include <optional>
#include <string>

namespace nalt {

/// Where a camera stands: it looks at `centre` from `distance` along the turned z axis. A negative distance puts the
/// eye behind the centre, still looking the same way.
struct CameraPose {
  osg::Vec3d centre;
  double distance = 3.0;
  osg::Quat orientation;

  osg::Vec3d right() const { return orientation * osg::Vec3d(1, 0, 0); }
  osg::Vec3d up() const { return orientation * osg::Vec3d(0, 1, 0); }
  osg::Vec3d viewDirection() const { return orientation * osg::Vec3d(0, 0, -1); }
  osg::Vec3d eye() const { return centre - viewDirection() * distance; }

  /// From camera to world.
  osg::Matrixd matrix() const;
  osg::Matrixd inverseMatrix() const;
};

/// What the camera's glass does. Distances in model units.
struct Lens {
  double nearClip = 0.1;
  double farClip = 100000.0;
  double aspect = 1.0;       ///< width / height
  double fieldOfView = 60.0; ///< horizontal, degrees
  bool orthographic = false;
};

/// Never singular: a distance of 0 in orthographic mode and a panel so narrow that it would see more than half around
/// are kept just inside what a projection can show. `distance` sets the orthographic scale, whatever its sign.
osg::Matrixd projectionMatrix(const Lens& lens, double distance);

/// The pose that looks from `eye` to `centre`. Unchanged orientation when the two are the same point.
CameraPose poseLookingAt(const osg::Vec3d& eye, const osg::Vec3d& centre, const osg::Vec3d& up,
                         const CameraPose& before);

/// The pose that looks along `direction` at the same centre. Keeps the distance, at least 1, unless `fitFollows`.
/// A zero `up` stands for y when looking along z, and for z otherwise.
CameraPose poseAlong(osg::Vec3d direction, osg::Vec3d up, const CameraPose& before, bool fitFollows);

/// The pose with the same viewing angle that frames `box` in a window of `width` by `height` pixels.
/// Null for an empty or infinite box.
std::optional<CameraPose> poseFitting(const osg::BoundingBoxd& box, const CameraPose& before, const Lens& lens,
                                      int width, int height);

/// The camera as one line of eight numbers, to be copied to another model.
std::string textOf(const CameraPose& pose);
/// Null unless `text` holds exactly eight numbers.
std::optional<CameraPose> poseFromText(const std::string& text);

/// How far the camera goes for one unit of normalised mouse travel, which is half a window.
struct CameraSpeed {
  double pan = 50.0;    ///< model units
  double zoom = 50.0;   ///< model units
  double rotate = 50.0; ///< radians
};

/// `radius` is the model's; `spacing` of the grid takes its place when it is 0 and "auto" is on.
CameraSpeed cameraSpeed(const Sensitivity& sensitivity, double radius, double nearClip, double spacing);

} // namespace nalt
