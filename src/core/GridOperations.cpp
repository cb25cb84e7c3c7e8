#include "core/GridOperations.h"

#include "core/ApiReference.h"
#include "core/LuaText.h"
#include "core/Model.h"
#include "core/ScriptCommand.h"
#include "core/Shell.h"
#include "fltapi/nodes/FaceRecord.h"

#include <cmath>
#include <memory>
#include <optional>

namespace nalt {

namespace {

/// Sine of the angle below which three corners count as lying on one line.
constexpr double straight = 1e-6;

template <class... Values>
void finish(Model& model, bool undoable, const char* title, const char* function, const Values&... values)
{
  model.gridChanged();
  if (!undoable) return;
  model.commandStack().add(
      std::make_unique<ScriptCommand>(title, luaCall(function, values...), ApiReference::commentText(function)));
}

/// The first corner, the next one that lies elsewhere, and the next one that isn't on a line with both.
std::optional<Grid::Points> planeOf(const std::vector<osg::Vec3d>& corners)
{
  std::optional<osg::Vec3d> along;
  Grid::Points points;
  for (const osg::Vec3d& corner : corners) {
    osg::Vec3d direction = corner - corners.front();
    if (!(direction.normalize() > 0.0)) continue;
    if (!along) {
      along = direction;
      points.onAxis = corner;
    } else if ((*along ^ direction).length() > straight) {
      points.origin = corners.front();
      points.third = corner;
      return points;
    }
  }
  return std::nullopt;
}

std::vector<osg::Vec3d> cornersInModel(const fltapi::PrimNodeRecord& node)
{
  const auto* face = dynamic_cast<const fltapi::FaceRecord*>(&node);
  if (!face) return {};
  std::vector<osg::Vec3d> corners = face->positions();
  const osg::Matrixd toModel = node.worldMatrix();
  for (osg::Vec3d& corner : corners)
    corner = corner * toModel;
  return corners;
}

} // namespace

void setXYGrid(Model& model, bool undoable)
{
  model.grid().setPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  finish(model, undoable, "Set XY Grid", "setXYGrid");
}

void setXZGrid(Model& model, bool undoable)
{
  model.grid().setPoints({{0, 0, 0}, {1, 0, 0}, {0, 0, 1}});
  finish(model, undoable, "Set XZ Grid", "setXZGrid");
}

void setYZGrid(Model& model, bool undoable)
{
  model.grid().setPoints({{0, 0, 0}, {0, 1, 0}, {0, 0, 1}});
  finish(model, undoable, "Set YZ Grid", "setYZGrid");
}

bool setGridOrigin(Model& model, const osg::Vec3d& origin, bool undoable)
{
  if (!model.grid().setOrigin(origin)) return false;
  finish(model, undoable, "Set Grid Origin", "setGridOrigin", origin.x(), origin.y(), origin.z());
  return true;
}

bool setGridPointOnAxis(Model& model, const osg::Vec3d& point, bool undoable)
{
  if (!model.grid().setPointOnAxis(point)) return false;
  finish(model, undoable, "Set Grid Point On Axis", "setGridPointOnAxis", point.x(), point.y(), point.z());
  return true;
}

bool setGridThirdPoint(Model& model, const osg::Vec3d& point, bool undoable)
{
  if (!model.grid().setThirdPoint(point)) return false;
  finish(model, undoable, "Set Grid Third Point", "setGridThirdPoint", point.x(), point.y(), point.z());
  return true;
}

bool addGridOffset(Model& model, double offset, bool undoable)
{
  if (!std::isfinite(offset)) {
    Shell::get().warning("Invalid grid offset.");
    return false;
  }
  model.grid().addOffset(offset);
  finish(model, undoable, "Add Grid Offset", "addGridOffset", offset);
  return true;
}

bool setGridSpacing(Model& model, double spacing, bool undoable)
{
  if (!model.grid().setSpacing(spacing)) {
    Shell::get().warning("Invalid grid spacing.");
    return false;
  }
  finish(model, undoable, "Set Grid Spacing", "setGridSpacing", spacing);
  return true;
}

bool alignGridToPolygon(Model& model, bool undoable)
{
  const Selection* polygons = model.selections().current().find(SelectionMode::polygon);
  if (!polygons || polygons->empty()) {
    Shell::get().warning("No polygon is selected - can't align grid.");
    return false;
  }
  if (polygons->size() > 1) {
    Shell::get().warning("More than one polygon is selected - can't align grid.");
    return false;
  }
  std::optional<Grid::Points> points;
  polygons->forEach(
      [&](fltapi::PrimNodeRecord& node, fltapi::VertexBaseRecord*) { points = planeOf(cornersInModel(node)); });
  if (!points) {
    Shell::get().warning("Selected polygon doesn't define a valid plane - can't align grid.");
    return false;
  }
  model.grid().setPoints(*points);
  finish(model, undoable, "Align Grid To Polygon", "alignGridToPolygon");
  return true;
}

} // namespace nalt
