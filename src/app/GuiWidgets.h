#pragma once

#include <array>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Double_Window;
class Fl_Group;
class Fl_Menu_Bar;
class Fl_Output;
class Fl_Scroll;
class Fl_Tabs;
class Fl_Window;

namespace nalt {

class ColorStripButton;
class ModelGroup;
class NaltButton;
class SelectionList;

/// The widgets of the main window. All null until the window is built, and all but `tabs` in a run without windows.
struct GuiWidgets {
  Fl_Double_Window* mainWindow = nullptr;
  Fl_Menu_Bar* menuBar = nullptr;
  Fl_Group* upperToolBar = nullptr;
  Fl_Scroll* leftToolBar = nullptr;
  ModelGroup* modelGroup = nullptr;
  Fl_Tabs* tabs = nullptr; ///< its children are the open models
  Fl_Button* closeModelButton = nullptr;
  std::array<Fl_Output*, 3> previous{}; ///< x, y, z
  std::array<Fl_Output*, 3> current{};
  std::array<Fl_Output*, 3> delta{};
  Fl_Output* distance = nullptr;
  Fl_Output* selections = nullptr;
  std::array<Fl_Button*, 3> gridAlignment{}; ///< XY, XZ, YZ
  Fl_Button* parentButton = nullptr;
  Fl_Window* scriptEditor = nullptr; ///< while there is one
  SelectionList* selectionList = nullptr;
  std::array<ColorStripButton*, 6> palettes{}; ///< COL, TEX, TXM, MAT, LPT, SHD
  Fl_Group* toolPanel = nullptr;
  Fl_Output* statusLine = nullptr;
  std::vector<NaltButton*> buttons; ///< of both tool bars

  /// The one in force.
  static GuiWidgets& get();
};

/// Places `window` over the middle of the main window, or of the screen when that isn't shown.
void centreOverMainWindow(Fl_Window& window);

} // namespace nalt
