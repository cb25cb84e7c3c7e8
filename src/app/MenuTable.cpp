#include "app/MenuTable.h"

#include "app/Commands.h"

#include <FL/Enumerations.H>
#include <FL/Fl_Menu_Item.H>

namespace nalt {

namespace {

constexpr int ctrl = FL_CTRL;
constexpr int shift = FL_SHIFT;
constexpr int alt = FL_ALT;
constexpr int divider = FL_MENU_DIVIDER;
constexpr int radio = FL_MENU_RADIO;
constexpr int toggle = FL_MENU_TOGGLE;
constexpr Operation later = nullptr; // its work isn't in the program yet

constexpr MenuRow menu(const char* label, Condition enabled = when::always)
{
  return {MenuRow::Kind::submenu, label, 0, nullptr, enabled, nullptr, FL_SUBMENU};
}

constexpr MenuRow entry(const char* label, int shortcut, Operation run, Condition enabled = when::always, int flags = 0)
{
  return {MenuRow::Kind::entry, label, shortcut, run, enabled, nullptr, flags};
}

constexpr MenuRow check(const char* label, int shortcut, Operation run, bool (*isOn)(const Gui&), Condition enabled,
                        int flags)
{
  return {MenuRow::Kind::entry, label, shortcut, run, enabled, isOn, flags};
}

constexpr MenuRow named(std::string (*text)(const Gui&), int shortcut, Operation run, Condition enabled, int flags = 0)
{
  return {MenuRow::Kind::entry, "", shortcut, run, enabled, nullptr, flags, text};
}

template <int number>
constexpr MenuRow mode(const char* label, int key)
{
  return check(label, shift | key, commands::mode<number>, commands::isMode<number>, when::always, radio);
}

template <int number>
constexpr MenuRow layer(const char* label, int flags = 0)
{
  return check(label, ctrl | alt | ('0' + number), commands::layer<number>, commands::hasLayer<number>, when::model,
               toggle | flags);
}

constexpr MenuRow place(MenuRow::Kind kind)
{
  return {kind};
}

constexpr MenuRow end = {MenuRow::Kind::end};

const MenuRow rows[] = {
    menu("&File"),
    entry("&New", ctrl | 'n', commands::newModel),
    entry("&Open...", ctrl | 'o', commands::open, when::always, divider),
    entry("&Revert...", 0, commands::revert, when::revertable),
    entry("Re&vert Externals", 0, commands::revertExternals, when::idleModel),
    entry("Rever&t Textures", 0, commands::revertTextures, when::idleModel, divider),
    entry("External Re&ferences...", 0, commands::externalReferences, when::idleModel, divider),
    menu("O&pen Recent", when::recentFiles),
    named(commands::recentName<0>, 0, commands::recent<0>, when::always),
    named(commands::recentName<1>, 0, commands::recent<1>, when::always),
    named(commands::recentName<2>, 0, commands::recent<2>, when::always),
    named(commands::recentName<3>, 0, commands::recent<3>, when::always),
    end,
    entry("&Save", ctrl | 's', commands::save, when::model),
    entry("Save &As...", ctrl | shift | 's', commands::saveAs, when::model, divider),
    entry("&Import...", ctrl | 'i', later),
    entry("&Export As...", ctrl | 'e', later, when::always, divider),
    entry("&Close Model", ctrl | 'w', commands::closeModel, when::idleModel),
    entry("C&lose All Models    ", ctrl | shift | 'w', commands::closeAllModels, when::idleModel, divider),
    entry("E&xit", ctrl | 'q', commands::exit),
    end,

    menu("&Edit"),
    named(commands::undoName, ctrl | 'z', commands::undo, when::undoable),
    named(commands::redoName, ctrl | 'y', commands::redo, when::redoable, divider),
    entry("Cu&t", ctrl | 'x', later),
    entry("&Copy", ctrl | 'c', later),
    entry("&Paste", ctrl | 'v', later),
    entry("&Delete", FL_Delete, commands::deleteSelected, when::selection, divider),
    entry("&Set Parent", ctrl | 'p', commands::setParent, when::selection),
    entry("C&hange Parent    ", ctrl | 'r', later, when::always, divider),
    entry("Shift F&ar Left", 0, commands::shiftFarLeft, when::selection),
    entry("Sh&ift Left", 0, commands::shiftLeft, when::selection),
    entry("Shi&ft Right", 0, commands::shiftRight, when::selection),
    entry("Shift Far Ri&ght", 0, commands::shiftFarRight, when::selection, divider),
    entry("Pr&eferences...", 0, commands::preferences),
    end,

    menu("&View"),
    entry("&Next Model", ctrl | FL_Tab, commands::nextModel, when::severalModels),
    entry("&Previous Model", ctrl | shift | FL_Tab, commands::previousModel, when::severalModels, divider),
    entry("&More Detail", ctrl | 'm', commands::moreDetail, when::idleModel),
    entry("M&ost Detail", ctrl | shift | 'm', commands::mostDetail, when::idleModel),
    entry("&Less Detail", ctrl | 'l', commands::lessDetail, when::idleModel),
    entry("L&east Detail", ctrl | shift | 'l', commands::leastDetail, when::idleModel),
    check("&Show All LODs", 0, commands::toggleAllLods, commands::showsAllLods, when::idleModel, toggle | divider),
    menu("M&ulti-texture"),
    layer<0>("Layer &0   "),
    layer<1>("Layer &1   "),
    layer<2>("Layer &2   "),
    layer<3>("Layer &3   "),
    layer<4>("Layer &4   "),
    layer<5>("Layer &5   "),
    layer<6>("Layer &6   "),
    layer<7>("Layer &7   ", divider),
    entry("&Enable All", 0, commands::enableAllLayers, when::model),
    entry("&Disable All", 0, commands::disableAllLayers, when::model),
    entry("&Base Only", 0, commands::baseLayerOnly, when::model),
    end,
    entry("Sens&itivity...", ctrl | 't', commands::sensitivity),
    check("Show &Gizmos", ctrl | 'g', commands::toggleGizmos, commands::showsGizmos, when::always, toggle | divider),
    entry("&Command List...", 0, commands::commandList, when::model),
    entry("Preview &DOF...", 0, commands::previewDof),
    entry("Preview &Animation...", 0, commands::previewAnimation, when::always, divider),
    menu("&Viewport", when::viewport),
    place(MenuRow::Kind::viewportMenu),
    end,
    end,

    menu("&Selection"),
    entry("&All", ctrl | 'a', commands::selectAll, when::idleModel),
    entry("&None", ctrl | 'd', commands::selectNone, when::idleModel),
    entry("&Invert Selection", 0, commands::invertSelection, when::idleModel, divider),
    entry("&Select By Name...", 0, commands::selectByName, when::idleModel),
    entry("Select &By Attributes...", 0, later),
    entry("Select Polygons By Number Of &Vertices...", 0, commands::selectByVertices, when::idleModel),
    entry("Select Sliver &Polygons", 0, commands::selectSlivers, when::idleModel),
    entry("Select Na&ked Edges", 0, commands::selectNakedEdges, when::idleModel, divider),
    entry("S&elect Parents", 0, commands::selectParents, when::idleModel),
    entry("Select &Children", 0, commands::selectChildren, when::idleModel),
    entry("Se&lect Previous", 0, commands::selectPrevious, when::idleModel),
    end,

    menu("&Mode"),
    mode<1>("&Vertex Mode", 'v'),
    mode<2>("&Edge Mode", 'e'),
    mode<3>("Polygon Mode", 'f'),
    mode<4>("&Object Mode", 'o'),
    mode<5>("&Group Mode", 'g'),
    mode<6>("&LOD Mode", 'l'),
    mode<7>("&DOF Mode", 'd'),
    mode<9>("&Switch Mode", 's'),
    mode<10>("Light &Point Mode", 'p'),
    mode<12>("Ligh&t Point System Mode", 't'),
    mode<8>("External &Reference Mode    ", 'r'),
    end,

    menu("&Tools"),
    place(MenuRow::Kind::toolGroups),
    end,

    menu("&Palettes"),
    entry("&Color Palette...", 0, later),
    entry("&Texture Palette...", 0, later),
    entry("T&exture Mapping Palette...", 0, later),
    entry("&Material Palette...", 0, later),
    entry("&Light Point Palette...", 0, later),
    entry("&Shader Palette...", 0, later),
    end,

    menu("S&cript"),
    entry("&Script Editor...", 0, later),
    entry("&Macro Editor...", 0, later),
    menu("M&acros", when::never),
    place(MenuRow::Kind::macros),
    end,
    end,

    menu("M&isc"),
    check("&Shrink Polygons", 's', commands::toggleShrunkPolygons, commands::hasShrunkPolygons, when::viewport, toggle),
    check("Show &Normals", 'n', commands::toggleNormals, commands::hasNormals, when::viewport, toggle),
    check("Show &Vertices Large", 0, commands::toggleLargeVertices, commands::hasLargeVertices, when::viewport, toggle),
    check("Show Vertex N&umbers", 0, commands::toggleVertexNumbers, commands::hasVertexNumbers, when::viewport,
          toggle | divider),
    check("Snap To &Grid", 0, commands::toggleSnapToGrid, commands::snapsToGrid, when::always, toggle | divider),
    entry("R&eport Statistics", 0, later),
    entry("Report &Differences", 0, later),
    end,

    menu("&Help"),
    entry("&Help...", FL_F + 1, commands::help),
    entry("&About Nalt...", 0, commands::about),
    end,
};

} // namespace

std::span<const MenuRow> menuRows()
{
  return rows;
}

} // namespace nalt
