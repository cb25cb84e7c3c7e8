#include "app/dialogs/ApplyPreferences.h"

#include "app/Gui.h"
#include "core/Model.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportCount.h"

#include <utility>

namespace nalt {

void applyPreferences(Gui& gui, const Preferences& wanted)
{
  const Preferences before = std::exchange(Preferences::get(), wanted);
  for (int i = 0; i < gui.modelCount(); ++i) {
    Model& model = *gui.modelAt(i);
    model.commandStack().followLimit();
    if (wanted.viewportCount != before.viewportCount && !gui.headless())
      changeViewportCount(model, wanted.viewportCount, gui.viewportPreferences());
    for (VPBase* panel : model.viewports())
      if (auto* viewport = dynamic_cast<Viewport*>(panel)) viewport->updateCameraSpeed();
    model.redrawViewports();
  }
  gui.applySwitches();
  gui.updateWidgets();
}

void applyViewportPreferences(Viewport& viewport, const ViewportPreferences& wanted)
{
  viewport.setPreferences(wanted);
  viewport.updateCameraSpeed(); // it depends on the near clip distance and on the grid
}

} // namespace nalt
