#pragma once

namespace nalt {

/// For its lifetime OpenGL draws in window pixels, x to the right and y upward, without depth, light, texture, stipple
/// and smoothing. Everything it changes is put back, so that the scene view finds the state it left. Needs a current
/// context.
class WindowPixels {
public:
  WindowPixels(int width, int height);
  ~WindowPixels();
  WindowPixels(const WindowPixels&) = delete;
  WindowPixels& operator=(const WindowPixels&) = delete;
};

} // namespace nalt
