#include "app/MenuBar.h"

#include "app/ActiveViewport.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/MenuReasons.h"
#include "app/MenuTable.h"
#include "app/ToolBars.h"
#include "core/Model.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportActions.h"

#include <FL/Fl.H>
#include <FL/Fl_Menu_Bar.H>

#include <cstring>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace nalt {

namespace {

constexpr int barWidth = 1366;
constexpr int barHeight = 23;
constexpr int barTextSize = 10;
constexpr int textSize = 11;

/// The menu as FLTK wants it. Once built it stays where it is: FLTK keeps pointers into it while a menu is open, so
/// that only marks and names may change.
struct Menu {
  std::vector<Fl_Menu_Item> items;
  std::vector<const MenuRow*> rows; ///< for each item, null for those from other tables
  std::vector<const ToolButton*> tools;
  std::size_t firstViewportItem = 0;
  std::size_t viewportItems = 0;
  std::map<std::size_t, std::string> labels; ///< of the items whose name changes
  std::deque<std::string> texts;             ///< other labels made at run time
};

Menu& theMenu()
{
  static Menu menu;
  return menu;
}

void pickedRow(Fl_Widget*, void* data)
{
  static_cast<const MenuRow*>(data)->run(Gui::get());
  Gui::get().updateWidgets();
}

void pickedTool(Fl_Widget*, void* data)
{
  static_cast<const ToolButton*>(data)->run(Gui::get());
  Gui::get().updateWidgets();
}

void pickedViewportAction(Fl_Widget*, void* data)
{
  const auto& action = *static_cast<const ViewportAction*>(data);
  if (Viewport* viewport = activeViewport(Gui::get()))
    runViewportAction(action, *viewport, Fl::event() == FL_SHORTCUT || Fl::event_key() == (action.key & FL_KEY_MASK));
  Gui::get().updateWidgets();
}

/// FLTK's user data is never const; who reads it takes it as const again.
template <class T>
void* userData(const T& row)
{
  return const_cast<T*>(&row);
}

/// A label as it is read: without marks of keys, room behind it and dots.
std::string plainText(const char* label)
{
  std::string text;
  for (const char* c = label; *c; ++c)
    if (*c != '&') text += *c;
  while (text.ends_with(' ') || text.ends_with('.'))
    text.pop_back();
  return text;
}

/// Why the entry with that label can't be used now; empty if it can.
std::string reasonAgainst(const char* label)
{
  const Menu& menu = theMenu();
  for (std::size_t i = 0; i < menu.items.size(); ++i) {
    if (menu.items[i].label() != label || menu.items[i].active()) continue;
    const MenuRow* row = menu.rows[i];
    const ToolButton* tool = menu.tools[i];
    const char* reason = nullptr;
    if (row && row->kind == MenuRow::Kind::submenu)
      reason = whyNotOpen(row->enabled, Gui::get());
    else if (row)
      reason = whyNot(row->run, row->enabled, Gui::get());
    else if (tool)
      reason = whyNot(tool->run, tool->enabled, Gui::get());
    return reason ? plainText(label) + ": " + reason + "." : "";
  }
  return "";
}

void add(Menu& menu, const Fl_Menu_Item& item, const MenuRow* row = nullptr, const ToolButton* tool = nullptr)
{
  menu.items.push_back(item);
  if (row || tool) menu.items.back().labeltype(labelWithReason(reasonAgainst));
  menu.rows.push_back(row);
  menu.tools.push_back(tool);
}

Fl_Menu_Item titleItem(const char* label)
{
  return {label, 0, nullptr, nullptr, FL_SUBMENU, 0, FL_HELVETICA, textSize, 0};
}

/// A submenu for each group of the left tool bar.
void addTools(Menu& menu)
{
  const char* group = nullptr;
  for (const ToolButton& tool : leftToolBar()) {
    if (!group || std::strcmp(group, tool.group) != 0) {
      if (group) add(menu, Fl_Menu_Item());
      group = tool.group;
      menu.texts.push_back(std::string("&") + group);
      add(menu, titleItem(menu.texts.back().c_str()));
    }
    // A "/" is no path here: the items are handed over as they are.
    menu.texts.push_back(std::string(tool.tooltip) + (tool.hasPanel ? "..." : ""));
    add(menu, {menu.texts.back().c_str(), 0, pickedTool, userData(tool), 0, 0, FL_HELVETICA, textSize, 0}, nullptr,
        &tool);
  }
  add(menu, Fl_Menu_Item());
}

void addViewportMenu(Menu& menu)
{
  std::vector<Fl_Menu_Item> items = viewportMenu(nullptr, pickedViewportAction);
  items.pop_back(); // the end mark is a row of the table
  menu.firstViewportItem = menu.items.size();
  menu.viewportItems = items.size();
  for (const Fl_Menu_Item& item : items)
    add(menu, item);
}

void addRow(Menu& menu, const MenuRow& row)
{
  switch (row.kind) {
  case MenuRow::Kind::submenu:
    add(menu, titleItem(row.label), &row);
    break;
  case MenuRow::Kind::entry:
    add(menu, {row.label, row.shortcut, pickedRow, userData(row), row.flags, 0, FL_HELVETICA, textSize, 0}, &row);
    break;
  case MenuRow::Kind::toolGroups:
    addTools(menu);
    break;
  case MenuRow::Kind::viewportMenu:
    addViewportMenu(menu);
    break;
  case MenuRow::Kind::macros:
    break; // none yet
  case MenuRow::Kind::end:
    add(menu, Fl_Menu_Item());
    break;
  }
}

void setActive(Fl_Menu_Item& item, bool active)
{
  if (active)
    item.activate();
  else
    item.deactivate();
}

void setValue(Fl_Menu_Item& item, bool value)
{
  if (value)
    item.set();
  else
    item.clear();
}

void setText(Menu& menu, std::size_t i, const std::string& text)
{
  std::string& label = menu.labels[i];
  label = text;
  menu.items[i].label(label.c_str());
  if (text.empty())
    menu.items[i].hide();
  else
    menu.items[i].show();
}

/// Takes marks and states over from the menu that `viewport` would pop up.
void updateViewportMenu(Menu& menu, const Viewport* viewport)
{
  const std::vector<Fl_Menu_Item> now = viewportMenu(viewport, pickedViewportAction);
  for (std::size_t i = 0; i < menu.viewportItems; ++i)
    menu.items[menu.firstViewportItem + i].flags = now[i].flags;
}

} // namespace

void buildMenuBar(GuiWidgets& widgets)
{
  Menu& menu = theMenu();
  menu = Menu();
  for (const MenuRow& row : menuRows())
    addRow(menu, row);
  add(menu, Fl_Menu_Item());

  widgets.menuBar = new Fl_Menu_Bar(0, 0, barWidth, barHeight);
  widgets.menuBar->textsize(barTextSize);
  widgets.menuBar->box(FL_FLAT_BOX);
  widgets.menuBar->menu(menu.items.data());
}

void updateMenuBar(const Gui& gui)
{
  Menu& menu = theMenu();
  for (std::size_t i = 0; i < menu.items.size(); ++i) {
    if (const MenuRow* row = menu.rows[i]) {
      const bool isTitle = row->kind == MenuRow::Kind::submenu;
      if (row->kind != MenuRow::Kind::end) setActive(menu.items[i], (isTitle || row->run) && row->enabled(gui));
      if (row->isOn) setValue(menu.items[i], row->isOn(gui));
      if (row->text) setText(menu, i, row->text(gui));
    } else if (const ToolButton* tool = menu.tools[i]) {
      setActive(menu.items[i], tool->run && tool->enabled(gui));
    }
  }
  updateViewportMenu(menu, activeViewport(gui));
}

} // namespace nalt
