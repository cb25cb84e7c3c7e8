#include "scene/view/ViewportGridActions.h"

#include "core/GridOperations.h"
#include "core/Model.h"
#include "core/dialogs/NumberDialog.h"
#include "scene/view/Viewport.h"

namespace nalt {

namespace {

/// The model of `viewport`, which becomes the active one: what operates on the grid of a model means that one's. Null
/// for a viewport without a model.
Model* activated(Viewport& viewport)
{
  viewport.activate();
  return viewport.model();
}

template <class Change>
void changeSize(Viewport& viewport, Change&& change)
{
  change(*viewport.grid());
  viewport.gridChanged();
}

} // namespace

void alignGridToXY(Viewport& viewport)
{
  if (Model* model = activated(viewport)) setXYGrid(*model, /*undoable=*/true);
}

void alignGridToXZ(Viewport& viewport)
{
  if (Model* model = activated(viewport)) setXZGrid(*model, /*undoable=*/true);
}

void alignGridToYZ(Viewport& viewport)
{
  if (Model* model = activated(viewport)) setYZGrid(*model, /*undoable=*/true);
}

void alignGridToPolygon(Viewport& viewport)
{
  if (Model* model = activated(viewport)) alignGridToPolygon(*model, /*undoable=*/true);
}

void increaseGrid(Viewport& viewport)
{
  changeSize(viewport, [](Grid& grid) { grid.increase(); });
}

void decreaseGrid(Viewport& viewport)
{
  changeSize(viewport, [](Grid& grid) { grid.decrease(); });
}

void doubleGrid(Viewport& viewport)
{
  changeSize(viewport, [&](Grid& grid) { grid.redouble(viewport.modelRadius()); });
}

void halveGrid(Viewport& viewport)
{
  changeSize(viewport, [](Grid& grid) { grid.halve(); });
}

void askForGridSpacing(Viewport& viewport)
{
  Model* const model = activated(viewport);
  if (!model) return;
  const auto isSpacing = [](double spacing) { return Grid().setSpacing(spacing); };
  const auto spacing =
      askNumber({"Grid Spacing", "Spacing:", viewport.grid()->spacing(), "Invalid grid spacing.", isSpacing});
  if (spacing) setGridSpacing(*model, *spacing, /*undoable=*/true);
}

void askForGridOffset(Viewport& viewport)
{
  Model* const model = activated(viewport);
  if (!model) return;
  const auto offset = askNumber({"Grid Offset", "Offset:", 0.0, "Invalid grid offset."});
  if (offset) addGridOffset(*model, *offset, /*undoable=*/true);
}

} // namespace nalt
