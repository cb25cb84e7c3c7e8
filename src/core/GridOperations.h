#pragma once

#include <osg/Vec3d>

namespace nalt {

class Model;

// What menus and scripts do with the grid of a model (Model::grid). Each shows the grid anew and is recorded;
// `undoable` is off in batch runs, which make no commands. Undo takes the recorded line back and leaves the grid: it
// belongs to the view, not to the document.

void setXYGrid(Model& model, bool undoable);
void setXZGrid(Model& model, bool undoable);
void setYZGrid(Model& model, bool undoable);
// False, and nothing recorded, when the points of the grid would lie on one line.
bool setGridOrigin(Model& model, const osg::Vec3d& origin, bool undoable);
bool setGridPointOnAxis(Model& model, const osg::Vec3d& point, bool undoable);
bool setGridThirdPoint(Model& model, const osg::Vec3d& point, bool undoable);
/// False, after a message, for an offset that isn't finite.
bool addGridOffset(Model& model, double offset, bool undoable);
/// False, after a message, for a spacing that isn't a finite number above 0.
bool setGridSpacing(Model& model, double spacing, bool undoable);
/// Lays the grid on the one selected polygon: origin at its first corner, first axis along its first edge. False, after
/// a message, when there isn't exactly one or it has no plane.
bool alignGridToPolygon(Model& model, bool undoable);

} // namespace nalt
