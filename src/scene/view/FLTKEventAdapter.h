#pragma once

#include <osgGA/GUIEventAdapter>

namespace nalt {

/// What a mouse drag with the camera button does.
enum class CameraButton { rotate = 1, pan = 2, zoom = 3 };

/// Tells the camera about the mouse: window coordinates with y downward, camera buttons as the bits of a button mask.
class FLTKEventAdapter : public osgGA::GUIEventAdapter {
public:
  FLTKEventAdapter();

  /// Size of the window in pixels; coordinates run from 0 to it.
  void resize(int width, int height);
  const FLTKEventAdapter& press(double x, double y, CameraButton button);
  const FLTKEventAdapter& drag(double x, double y);
  const FLTKEventAdapter& release(double x, double y);
  /// `time` in seconds since the window was made.
  const FLTKEventAdapter& frame(double time);

private:
  const FLTKEventAdapter& at(EventType type, double x, double y);
};

} // namespace nalt
