#include "scene/view/ViewportCount.h"

#include "core/Model.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportLayout.h"

#include <algorithm>
#include <vector>

namespace nalt {

namespace {

/// What the user has set up in a viewport.
struct Setup {
  CameraPose pose;
  bool orthographic = false;
  bool headLight = true;
  ViewStyle style;
  ViewportPreferences preferences;
  Grid grid;
};

Setup setupOf(Viewport& viewport)
{
  return {viewport.camera().pose(), viewport.orthographic(), viewport.headLight(),
          viewport.style(),         viewport.preferences(),  *viewport.grid()};
}

std::vector<Viewport*> viewportsOf(const Model& model)
{
  std::vector<Viewport*> viewports;
  for (VPBase* panel : model.viewports())
    if (auto* viewport = dynamic_cast<Viewport*>(panel)) viewports.push_back(viewport);
  return viewports;
}

void apply(const Setup& setup, Viewport& viewport)
{
  viewport.setPreferences(setup.preferences);
  *viewport.grid() = setup.grid;
  viewport.gridChanged();
  viewport.setStyle(setup.style);
  viewport.setHeadLight(setup.headLight);
  viewport.setOrthographic(setup.orthographic);
  viewport.camera().setPose(setup.pose);
}

} // namespace

void changeViewportCount(Model& model, int count, const ViewportPreferences& preferences)
{
  const std::vector<Viewport*> former = viewportsOf(model);
  if (former.size() == panelLayout(0, 0, 2, 2, count).size()) return;
  std::vector<Setup> setups;
  CameraPose activePose;
  for (Viewport* viewport : former) {
    setups.push_back(setupOf(*viewport));
    if (viewport->isActive()) activePose = viewport->camera().pose();
  }

  const bool wasShown = std::any_of(former.begin(), former.end(), [](Viewport* viewport) { return viewport->shown(); });
  model.removeAllViewports(/*destroy=*/true);
  createViewports(model, count, preferences);
  std::size_t i = 0;
  for (Viewport* viewport : viewportsOf(model)) {
    if (i < setups.size())
      apply(setups[i], *viewport);
    else if (!setups.empty())
      viewport->camera().setPose(activePose);
    ++i;
    if (wasShown) viewport->show();
  }
  model.redraw();
}

} // namespace nalt
