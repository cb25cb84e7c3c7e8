#pragma once

#include <string>

namespace nalt {

class Gui;

/// What entries of menus and tool bars do, one small function for each.
namespace commands {

void newModel(Gui& gui);
void open(Gui& gui);
void revert(Gui& gui);
void revertExternals(Gui& gui);
void revertTextures(Gui& gui);
void save(Gui& gui);
void saveAs(Gui& gui);
void closeModel(Gui& gui);
void closeAllModels(Gui& gui);
void exit(Gui& gui);

void undo(Gui& gui);
void redo(Gui& gui);
/// "Undo" with the name of what it takes back; the same for "Redo".
std::string undoName(const Gui& gui);
std::string redoName(const Gui& gui);

// What is selected, in the tree of nodes.
void deleteSelected(Gui& gui);
void setParent(Gui& gui);
void shiftFarLeft(Gui& gui);
void shiftLeft(Gui& gui);
void shiftRight(Gui& gui);
void shiftFarRight(Gui& gui);

// The selection, in the mode that is on.
void selectAll(Gui& gui);
void selectNone(Gui& gui);
void invertSelection(Gui& gui);
void selectSlivers(Gui& gui);
void selectNakedEdges(Gui& gui);
void selectParents(Gui& gui);
void selectChildren(Gui& gui);
void selectPrevious(Gui& gui);

void nextModel(Gui& gui);
void previousModel(Gui& gui);
// Levels of detail, from the farthest to the nearest.
void moreDetail(Gui& gui);
void mostDetail(Gui& gui);
void lessDetail(Gui& gui);
void leastDetail(Gui& gui);
void toggleAllLods(Gui& gui);
bool showsAllLods(const Gui& gui);
void enableAllLayers(Gui& gui);
void disableAllLayers(Gui& gui);
void baseLayerOnly(Gui& gui);
// In the active viewport.
void toggleShrunkPolygons(Gui& gui);
bool hasShrunkPolygons(const Gui& gui);
void toggleNormals(Gui& gui);
bool hasNormals(const Gui& gui);
void toggleLargeVertices(Gui& gui);
bool hasLargeVertices(const Gui& gui);
void toggleVertexNumbers(Gui& gui);
bool hasVertexNumbers(const Gui& gui);
void toggleGizmos(Gui& gui);
bool showsGizmos(const Gui& gui);
void toggleSnapToGrid(Gui& gui);
bool snapsToGrid(const Gui& gui);
void about(Gui& gui);

// Windows beside the main window.
void preferences(Gui& gui);
void sensitivity(Gui& gui);
void commandList(Gui& gui);
void externalReferences(Gui& gui);
void selectByName(Gui& gui);
void selectByVertices(Gui& gui);
void previewDof(Gui& gui);
void previewAnimation(Gui& gui);
void help(Gui& gui);

void setMode(Gui& gui, int number);
bool isMode(const Gui& gui, int number);
void toggleLayer(Gui& gui, int layer);
bool showsLayer(const Gui& gui, int layer);
void openRecent(Gui& gui, int place);
/// Empty when there are fewer files.
std::string recentLabel(const Gui& gui, int place);

template <int number>
void mode(Gui& gui)
{
  setMode(gui, number);
}

template <int number>
bool isMode(const Gui& gui)
{
  return isMode(gui, number);
}

template <int number>
void layer(Gui& gui)
{
  toggleLayer(gui, number);
}

template <int number>
bool hasLayer(const Gui& gui)
{
  return showsLayer(gui, number);
}

template <int place>
void recent(Gui& gui)
{
  openRecent(gui, place);
}

template <int place>
std::string recentName(const Gui& gui)
{
  return recentLabel(gui, place);
}

} // namespace commands
} // namespace nalt
