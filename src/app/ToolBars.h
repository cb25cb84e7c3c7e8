#pragma once

#include "app/Action.h"

#include <span>
#include <string>

namespace nalt {

struct GuiWidgets;

/// One button of a tool bar.
struct ToolButton {
  enum class Kind { push, toggle, radio };

  const char* group;   ///< its title in the left tool bar and, with "&" in front, its submenu of Tools
  const char* tooltip; ///< and its name in menus
  const char* icon;
  Operation run; ///< null: its work isn't in the program yet
  Condition enabled = when::always;
  bool (*isOn)(const Gui&) = nullptr;
  Kind kind = Kind::push;
  bool hasPanel = false;                     ///< opens a panel with values, so its menu label ends in "..."
  std::string (*text)(const Gui&) = nullptr; ///< the tooltip when it changes
};

std::span<const ToolButton> upperToolBar();
std::span<const ToolButton> leftToolBar();

/// Build the bars into the current group at their places, and note their buttons in `widgets`.
void buildUpperToolBar(GuiWidgets& widgets);
void buildLeftToolBar(GuiWidgets& widgets);

/// Switches every button on or off, and marks those that are in force.
void updateToolBars(const Gui& gui);

} // namespace nalt
