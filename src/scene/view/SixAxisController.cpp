#include "scene/view/SixAxisController.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "scene/view/Viewport.h"

#include <FL/Fl.H>

namespace nalt {

namespace {

constexpr int fitButton = 31;

SixAxisDevice& device()
{
  static SixAxisDevice only;
  return only;
}

Viewport* currentViewport()
{
  const Model* model = Shell::get().currentModel();
  return model ? dynamic_cast<Viewport*>(model->activeViewport()) : nullptr;
}

void readDevice(int descriptor, void*)
{
  while (const auto event = device().poll())
    if (Viewport* viewport = currentViewport()) applySixAxisEvent(*event, *viewport);
  if (!device().isConnected()) Fl::remove_fd(descriptor);
}

} // namespace

void startSixAxisController()
{
  static const bool once = [] {
    if (device().isConnected()) Fl::add_fd(device().descriptor(), FL_READ, readDevice);
    return true;
  }();
  (void)once;
}

void applySixAxisEvent(const SixAxisDevice::Event& event, Viewport& viewport)
{
  if (const auto* button = std::get_if<SixAxisButton>(&event)) {
    if (button->pressed && button->number == fitButton) viewport.fitInView();
    return;
  }
  const auto& motion = std::get<SixAxisMotion>(event);
  if (motion.isZero()) return;
  const auto vectorOf = [](const std::array<int, 3>& values) { return osg::Vec3d(values[0], values[1], values[2]); };
  osg::Vec3d axis = vectorOf(motion.rotation);
  const double angle = axis.normalize();
  viewport.camera().moveByController(vectorOf(motion.translation), axis, angle);
}

} // namespace nalt
