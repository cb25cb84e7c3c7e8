#include "scene/view/Hiding.h"

#include "core/Model.h"
#include "core/WaitCursor.h"
#include "scene/image/Visibility.h"
#include "scene/view/Viewport.h"

#include <unordered_set>

namespace nalt {

namespace {

Nodes selectedNodes(Model& model)
{
  Nodes nodes;
  std::unordered_set<const fltapi::PrimNodeRecord*> known;
  for (const auto& [mode, selection] : model.selections().current().families()) {
    selection->forEach([&](fltapi::PrimNodeRecord& node, fltapi::VertexBaseRecord*) {
      if (known.insert(&node).second) nodes.push_back(&node);
    });
  }
  return nodes;
}

using Operation = void (*)(const Nodes&, std::uint32_t, Sync&);

void applyToSelected(Viewport& viewport, Operation operation)
{
  Model* const model = viewport.model();
  if (!model || !model->sync() || model->selections().empty()) return;
  const WaitCursor cursor;
  operation(selectedNodes(*model), viewport.bits(), *model->sync());
  viewport.redraw();
}

} // namespace

void hideSelected(Viewport& viewport)
{
  applyToSelected(viewport, hide);
}

void isolateSelected(Viewport& viewport)
{
  applyToSelected(viewport, isolate);
}

void unhideSelected(Viewport& viewport)
{
  applyToSelected(viewport, unhide);
}

void unhideAll(Viewport& viewport)
{
  Model* const model = viewport.model();
  if (!model || !model->sync()) return;
  const WaitCursor cursor;
  unhideAll(viewport.bits(), *model->sync());
  viewport.redraw();
}

} // namespace nalt
