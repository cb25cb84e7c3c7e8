#pragma once

#include <osg/Vec3d>

#include <optional>

namespace nalt {

class Gui;
class Model;
struct GuiWidgets;

/// The points that a tool was given last, in the coordinates of the model.
struct ToolPoints {
  std::optional<osg::Vec3d> previous;
  std::optional<osg::Vec3d> current;

  /// `point` is the current one from now on.
  void push(const osg::Vec3d& point);
  /// From the previous to the current one; nothing moved while there is only one.
  osg::Vec3d delta() const;
};

/// Builds the fields below the viewports into the current group: points of the tool, what is selected, grid, parent.
void buildStatusArea(GuiWidgets& widgets);

/// Brings the number of selected elements, the parent's name and the buttons up to the present state.
void updateStatusArea(const Gui& gui);
/// Lists the selection of `model`, null for none, as soon as there is time.
void followSelection(Model* model);
void showToolPoints(const ToolPoints& points);

} // namespace nalt
