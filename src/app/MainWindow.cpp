#include "app/MainWindow.h"

#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/MenuBar.h"
#include "app/PaletteButtons.h"
#include "app/SoftBox.h"
#include "app/StatusArea.h"
#include "app/ToolBars.h"
#include "core/ModelGroup.h"
#include "core/drawing/Icons.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Scroll.H>
#include <FL/Fl_Tabs.H>

#include <string>

namespace nalt {

namespace {

constexpr int windowWidth = 1362;
constexpr int windowHeight = 740;
constexpr int labelSize = 11;

ColorStripButton* addPaletteButton(int x, const char* label, const char* tooltip)
{
  auto* button = new ColorStripButton(x, 26, 34, 36, label);
  button->labelsize(labelSize);
  button->tooltip(tooltip);
  button->clear_visible_focus();
  return button;
}

/// Shown while no model is open, in place of the tabs.
void addWelcome(int x, int y, int w, int h)
{
  auto* welcome = new Fl_Box(FL_FLAT_BOX, x, y, w, h, "Open a model with File > Open...\nor drop its file here.");
  welcome->color(fl_color_average(FL_BACKGROUND_COLOR, FL_BLACK, 0.82F));
  welcome->labelcolor(fl_color_average(FL_BACKGROUND_COLOR, FL_BLACK, 0.35F));
  welcome->labelsize(14);
}

void buildModelArea(GuiWidgets& widgets)
{
  auto* group = new ModelGroup(75, 60, 1076, 572);
  addWelcome(75, 62, 1076, 570);
  auto* tabs = new Fl_Tabs(75, 62, 1076, 570);
  tabs->labelsize(labelSize);
  tabs->selection_color(fl_color_average(FL_BACKGROUND_COLOR, FL_WHITE, 0.3F));
  tabs->clear_visible_focus();
  tabs->callback([](Fl_Widget*, void*) { Gui::get().tabChanged(); });
  tabs->when(FL_WHEN_CHANGED);
  tabs->end();
  tabs->hide();
  auto* close = new Fl_Button(1134, 62, 13, 13);
  close->box(FL_FLAT_BOX);
  close->image(icon("close-model", 9));
  close->deimage(disabledIcon("close-model", 9));
  close->tooltip("Close Model");
  close->clear_visible_focus();
  close->callback([](Fl_Widget*, void*) { Gui::get().closeModel(); });
  close->hide();
  group->end();
  group->resizable(tabs);
  group->setCloseButton(close);
  widgets.modelGroup = group;
  widgets.tabs = tabs;
  widgets.closeModelButton = close;
}

void buildRightPanel(GuiWidgets& widgets)
{
  struct Entry {
    const char* label;
    const char* tooltip;
  };
  constexpr Entry entries[] = {
      {"COL", "Current Color (not in this version)"},           {"TEX", "Current Texture (not in this version)"},
      {"TXM", "Current Texture Mapping (not in this version)"}, {"MAT", "Current Material (not in this version)"},
      {"LPT", "Current Light Point (not in this version)"},     {"SHD", "Current Shader (not in this version)"},
  };
  auto* panel = new Fl_Group(1151, 24, 211, 691);
  int x = 1152;
  for (std::size_t i = 0; i < std::size(entries); ++i, x += 35) {
    widgets.palettes[i] = addPaletteButton(x, entries[i].label, entries[i].tooltip);
    widgets.palettes[i]->deactivate();
  }
  auto* tool = new Fl_Group(1152, 66, 210, 649);
  tool->box(softBox());
  tool->color(fl_color_average(FL_BACKGROUND_COLOR, FL_WHITE, 0.85F));
  tool->end();
  widgets.toolPanel = tool;
  panel->end();
  panel->resizable(tool);
}

void buildStatusLine(GuiWidgets& widgets)
{
  auto* line = new Fl_Output(0, 718, 1154, 20);
  line->textsize(labelSize);
  line->box(softBox());
  line->color(fl_color_average(FL_BACKGROUND_COLOR, FL_WHITE, 0.6F));
  line->clear_visible_focus();
  widgets.statusLine = line;
}

void closeRequested(Fl_Widget*, void*)
{
  // FLTK also comes here for an Escape that nobody wanted.
  if (Fl::event() == FL_SHORTCUT && Fl::event_key() == FL_Escape) return;
  Gui::get().exitProgram();
}

} // namespace

void buildMainWindow()
{
  GuiWidgets& widgets = GuiWidgets::get();
  auto* window =
      new Fl_Double_Window(Fl::w() / 2 - windowWidth / 2, Fl::h() / 2 - windowHeight / 2, windowWidth, windowHeight);
  window->copy_label("Nalt");
  window->xclass("nalt");
  window->callback(closeRequested);
  const auto picture = makeIcon("nalt", 64, 64);
  window->icon(picture.get());
  widgets.mainWindow = window;
  buildUpperToolBar(widgets);
  buildLeftToolBar(widgets);
  buildModelArea(widgets);
  buildStatusArea(widgets);
  buildRightPanel(widgets);
  buildStatusLine(widgets);
  buildMenuBar(widgets);
  window->end();
  window->resizable(widgets.modelGroup);
}

void destroyMainWindow()
{
  delete GuiWidgets::get().mainWindow;
  GuiWidgets::get() = GuiWidgets();
}

} // namespace nalt
