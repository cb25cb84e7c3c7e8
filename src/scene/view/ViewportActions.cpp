#include "scene/view/ViewportActions.h"

#include "core/MenuLabel.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/Shell.h"
#include "scene/view/Hiding.h"
#include "scene/view/ScreenCapture.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportGridActions.h"

#include <FL/Fl.H>

#include <cstring>

namespace nalt {

namespace {

constexpr int textSize = 11;

constexpr int shifted(char letter)
{
  return FL_SHIFT | letter;
}

/// Gives one field of the style that value.
template <auto field, auto value>
void choose(Viewport& viewport)
{
  ViewStyle style = viewport.style();
  style.*field = value;
  viewport.setStyle(style);
}

template <auto field, auto value>
bool isChosen(const Viewport& viewport)
{
  return viewport.style().*field == value;
}

constexpr auto appearance = &ViewStyle::appearance;
constexpr auto gridDepth = &ViewStyle::gridDepth;

void nextAppearance(Viewport& viewport)
{
  ViewStyle style = viewport.style();
  const int next = static_cast<int>(style.appearance) % static_cast<int>(Appearance::wireframe) + 1;
  style.appearance = static_cast<Appearance>(next);
  viewport.setStyle(style);
}

template <bool ViewStyle::*flag>
void toggle(Viewport& viewport)
{
  ViewStyle style = viewport.style();
  style.*flag = !(style.*flag);
  viewport.setStyle(style);
}

template <bool ViewStyle::*flag>
bool isSet(const Viewport& viewport)
{
  return viewport.style().*flag;
}

template <int x, int y, int z>
void lookAlong(Viewport& viewport)
{
  viewport.viewAlong(osg::Vec3d(x, y, z));
}

template <bool orthographic>
void project(Viewport& viewport)
{
  viewport.setOrthographic(orthographic);
}

template <bool orthographic>
bool projects(const Viewport& viewport)
{
  return viewport.orthographic() == orthographic;
}

template <bool head>
void lightFrom(Viewport& viewport)
{
  viewport.setHeadLight(head);
}

template <bool head>
bool isLitFrom(const Viewport& viewport)
{
  return viewport.headLight() == head;
}

void otherLight(Viewport& viewport)
{
  viewport.setHeadLight(!viewport.headLight());
}

void storeView(Viewport& viewport)
{
  Shell::storedView() = viewport.storedView();
}

void recallView(Viewport& viewport)
{
  viewport.recallView(Shell::storedView());
}

void fitInView(Viewport& viewport)
{
  viewport.fitInView();
}

void fitToSelection(Viewport& viewport)
{
  viewport.fitToSelection();
}

template <int side>
void lookAtGrid(Viewport& viewport)
{
  viewport.viewAlong(viewport.grid()->axes().normal * side);
}

void toggleGrid(Viewport& viewport)
{
  viewport.showGrid(!viewport.showsGrid());
}

bool showsGrid(const Viewport& viewport)
{
  return viewport.showsGrid();
}

void alignToVertices(Viewport& viewport)
{
  viewport.gridPlacement().toggleAligning();
}

void translateOrigin(Viewport& viewport)
{
  viewport.gridPlacement().startTranslating();
}

void editPreferences(Viewport& viewport)
{
  if (const auto& edit = viewportPreferencesEditor()) edit(viewport);
}

void captureScreen(Viewport& viewport)
{
  const std::string proposal = !viewport.captureFile().empty() || !viewport.model()
                                   ? viewport.captureFile()
                                   : firstCaptureFile(viewport.model()->path());
  const std::string path = askForCaptureFile(proposal);
  if (path.empty()) return;
  viewport.setCaptureFile(path);
  const Preferences& preferences = Preferences::get();
  const osg::ref_ptr<osg::Image> picture = viewport.capture();
  if (picture)
    writeCapture(*captureOfSize(picture, preferences.captureWidth, preferences.captureHeight), path);
  else
    Shell::get().warning("Failed to write image: " + path);
}

const ViewportAction actions[] = {
    {"Viewpoint", "Perspective", 'p', project<false>, projects<false>, true},
    {"Viewpoint", "Orthographic", 'o', project<true>, projects<true>, true},
    {"Viewpoint", "Top (Along -Z)", shifted('z'), lookAlong<0, 0, -1>, nullptr},
    {"Viewpoint", "Bottom (Along Z)", 'z', lookAlong<0, 0, 1>, nullptr},
    {"Viewpoint", "Front (Along -Y)", shifted('y'), lookAlong<0, -1, 0>, nullptr},
    {"Viewpoint", "Back (Along Y)", 'y', lookAlong<0, 1, 0>, nullptr},
    {"Viewpoint", "Right (Along -X)", shifted('x'), lookAlong<-1, 0, 0>, nullptr},
    {"Viewpoint", "Left (Along X)", 'x', lookAlong<1, 0, 0>, nullptr},
    {"Viewpoint", "Above Grid", 'j', lookAtGrid<-1>, nullptr},
    {"Viewpoint", "Below Grid", shifted('j'), lookAtGrid<1>, nullptr},
    {"Viewpoint", "Store View", shifted('q'), storeView, nullptr},
    {"Viewpoint", "Recall View", 'q', recallView, nullptr},
    {"Viewpoint", "Fit To Selection", 'v', fitToSelection, nullptr},
    {"Viewpoint", "Fit In View", ' ', fitInView, nullptr},
    {"Appearance", "Scribed", 'w', choose<appearance, Appearance::scribed>, isChosen<appearance, Appearance::scribed>,
     true, nextAppearance},
    {"Appearance", "Solid", 'w', choose<appearance, Appearance::solid>, isChosen<appearance, Appearance::solid>, true,
     nextAppearance},
    {"Appearance", "Wireframe", 'w', choose<appearance, Appearance::wireframe>,
     isChosen<appearance, Appearance::wireframe>, true, nextAppearance},
    {"Appearance", "Draw Wireframe Backface", 0, toggle<&ViewStyle::wireframeBackface>,
     isSet<&ViewStyle::wireframeBackface>},
    {"Appearance", "Texture On", 't', toggle<&ViewStyle::texture>, isSet<&ViewStyle::texture>},
    {"Appearance", "Shader On", 'r', toggle<&ViewStyle::shader>, isSet<&ViewStyle::shader>},
    {"Lighting", "Lighting On", 'l', toggle<&ViewStyle::lighting>, isSet<&ViewStyle::lighting>},
    {"Lighting", "Head Light", 'm', lightFrom<true>, isLitFrom<true>, true, otherLight},
    {"Lighting", "Sky Light", 'm', lightFrom<false>, isLitFrom<false>, true, otherLight},
    {"Grid", "Show Grid", 'g', toggleGrid, showsGrid},
    {"Grid", "Align To XY", 0, alignGridToXY, nullptr},
    {"Grid", "Align To XZ", 0, alignGridToXZ, nullptr},
    {"Grid", "Align To YZ", 0, alignGridToYZ, nullptr},
    {"Grid", "Align To Vertices", 'a', alignToVertices, nullptr},
    {"Grid", "Align To Polygon", 'f', alignGridToPolygon, nullptr},
    {"Grid", "Translate Origin", 0, translateOrigin, nullptr},
    {"Grid", "Z-buffer", 0, choose<gridDepth, GridDepth::zBuffer>, isChosen<gridDepth, GridDepth::zBuffer>, true},
    {"Grid", "Always On Top", 0, choose<gridDepth, GridDepth::alwaysOnTop>, isChosen<gridDepth, GridDepth::alwaysOnTop>,
     true},
    {"Grid", "Never On Top", 0, choose<gridDepth, GridDepth::neverOnTop>, isChosen<gridDepth, GridDepth::neverOnTop>,
     true},
    {"Grid", "Increase Grid Size", '=', increaseGrid, nullptr, false, nullptr, FL_KP + '+'},
    {"Grid", "Decrease Grid Size", '-', decreaseGrid, nullptr, false, nullptr, FL_KP + '-'},
    {"Grid", "Double Grid Size", shifted('='), doubleGrid, nullptr, false, nullptr, FL_SHIFT | (FL_KP + '+')},
    {"Grid", "Half Grid Size", shifted('-'), halveGrid, nullptr, false, nullptr, FL_SHIFT | (FL_KP + '-')},
    {"Grid", "Grid Spacing...", 'e', askForGridSpacing, nullptr},
    {"Grid", "Grid Offset...", 'd', askForGridOffset, nullptr},
    {"Hiding", "Hide Selected", 'h', hideSelected, nullptr},
    {"Hiding", "Isolate Selected", 'i', isolateSelected, nullptr},
    {"Hiding", "Unhide Selected", shifted('h'), unhideSelected, nullptr},
    {"Hiding", "Unhide All", shifted('u'), unhideAll, nullptr},
    {nullptr, "Capture Screen...", 'b', captureScreen, nullptr},
    {nullptr, "Viewport Preferences...", 'c', editPreferences, nullptr},
};

bool sameGroup(const char* a, const char* b)
{
  return a == b || (a && b && std::strcmp(a, b) == 0);
}

Fl_Menu_Item itemOf(const ViewportAction& action, const Viewport* viewport, Fl_Callback* callback)
{
  int flags = 0;
  if (!action.run) flags |= FL_MENU_INACTIVE;
  if (action.isOn) flags |= action.isChoice ? FL_MENU_RADIO : FL_MENU_TOGGLE;
  if (viewport && action.isOn && action.isOn(*viewport)) flags |= FL_MENU_VALUE;
  void* data = const_cast<ViewportAction*>(&action); // FLTK's user data is never const; readers take it as const again
  return {action.label, action.key, callback, data, flags, menuLabel(), FL_HELVETICA, textSize, 0};
}

/// Whether FLTK's current key event is `key`, which has FL_SHIFT or no modifier at all.
bool isKeyOfEvent(int key)
{
  return key != 0 && Fl::event_key() == (key & FL_KEY_MASK) && (Fl::event_shift() != 0) == ((key & FL_SHIFT) != 0);
}

} // namespace

std::function<void(Viewport&)>& viewportPreferencesEditor()
{
  static std::function<void(Viewport&)> editor;
  return editor;
}

std::span<const ViewportAction> viewportActions()
{
  return actions;
}

std::vector<Fl_Menu_Item> viewportMenu(const Viewport* viewport, Fl_Callback* callback)
{
  std::vector<Fl_Menu_Item> items;
  const char* group = nullptr;
  const auto close = [&] {
    if (group) items.push_back(Fl_Menu_Item());
  };
  for (const ViewportAction& action : actions) {
    if (!sameGroup(action.group, group)) {
      close();
      group = action.group;
      if (group) items.push_back({group, 0, nullptr, nullptr, FL_SUBMENU, 0, FL_HELVETICA, textSize, 0});
    }
    items.push_back(itemOf(action, viewport, callback));
    const ViewportAction* next = &action + 1;
    const bool last = next == std::end(actions) || !sameGroup(next->group, group);
    const bool sameKind = !last && !next->isOn == !action.isOn && next->isChoice == action.isChoice;
    if (!last && !sameKind) items.back().flags |= FL_MENU_DIVIDER;
  }
  close();
  items.push_back(Fl_Menu_Item());
  return items;
}

void runViewportAction(const ViewportAction& action, Viewport& viewport, bool byKey)
{
  if (byKey && action.runKey)
    action.runKey(viewport);
  else if (action.run)
    action.run(viewport);
}

bool runViewportKey(Viewport& viewport)
{
  if (Fl::event_ctrl() || Fl::event_alt()) return false;
  for (const ViewportAction& action : actions) {
    if (!isKeyOfEvent(action.key) && !isKeyOfEvent(action.otherKey)) continue;
    if (!action.run) return false;
    runViewportAction(action, viewport, /*byKey=*/true);
    return true;
  }
  return false;
}

} // namespace nalt
