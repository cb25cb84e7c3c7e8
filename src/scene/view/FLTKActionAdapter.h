#pragma once

#include <osgGA/GUIActionAdapter>

namespace nalt {

/// Collects what a camera or another event handler asks of the window; the window looks at it after the call.
class FLTKActionAdapter : public osgGA::GUIActionAdapter {
public:
  void requestRedraw() override { redraw = true; }
  void requestContinuousUpdate(bool needed) override { continuousUpdate = needed; }
  void requestWarpPointer(float x, float y) override
  {
    warpPointer = true;
    warpX = x;
    warpY = y;
  }

  bool redraw = false;
  bool continuousUpdate = false;
  bool warpPointer = false;
  float warpX = -1.0F;
  float warpY = -1.0F;
};

} // namespace nalt
