#include "app/StatusArea.h"

#include "app/Action.h"
#include "app/Commands.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/NarrowingGroup.h"
#include "app/SelectionList.h"
#include "app/Tooltip.h"
#include "core/GridOperations.h"
#include "core/Model.h"
#include "fltapi/AllRecords.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Output.H>

#include <array>
#include <cstdio>
#include <string>

namespace nalt {

namespace {

constexpr int labelSize = 11;
constexpr std::array rowTops = {650, 670, 690};
constexpr int titleTop = 632;
constexpr int fieldWidth = 120;
constexpr int fieldHeight = 20;

void addLabel(int x, int y, int w, int h, const char* text)
{
  auto* label = new Fl_Box(x, y, w, h, text);
  label->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
  label->labelsize(labelSize);
}

Fl_Output* addField(int x, int y)
{
  auto* field = new Fl_Output(x, y, fieldWidth, fieldHeight);
  field->textsize(labelSize);
  field->value("0");
  field->clear_visible_focus();
  return field;
}

Fl_Button* addButton(int x, int y, int w, const char* label, const char* tooltip)
{
  auto* button = new Fl_Button(x, y, w, fieldHeight, label);
  button->labelsize(labelSize);
  button->tooltip(tooltip);
  button->clear_visible_focus();
  return button;
}

void addPointFields(GuiWidgets& widgets)
{
  struct Column {
    const char* title;
    int x;
    std::array<Fl_Output*, 3>& fields;
  };
  for (const Column& column : {Column{"Previous:", 95, widgets.previous}, Column{"Current:", 215, widgets.current},
                               Column{"Delta:", 335, widgets.delta}}) {
    addLabel(column.x, titleTop, fieldWidth, 18, column.title);
    for (std::size_t i = 0; i < rowTops.size(); ++i)
      column.fields[i] = addField(column.x, rowTops[i]);
  }
  // The row in the middle is typed by tools, not by the user: selected text must not stand out.
  for (Fl_Output* field : widgets.current)
    field->selection_color(field->color());
  constexpr std::array axes = {"X", "Y", "Z"};
  for (std::size_t i = 0; i < rowTops.size(); ++i)
    addLabel(80, rowTops[i], 15, fieldHeight, axes[i]);
}

template <void (*align)(Model&, bool)>
void alignGrid(Fl_Widget*, void*)
{
  Gui& gui = Gui::get();
  if (Model* model = gui.currentModel(); model && when::idle(gui)) align(*model, /*undoable=*/true);
}

struct Plane {
  const char* name;
  const char* tooltip;
  Fl_Callback* align;
};

constexpr std::array planes = {Plane{"XY", "Align Grid To XY", alignGrid<setXYGrid>},
                               Plane{"XZ", "Align Grid To XZ", alignGrid<setXZGrid>},
                               Plane{"YZ", "Align Grid To YZ", alignGrid<setYZGrid>}};

void addGridButtons(GuiWidgets& widgets)
{
  addLabel(460, 671, fieldWidth, 18, "Grid Alignment:");
  for (std::size_t i = 0; i < planes.size(); ++i) {
    Fl_Button* button = addButton(460 + 28 * static_cast<int>(i), rowTops[2], 28, planes[i].name, planes[i].tooltip);
    button->callback(planes[i].align);
    widgets.gridAlignment[i] = button;
  }
}

void addParentButton(GuiWidgets& widgets)
{
  addLabel(590, 671, fieldWidth, 18, "Parent:");
  Fl_Button* button = addButton(590, rowTops[2], fieldWidth, nullptr, "Set Parent Node");
  button->labeltype(plainLabel());
  button->align(FL_ALIGN_CENTER | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
  button->callback([](Fl_Widget*, void*) {
    Gui& gui = Gui::get();
    if (when::selection(gui)) commands::setParent(gui);
  });
  widgets.parentButton = button;
}

void setText(Fl_Output& field, const std::string& text)
{
  if (text != field.value()) field.value(text.c_str());
}

std::string numberText(double value)
{
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.10g", value);
  return text.data();
}

void setPoint(const std::array<Fl_Output*, 3>& fields, const osg::Vec3d& point)
{
  for (std::size_t i = 0; i < fields.size(); ++i)
    setText(*fields[i], numberText(point[static_cast<unsigned>(i)]));
}

std::string parentName(const Model* model)
{
  const auto* parent = model ? model->currentParent() : nullptr;
  return parent ? parent->getName() : "";
}

} // namespace

void ToolPoints::push(const osg::Vec3d& point)
{
  previous = current;
  current = point;
}

osg::Vec3d ToolPoints::delta() const
{
  return previous && current ? *current - *previous : osg::Vec3d();
}

void buildStatusArea(GuiWidgets& widgets)
{
  auto* area = new NarrowingGroup(75, 632, 1079, 83);
  area->box(FL_FLAT_BOX);
  addPointFields(widgets);
  addLabel(460, titleTop, fieldWidth, 18, "Distance:");
  widgets.distance = addField(460, rowTops[0]);
  addLabel(590, titleTop, fieldWidth, 18, "#Selections:");
  widgets.selections = addField(590, rowTops[0]);
  addGridButtons(widgets);
  addParentButton(widgets);
  addLabel(715, titleTop, 165, 18, "Selections:");
  auto* list = new SelectionList(715, rowTops[0], 165, 60);
  list->textsize(labelSize);
  list->tooltip("What is selected; a double click selects that one alone");
  widgets.selectionList = list;
  area->end();
  area->keepPlaces();
}

void updateStatusArea(const Gui& gui)
{
  const GuiWidgets& widgets = GuiWidgets::get();
  Model* model = gui.currentModel();
  setText(*widgets.selections, std::to_string(model ? model->selections().size() : 0));
  for (std::size_t i = 0; i < planes.size(); ++i) {
    Fl_Button* button = widgets.gridAlignment[i];
    model ? button->activate() : button->deactivate();
    setTooltip(*button, withReason(planes[i].tooltip, model ? nullptr : "no model is open"));
  }
  const char* reason = whyNotOpen(when::selection, gui);
  reason ? widgets.parentButton->deactivate() : widgets.parentButton->activate();
  setTooltip(*widgets.parentButton, withReason("Set Parent Node", reason));
  if (const std::string name = parentName(model);
      name != (widgets.parentButton->label() ? widgets.parentButton->label() : ""))
    widgets.parentButton->copy_label(name.c_str());
}

void followSelection(Model* model)
{
  if (SelectionList* list = GuiWidgets::get().selectionList) list->follow(model);
}

void showToolPoints(const ToolPoints& points)
{
  const GuiWidgets& widgets = GuiWidgets::get();
  if (!widgets.distance) return;
  setPoint(widgets.previous, points.previous.value_or(osg::Vec3d()));
  setPoint(widgets.current, points.current.value_or(osg::Vec3d()));
  setPoint(widgets.delta, points.delta());
  setText(*widgets.distance, numberText(points.delta().length()));
}

} // namespace nalt
