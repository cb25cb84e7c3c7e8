#include "scene/view/ViewportLayout.h"

#include "core/Model.h"
#include "scene/view/Viewport.h"

namespace nalt {

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

void createViewports(Model& model, int count, const ViewportPreferences& preferences)
{
  Fl_Group* const before = Fl_Group::current();
  Fl_Group::current(nullptr);
  VPBase* first = nullptr;
  for (const PanelRect& panel : panelLayout(model.x(), model.y(), model.w(), model.h(), count)) {
    auto* viewport = new Viewport(panel.x, panel.y, panel.w, panel.h, panel.name);
    viewport->setPreferences(preferences);
    model.add(viewport);
    if (!first) first = viewport;
  }
  Fl_Group::current(before);
  model.init_sizes();
  model.bindViewports();
  model.setActiveViewport(first);
}

} // namespace nalt
