#include "app/ToolBars.h"

#include "app/Commands.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/NaltButton.h"
#include "app/NarrowingGroup.h"
#include "app/Tooltip.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Scroll.H>

#include <cstring>
#include <map>
#include <string>

namespace nalt {

namespace {

using Kind = ToolButton::Kind;
constexpr Operation later = nullptr; // its work isn't in the program yet

const ToolButton upperButtons[] = {
    {"File", "New", "new", commands::newModel},
    {"File", "Open", "open", commands::open},
    {"File", "Save", "save", commands::save, when::model},
    {"Edit", "Cut", "cut", later},
    {"Edit", "Copy", "copy", later},
    {"Edit", "Paste", "paste", later},
    {"Undo", "Undo", "undo", commands::undo, when::undoable, nullptr, Kind::push, false, commands::undoName},
    {"Undo", "Redo", "redo", commands::redo, when::redoable, nullptr, Kind::push, false, commands::redoName},
    {"Mode", "Vertex Mode", "mode-vertex", commands::mode<1>, when::always, commands::isMode<1>, Kind::radio},
    {"Mode", "Edge Mode", "mode-edge", commands::mode<2>, when::always, commands::isMode<2>, Kind::radio},
    {"Mode", "Polygon Mode", "mode-polygon", commands::mode<3>, when::always, commands::isMode<3>, Kind::radio},
    {"Mode", "Object Mode", "mode-object", commands::mode<4>, when::always, commands::isMode<4>, Kind::radio},
    {"Mode", "Group Mode", "mode-group", commands::mode<5>, when::always, commands::isMode<5>, Kind::radio},
    {"Mode", "LOD Mode", "mode-lod", commands::mode<6>, when::always, commands::isMode<6>, Kind::radio},
    {"Mode", "DOF Mode", "mode-dof", commands::mode<7>, when::always, commands::isMode<7>, Kind::radio},
    {"Mode", "Switch Mode", "mode-switch", commands::mode<9>, when::always, commands::isMode<9>, Kind::radio},
    {"Mode", "Light Point Mode", "mode-lightpoint", commands::mode<10>, when::always, commands::isMode<10>,
     Kind::radio},
    {"Mode", "Light Point System Mode", "mode-lightpointsystem", commands::mode<12>, when::always, commands::isMode<12>,
     Kind::radio},
    {"Mode", "External Reference Mode", "mode-external", commands::mode<8>, when::always, commands::isMode<8>,
     Kind::radio},
    {"View", "Shrink Polygons", "shrink", commands::toggleShrunkPolygons, when::viewport, commands::hasShrunkPolygons,
     Kind::toggle},
    {"View", "Show Normals", "normals", commands::toggleNormals, when::viewport, commands::hasNormals, Kind::toggle},
    {"View", "Show Vertices Large", "vertices-large", commands::toggleLargeVertices, when::viewport,
     commands::hasLargeVertices, Kind::toggle},
    {"View", "Show Vertex Numbers", "vertex-numbers", commands::toggleVertexNumbers, when::viewport,
     commands::hasVertexNumbers, Kind::toggle},
    {"View", "Snap To Grid", "snap-grid", commands::toggleSnapToGrid, when::always, commands::snapsToGrid,
     Kind::toggle},
    {"View", "Report Statistics", "statistics", later, when::model},
    {"View", "Report Differences", "differences", later, when::model},
};

/// A tool of the left tool bar: on while it is the active one.
constexpr ToolButton tool(const char* group, const char* name, const char* icon, bool hasPanel)
{
  return {group, name, icon, later, when::idleModel, nullptr, hasPanel ? Kind::toggle : Kind::push, hasPanel};
}

constexpr bool panel = true;
constexpr bool oneShot = false;

const ToolButton leftButtons[] = {
    tool("XFORM", "Move", "move", panel),
    tool("XFORM", "Rotate", "rotate", panel),
    tool("XFORM", "Scale", "scale", panel),
    tool("XFORM", "Apply Transformation Matrix", "apply-matrix", panel),
    tool("XFORM", "Eliminate Transformation Matrices", "eliminate-matrix", oneShot),
    tool("CREATE", "Create Node", "create-node", panel),
    tool("CREATE", "Create Polygon", "create-polygon", panel),
    tool("CREATE", "Create Disk", "create-disk", panel),
    tool("CREATE", "Create Sphere", "create-sphere", panel),
    tool("CREATE", "Create External Reference", "create-external", oneShot),
    tool("CREATE", "Create Light Point", "create-lightpoint", panel),
    tool("SURFACE", "Apply Color", "apply-color", oneShot),
    tool("SURFACE", "Read Color From Node", "read-color", oneShot),
    tool("SURFACE", "Apply Texture", "apply-texture", panel),
    tool("SURFACE", "Read Texture From Node", "read-texture", panel),
    tool("SURFACE", "Apply Texture Mapping", "apply-mapping", panel),
    tool("SURFACE", "Read Texture Mapping From Node", "read-mapping", panel),
    tool("SURFACE", "Apply Material", "apply-material", oneShot),
    tool("SURFACE", "Read Material From Node", "read-material", oneShot),
    tool("SURFACE", "Apply Shader", "apply-shader", oneShot),
    tool("SURFACE", "Read Shader From Node", "read-shader", oneShot),
    tool("SURFACE", "Remove Texture", "remove-texture", oneShot),
    tool("SURFACE", "Remove Texture Mapping", "remove-mapping", oneShot),
    tool("SURFACE", "Remove Material", "remove-material", oneShot),
    tool("SURFACE", "Remove Shader", "remove-shader", oneShot),
    tool("TEXMAP", "Map Texture", "map-texture", panel),
    tool("TEXMAP", "Move Texture Map", "move-texmap", panel),
    tool("TEXMAP", "Rotate Texture Map", "rotate-texmap", panel),
    tool("TEXMAP", "Scale Texture Map", "scale-texmap", panel),
    tool("TEXMAP", "Modify UV", "modify-uv", panel),
    tool("MODIFY", "Mirror", "mirror", panel),
    tool("MODIFY", "Reverse Polygon", "reverse", oneShot),
    tool("MODIFY", "Slice", "slice", panel),
    tool("MODIFY", "Split/Triangulate", "split", panel),
    tool("MODIFY", "Extrude", "extrude", panel),
    tool("MODIFY", "Revolve", "revolve", panel),
    tool("MODIFY", "Subdivide", "subdivide", panel),
    tool("MODIFY", "Simplify", "simplify", panel),
    tool("MODIFY", "Merge Polygons", "merge", oneShot),
    tool("MODIFY", "Quantify", "quantify", panel),
    tool("MODIFY", "Shade", "shade", panel),
    tool("ATTR", "Apply Attributes", "apply-attributes", panel),
    tool("ATTR", "Apply Comment", "apply-comment", panel),
};

constexpr int upperTop = 26;
constexpr int upperWidth = 1151;
constexpr int groupGap = 2;
constexpr int leftTop = 62;
constexpr int leftWidth = 75;
constexpr int leftHeight = 653;
constexpr int titleHeight = 13;
constexpr int titleSize = 8;
constexpr auto leftColor = static_cast<Fl_Color>(0xC0C0C000);

/// What the buttons of the two bars stand for.
std::map<const NaltButton*, const ToolButton*>& rows()
{
  static std::map<const NaltButton*, const ToolButton*> map;
  return map;
}

void pressed(Fl_Widget* widget, void*)
{
  Gui& gui = Gui::get();
  const ToolButton& row = *rows().at(static_cast<NaltButton*>(widget));
  if (row.run && row.enabled(gui)) row.run(gui);
  gui.updateWidgets();
}

NaltButton* addButton(GuiWidgets& widgets, int x, int y, const ToolButton& row)
{
  auto* button = new NaltButton(x, y, row.icon, row.tooltip);
  if (row.kind == Kind::toggle) button->type(FL_TOGGLE_BUTTON);
  if (row.kind == Kind::radio) button->type(FL_RADIO_BUTTON);
  button->callback(pressed);
  rows()[button] = &row;
  widgets.buttons.push_back(button);
  return button;
}

bool sameGroup(const ToolButton& a, const ToolButton& b)
{
  return std::strcmp(a.group, b.group) == 0;
}

void addSeparator(int x)
{
  auto* line = new Fl_Box(FL_FLAT_BOX, x, upperTop + 4, groupGap, NaltButton::size - 8, nullptr);
  line->color(fl_color_average(FL_BACKGROUND_COLOR, FL_BLACK, 0.8F));
}

void endGroup(NarrowingGroup& group, int right)
{
  group.end();
  group.Fl_Widget::resize(group.x(), group.y(), right - group.x(), group.h());
  group.keepPlaces();
}

} // namespace

std::span<const ToolButton> upperToolBar()
{
  return upperButtons;
}

std::span<const ToolButton> leftToolBar()
{
  return leftButtons;
}

void buildUpperToolBar(GuiWidgets& widgets)
{
  auto* bar = new NarrowingGroup(0, upperTop, upperWidth, NaltButton::size);
  bar->box(FL_FLAT_BOX);
  int x = 4;
  NarrowingGroup* group = nullptr;
  for (const ToolButton& row : upperButtons) {
    if (!group || !sameGroup(row, *(&row - 1))) {
      if (group) {
        endGroup(*group, x);
        addSeparator(x + 3);
        x += groupGap + 6;
      }
      group = new NarrowingGroup(x, upperTop, 0, NaltButton::size);
    }
    addButton(widgets, x, upperTop, row);
    x += NaltButton::size;
  }
  endGroup(*group, x);
  bar->end();
  bar->keepPlaces();
  widgets.upperToolBar = bar;
}

void buildLeftToolBar(GuiWidgets& widgets)
{
  auto* scroll = new Fl_Scroll(0, leftTop, leftWidth, leftHeight);
  scroll->type(Fl_Scroll::VERTICAL);
  scroll->box(FL_FLAT_BOX);
  scroll->scrollbar_size(leftWidth - 2 * NaltButton::size);
  int y = leftTop;
  int column = 0;
  const ToolButton* before = nullptr;
  for (const ToolButton& row : leftButtons) {
    if (!before || !sameGroup(row, *before)) {
      if (column != 0) y += NaltButton::size;
      column = 0;
      auto* title = new Fl_Box(FL_FLAT_BOX, 0, y, 2 * NaltButton::size, titleHeight, row.group);
      title->labelsize(titleSize);
      title->labelfont(FL_HELVETICA_BOLD);
      title->color(fl_color_average(FL_BACKGROUND_COLOR, FL_BLACK, 0.9F));
      y += titleHeight;
    }
    NaltButton* button = addButton(widgets, column * NaltButton::size, y, row);
    button->color(leftColor);
    column = 1 - column;
    if (column == 0) y += NaltButton::size;
    before = &row;
  }
  scroll->end();
  widgets.leftToolBar = scroll;
}

void updateToolBars(const Gui& gui)
{
  for (const auto& [known, row] : rows()) {
    auto* button = const_cast<NaltButton*>(known);
    const char* reason = whyNot(row->run, row->enabled, gui);
    reason ? button->deactivate() : button->activate();
    setTooltip(*button, withReason(row->text ? row->text(gui) : row->tooltip, reason));
    if (row->kind != Kind::push) button->value(row->isOn && row->isOn(gui) ? 1 : 0);
  }
}

} // namespace nalt
