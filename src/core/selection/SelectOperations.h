#pragma once

#include "core/selection/SelectionMode.h"

#include <string>
#include <vector>

namespace nalt {

class Model;

// What the Selection menu and scripts do with the selection of a model. Each gives whether anything was selected by it;
// where nothing is found, the selection stays as it was. `undoable` is off in batch runs, which make no commands.

bool selectAll(Model& model, SelectionMode mode, bool undoable);
void selectNone(Model& model, bool undoable);
/// Everything of the mode in the file but what is selected of it now.
bool invertSelection(Model& model, SelectionMode mode, bool undoable);
bool convertSelection(Model& model, SelectionMode mode, bool undoable);
void selectPrevious(Model& model, bool undoable);
void selectParents(Model& model, bool undoable);
void selectChildren(Model& model, bool undoable);

struct NameSearch {
  std::vector<std::string> names; ///< of nodes, or of parts of them: "p19/V2", "p19/E2"
  bool caseSensitive = false;
  bool addToSelection = false;
};
/// The recorded line that makes this search.
std::string selectByNameLine(const NameSearch& search);
bool selectByName(Model& model, const NameSearch& search, bool undoable);

/// Polygons with exactly that many corners, in the selected subtrees when `fromCurrent` is set and anything is
/// selected.
bool selectByNumberOfVertices(Model& model, int count, bool fromCurrent, bool undoable);
/// Corners of polygons that lie within the tolerance of x and y, at any height.
bool selectVerticesByLocation(Model& model, double x, double y, bool undoable);
/// Polygons of the selection, or of the file, that have fewer than three corners, or a corner whose angle in degrees is
/// below the tolerance while the area is below it too.
bool selectSliverPolygons(Model& model, bool undoable);
/// Edges of the selection, or of the file, that no edge of another polygon runs along in the opposite direction.
bool selectNakedEdges(Model& model, bool undoable);

} // namespace nalt
