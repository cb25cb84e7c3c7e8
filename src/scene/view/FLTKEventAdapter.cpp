#include "scene/view/FLTKEventAdapter.h"

namespace nalt {

FLTKEventAdapter::FLTKEventAdapter()
{
  setMouseYOrientation(Y_INCREASING_DOWNWARDS);
}

void FLTKEventAdapter::resize(int width, int height)
{
  setWindowRectangle(0, 0, width, height, /*updateMouseRange=*/false);
  setInputRange(0, 0, static_cast<float>(width), static_cast<float>(height));
}

const FLTKEventAdapter& FLTKEventAdapter::press(double x, double y, CameraButton button)
{
  const int bit = 1 << (static_cast<int>(button) - 1);
  setButton(bit);
  setButtonMask(bit);
  return at(PUSH, x, y);
}

const FLTKEventAdapter& FLTKEventAdapter::drag(double x, double y)
{
  return at(DRAG, x, y);
}

const FLTKEventAdapter& FLTKEventAdapter::release(double x, double y)
{
  setButtonMask(0);
  return at(RELEASE, x, y);
}

const FLTKEventAdapter& FLTKEventAdapter::frame(double time)
{
  setTime(time);
  setEventType(FRAME);
  return *this;
}

const FLTKEventAdapter& FLTKEventAdapter::at(EventType type, double x, double y)
{
  setEventType(type);
  setX(static_cast<float>(x));
  setY(static_cast<float>(y));
  return *this;
}

} // namespace nalt
