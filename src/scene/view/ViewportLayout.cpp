#include "scene/view/ViewportLayout.h"

#include "core/Model.h"
#include "scene/view/Viewport.h"

#include <FL/Fl_Box.H>

#include <algorithm>

namespace nalt {

namespace {

constexpr int smallestPanel = 15;      // pixels
constexpr int smallestLowerPanel = 18; // with the seam above it

} // namespace

std::vector<PanelRect> panelLayout(int x, int y, int w, int h, int count)
{
  const int left = w / 2;
  const int top = h / 2;
  const int right = w - left;
  const int bottom = h - top;
  switch (count) {
  case 2:
    return {{"ul", x, y, w, top}, {"ll", x, y + top, w, bottom}};
  case 3:
    return {{"ul", x, y, left, top}, {"ur", x + left, y, right, top}, {"ll", x, y + top, w, bottom}};
  case 4:
    return {{"ul", x, y, left, top},
            {"ur", x + left, y, right, top},
            {"ll", x, y + top, left, bottom},
            {"lr", x + left, y + top, right, bottom}};
  default:
    return {{"ll", x, y, w, h}};
  }
}

void addViewports(Model& model, const std::vector<VPBase*>& viewports)
{
  for (VPBase* viewport : viewports)
    model.add(viewport->widget());
  if (Fl_Widget* before = model.resizable(); before && before != &model) {
    model.remove(before);
    delete before;
  }
  // Seams stay inside of this one, so that every panel keeps something to be taken by.
  auto* limits =
      new Fl_Box(model.x() + smallestPanel, model.y() + smallestPanel, std::max(1, model.w() - 2 * smallestPanel),
                 std::max(1, model.h() - smallestPanel - smallestLowerPanel));
  model.add(limits);
  model.resizable(limits);
  model.init_sizes();
  model.bindViewports();
  model.setActiveViewport(viewports.front());
}

void createViewports(Model& model, int count, const ViewportPreferences& preferences)
{
  Fl_Group* const before = Fl_Group::current();
  Fl_Group::current(nullptr);
  std::vector<VPBase*> viewports;
  for (const PanelRect& panel : panelLayout(model.x(), model.y(), model.w(), model.h(), count)) {
    auto* viewport = new Viewport(panel.x, panel.y, panel.w, panel.h, panel.name);
    viewport->setPreferences(preferences);
    viewports.push_back(viewport);
  }
  addViewports(model, viewports);
  Fl_Group::current(before);
}

} // namespace nalt
