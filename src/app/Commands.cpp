#include "app/Commands.h"

#include "app/AboutDialog.h"
#include "app/ActiveViewport.h"
#include "app/Gui.h"
#include "app/dialogs/Dialogs.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/WaitCursor.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/Opcodes.h"
#include "scene/view/Viewport.h"

#include <FL/Fl.H>

namespace nalt::commands {

namespace {

void toggleStyle(const Gui& gui, bool ViewStyle::*flag)
{
  Viewport* viewport = activeViewport(gui);
  if (!viewport) return;
  ViewStyle style = viewport->style();
  style.*flag = !(style.*flag);
  viewport->setStyle(style);
}

bool hasStyle(const Gui& gui, bool ViewStyle::*flag)
{
  const Viewport* viewport = activeViewport(gui);
  return viewport && viewport->style().*flag;
}

/// Shows the texture layers whose bits are set in `layers`.
void setLayers(const Gui& gui, unsigned layers)
{
  Model* model = gui.currentModel();
  if (!model) return;
  DisplaySwitches switches = model->switches();
  switches.textureLayers = static_cast<std::uint8_t>(layers);
  model->setSwitches(switches);
}

unsigned layersOf(const Gui& gui)
{
  const Model* model = gui.currentModel();
  return model ? model->switches().textureLayers : DisplaySwitches().textureLayers;
}

Sync* syncOf(const Gui& gui)
{
  Model* model = gui.currentModel();
  return model ? model->sync() : nullptr;
}

int lodStateOf(const Gui& gui)
{
  const Sync* sync = syncOf(gui);
  return sync ? sync->lodState() : 0;
}

int lastLodState(const Gui& gui)
{
  const Sync* sync = syncOf(gui);
  return sync ? sync->stateCount() - 1 : 0;
}

/// Does nothing for a state that the model doesn't have.
void setLodState(const Gui& gui, int state)
{
  Sync* sync = syncOf(gui);
  if (!sync || state < 0 || state >= sync->stateCount() || state == sync->lodState()) return;
  sync->setLodState(state);
  gui.currentModel()->bindViewports();
}

/// Says in the status line when a search found nothing, since then nothing else changes.
void tellWhetherFound(Gui& gui, bool found, const std::string& what)
{
  gui.setStatusLine(found ? "" : "There are no " + what + " to select.");
}

SelectionMode modeOf(const Gui& gui)
{
  return static_cast<SelectionMode>(gui.selectionMode());
}

/// "vertices", "light point systems"
std::string elementsOf(SelectionMode mode)
{
  switch (mode) {
  case SelectionMode::vertex:
    return "vertices";
  case SelectionMode::switchNode:
    return "switches";
  case SelectionMode::lightPointSystem:
    return "light point systems";
  default:
    return std::string(infoOf(mode).word) + "s";
  }
}

std::string nameOf(const char* verb, const CommandStack::Commands* commands)
{
  return commands && !commands->empty() ? verb + (" " + commands->back()->name()) : verb;
}

} // namespace

void newModel(Gui& gui)
{
  gui.createUntitled();
}

void open(Gui& gui)
{
  gui.files().chooseAndOpen();
}

void revert(Gui& gui)
{
  gui.files().revert(/*synchronous=*/false);
}

void revertExternals(Gui& gui)
{
  gui.files().revertExternals(/*synchronous=*/false);
}

void revertTextures(Gui& gui)
{
  Model* model = gui.currentModel();
  if (!model || !model->sync()) return;
  const WaitCursor cursor;
  model->sync()->updatePalette(fltapi::opcodes::texturePalette, /*reload=*/true);
  model->redrawViewports();
}

void save(Gui& gui)
{
  gui.save();
}

void saveAs(Gui& gui)
{
  gui.saveAs();
}

void closeModel(Gui& gui)
{
  gui.closeModel();
}

void closeAllModels(Gui& gui)
{
  gui.closeAllModels();
}

void exit(Gui& gui)
{
  gui.exitProgram();
}

void undo(Gui& gui)
{
  if (Model* model = gui.currentModel()) model->commandStack().undo();
}

void redo(Gui& gui)
{
  if (Model* model = gui.currentModel()) model->commandStack().redo();
}

std::string undoName(const Gui& gui)
{
  Model* model = gui.currentModel();
  return nameOf("Undo", model ? &model->commandStack().undoCommands() : nullptr);
}

std::string redoName(const Gui& gui)
{
  Model* model = gui.currentModel();
  return nameOf("Redo", model ? &model->commandStack().redoCommands() : nullptr);
}

void selectAll(Gui& gui)
{
  Model* model = gui.currentModel();
  const SelectionMode mode = modeOf(gui);
  if (model) tellWhetherFound(gui, nalt::selectAll(*model, mode, /*undoable=*/true), elementsOf(mode));
}

void selectNone(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::selectNone(*model, /*undoable=*/true);
}

void invertSelection(Gui& gui)
{
  Model* model = gui.currentModel();
  const SelectionMode mode = modeOf(gui);
  if (model) tellWhetherFound(gui, nalt::invertSelection(*model, mode, /*undoable=*/true), "other " + elementsOf(mode));
}

void selectSlivers(Gui& gui)
{
  if (Model* model = gui.currentModel())
    tellWhetherFound(gui, selectSliverPolygons(*model, /*undoable=*/true), "sliver polygons");
}

void selectNakedEdges(Gui& gui)
{
  if (Model* model = gui.currentModel())
    tellWhetherFound(gui, nalt::selectNakedEdges(*model, /*undoable=*/true), "naked edges");
}

void selectParents(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::selectParents(*model, /*undoable=*/true);
}

void selectChildren(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::selectChildren(*model, /*undoable=*/true);
}

void selectPrevious(Gui& gui)
{
  if (Model* model = gui.currentModel()) nalt::selectPrevious(*model, /*undoable=*/true);
}

void nextModel(Gui& gui)
{
  gui.nextModel(+1);
}

void previousModel(Gui& gui)
{
  gui.nextModel(-1);
}

void moreDetail(Gui& gui)
{
  setLodState(gui, lodStateOf(gui) + 1);
}

void mostDetail(Gui& gui)
{
  setLodState(gui, lastLodState(gui));
}

void lessDetail(Gui& gui)
{
  setLodState(gui, lodStateOf(gui) - 1);
}

void leastDetail(Gui& gui)
{
  setLodState(gui, 0);
}

void toggleAllLods(Gui& gui)
{
  Model* model = gui.currentModel();
  if (!model) return;
  DisplaySwitches switches = model->switches();
  switches.allLods = !switches.allLods;
  model->setSwitches(switches);
}

bool showsAllLods(const Gui& gui)
{
  const Model* model = gui.currentModel();
  return model && model->switches().allLods;
}

void enableAllLayers(Gui& gui)
{
  setLayers(gui, 0xFFU);
}

void disableAllLayers(Gui& gui)
{
  setLayers(gui, 0U);
}

void baseLayerOnly(Gui& gui)
{
  setLayers(gui, 1U);
}

void toggleLayer(Gui& gui, int layer)
{
  setLayers(gui, layersOf(gui) ^ (1U << layer));
}

bool showsLayer(const Gui& gui, int layer)
{
  return (layersOf(gui) >> layer & 1U) != 0;
}

void toggleShrunkPolygons(Gui& gui)
{
  toggleStyle(gui, &ViewStyle::shrunkPolygons);
}

bool hasShrunkPolygons(const Gui& gui)
{
  return hasStyle(gui, &ViewStyle::shrunkPolygons);
}

void toggleNormals(Gui& gui)
{
  toggleStyle(gui, &ViewStyle::normals);
}

bool hasNormals(const Gui& gui)
{
  return hasStyle(gui, &ViewStyle::normals);
}

void toggleLargeVertices(Gui& gui)
{
  toggleStyle(gui, &ViewStyle::largeVertices);
}

bool hasLargeVertices(const Gui& gui)
{
  return hasStyle(gui, &ViewStyle::largeVertices);
}

void toggleVertexNumbers(Gui& gui)
{
  toggleStyle(gui, &ViewStyle::vertexNumbers);
}

bool hasVertexNumbers(const Gui& gui)
{
  return hasStyle(gui, &ViewStyle::vertexNumbers);
}

void toggleGizmos(Gui& gui)
{
  Preferences::get().showGizmos = !Preferences::get().showGizmos;
  gui.applySwitches();
  gui.dialogs().preferencesChanged();
}

bool showsGizmos(const Gui&)
{
  return Preferences::get().showGizmos;
}

void toggleSnapToGrid(Gui& gui)
{
  gui.setSnapsToGrid(!gui.snapsToGrid());
}

bool snapsToGrid(const Gui& gui)
{
  return gui.snapsToGrid();
}

void about(Gui&)
{
  showAboutDialog();
}

void setMode(Gui& gui, int number)
{
  gui.setSelectionMode(number);
}

bool isMode(const Gui& gui, int number)
{
  return gui.selectionMode() == number;
}

void openRecent(Gui& gui, int place)
{
  const std::vector<std::string>& paths = gui.recentFiles().paths();
  if (place < static_cast<int>(paths.size())) gui.openFiles({paths[static_cast<std::size_t>(place)]});
}

std::string recentLabel(const Gui& gui, int place)
{
  const std::vector<std::string>& paths = gui.recentFiles().paths();
  if (place >= static_cast<int>(paths.size())) return "";
  std::string label = "&" + std::to_string(place + 1) + ". ";
  // A single "&" would underline the letter behind it, and a single "@" would be a picture.
  for (const char c : paths[static_cast<std::size_t>(place)])
    label += std::string(c == '&' || c == '@' ? 2 : 1, c);
  return label;
}

} // namespace nalt::commands
