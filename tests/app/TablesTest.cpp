#include "app/FileDialogs.h"
#include "app/MenuTable.h"
#include "app/ToolBars.h"
#include "core/drawing/Icons.h"
#include "scene/view/ViewportActions.h"

#include <FL/Enumerations.H>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace nalt {

namespace {

using testing::ElementsAreArray;

constexpr int ctrl = FL_CTRL;
constexpr int shift = FL_SHIFT;

using Labels = std::vector<std::pair<std::string, int>>;

/// Labels and keys of the rows that stand directly in the submenu with that title.
Labels entriesOf(const std::string& title)
{
  Labels labels;
  std::vector<std::string> path;
  for (const MenuRow& row : menuRows()) {
    if (row.kind == MenuRow::Kind::end) path.pop_back();
    const bool hasName = row.label || row.text;
    if (hasName && (path.empty() ? title.empty() : path.back() == title))
      labels.emplace_back(row.label ? row.label : "", row.shortcut);
    if (row.kind == MenuRow::Kind::submenu) path.emplace_back(row.label);
  }
  return labels;
}

std::vector<std::string> tooltipsOf(std::span<const ToolButton> bar, const std::string& group)
{
  std::vector<std::string> tooltips;
  for (const ToolButton& button : bar)
    if (group.empty() || group == button.group) tooltips.emplace_back(button.tooltip);
  return tooltips;
}

} // namespace

TEST(MenuTable, HasItsMenusInOrder)
{
  EXPECT_EQ(entriesOf(""), (Labels{{"&File", 0},
                                   {"&Edit", 0},
                                   {"&View", 0},
                                   {"&Selection", 0},
                                   {"&Mode", 0},
                                   {"&Tools", 0},
                                   {"&Palettes", 0},
                                   {"S&cript", 0},
                                   {"M&isc", 0},
                                   {"&Help", 0}}));
}

TEST(MenuTable, FileHasItsEntriesAndKeys)
{
  EXPECT_EQ(entriesOf("&File"), (Labels{{"&New", ctrl | 'n'},
                                        {"&Open...", ctrl | 'o'},
                                        {"&Revert...", 0},
                                        {"Re&vert Externals", 0},
                                        {"Rever&t Textures", 0},
                                        {"External Re&ferences...", 0},
                                        {"O&pen Recent", 0},
                                        {"&Save", ctrl | 's'},
                                        {"Save &As...", ctrl | shift | 's'},
                                        {"&Import...", ctrl | 'i'},
                                        {"&Export As...", ctrl | 'e'},
                                        {"&Close Model", ctrl | 'w'},
                                        {"C&lose All Models    ", ctrl | shift | 'w'},
                                        {"E&xit", ctrl | 'q'}}));
  EXPECT_EQ(entriesOf("O&pen Recent").size(), 4U);
}

TEST(MenuTable, EditHasItsEntriesAndKeys)
{
  EXPECT_EQ(entriesOf("&Edit"), (Labels{{"", ctrl | 'z'}, // named by what it undoes
                                        {"", ctrl | 'y'},
                                        {"Cu&t", ctrl | 'x'},
                                        {"&Copy", ctrl | 'c'},
                                        {"&Paste", ctrl | 'v'},
                                        {"&Delete", FL_Delete},
                                        {"&Set Parent", ctrl | 'p'},
                                        {"C&hange Parent    ", ctrl | 'r'},
                                        {"Shift F&ar Left", 0},
                                        {"Sh&ift Left", 0},
                                        {"Shi&ft Right", 0},
                                        {"Shift Far Ri&ght", 0},
                                        {"Pr&eferences...", 0}}));
}

TEST(MenuTable, ViewHasItsEntriesAndKeys)
{
  EXPECT_EQ(entriesOf("&View"), (Labels{{"&Next Model", ctrl | FL_Tab},
                                        {"&Previous Model", ctrl | shift | FL_Tab},
                                        {"&More Detail", ctrl | 'm'},
                                        {"M&ost Detail", ctrl | shift | 'm'},
                                        {"&Less Detail", ctrl | 'l'},
                                        {"L&east Detail", ctrl | shift | 'l'},
                                        {"&Show All LODs", 0},
                                        {"M&ulti-texture", 0},
                                        {"Sens&itivity...", ctrl | 't'},
                                        {"Show &Gizmos", ctrl | 'g'},
                                        {"&Command List...", 0},
                                        {"Preview &DOF...", 0},
                                        {"Preview &Animation...", 0},
                                        {"&Viewport", 0}}));
  Labels layers;
  for (char digit = '0'; digit <= '7'; ++digit)
    layers.emplace_back("Layer &" + std::string(1, digit) + "   ", ctrl | FL_ALT | digit);
  layers.insert(layers.end(), {{"&Enable All", 0}, {"&Disable All", 0}, {"&Base Only", 0}});
  EXPECT_EQ(entriesOf("M&ulti-texture"), layers);
}

TEST(MenuTable, SelectionAndModeHaveTheirEntriesAndKeys)
{
  EXPECT_EQ(entriesOf("&Selection"), (Labels{{"&All", ctrl | 'a'},
                                             {"&None", ctrl | 'd'},
                                             {"&Invert Selection", 0},
                                             {"&Select By Name...", 0},
                                             {"Select &By Attributes...", 0},
                                             {"Select Polygons By Number Of &Vertices...", 0},
                                             {"Select Sliver &Polygons", 0},
                                             {"Select Na&ked Edges", 0},
                                             {"S&elect Parents", 0},
                                             {"Select &Children", 0},
                                             {"Se&lect Previous", 0}}));
  Labels modes = entriesOf("&Mode");
  for (auto& [label, key] : modes)
    std::erase(label, '&');
  EXPECT_THAT(modes, testing::UnorderedElementsAreArray(Labels{{"Vertex Mode", shift | 'v'},
                                                               {"Edge Mode", shift | 'e'},
                                                               {"Polygon Mode", shift | 'f'},
                                                               {"Object Mode", shift | 'o'},
                                                               {"Group Mode", shift | 'g'},
                                                               {"LOD Mode", shift | 'l'},
                                                               {"DOF Mode", shift | 'd'},
                                                               {"External Reference Mode    ", shift | 'r'},
                                                               {"Switch Mode", shift | 's'},
                                                               {"Light Point Mode", shift | 'p'},
                                                               {"Light Point System Mode", shift | 't'}}));
}

TEST(MenuTable, TheOtherMenusHaveTheirEntriesAndKeys)
{
  EXPECT_EQ(entriesOf("&Palettes"), (Labels{{"&Color Palette...", 0},
                                            {"&Texture Palette...", 0},
                                            {"T&exture Mapping Palette...", 0},
                                            {"&Material Palette...", 0},
                                            {"&Light Point Palette...", 0},
                                            {"&Shader Palette...", 0}}));
  EXPECT_EQ(entriesOf("S&cript"), (Labels{{"&Script Editor...", 0}, {"&Macro Editor...", 0}, {"M&acros", 0}}));
  EXPECT_EQ(entriesOf("M&isc"), (Labels{{"&Shrink Polygons", 's'},
                                        {"Show &Normals", 'n'},
                                        {"Show &Vertices Large", 0},
                                        {"Show Vertex N&umbers", 0},
                                        {"Snap To &Grid", 0},
                                        {"R&eport Statistics", 0},
                                        {"Report &Differences", 0}}));
  EXPECT_EQ(entriesOf("&Help"), (Labels{{"&Help...", FL_F + 1}, {"&About Nalt...", 0}}));
}

TEST(MenuTable, EverySubmenuIsEnded)
{
  int depth = 0;
  for (const MenuRow& row : menuRows()) {
    if (row.kind == MenuRow::Kind::submenu) ++depth;
    if (row.kind == MenuRow::Kind::end) --depth;
    EXPECT_GE(depth, 0);
  }
  EXPECT_EQ(depth, 0);
}

TEST(MenuTable, NoTwoEntriesShareAShortcut)
{
  std::map<int, std::string> owners;
  for (const MenuRow& row : menuRows()) {
    if (row.shortcut == 0) continue;
    const auto [place, isNew] = owners.emplace(row.shortcut, row.label);
    EXPECT_TRUE(isNew) << row.label << " and " << place->second;
  }
}

TEST(MenuTable, NoEntryTakesAKeyOfTheViewports)
{
  std::set<int> keys;
  for (const ViewportAction& action : viewportActions())
    keys.insert(action.key);
  for (const MenuRow& row : menuRows())
    if (row.shortcut != 0) {
      EXPECT_FALSE(keys.contains(row.shortcut)) << row.label;
    }
}

TEST(MenuTable, LabelsAreUniqueInTheirSubmenu)
{
  std::vector<std::set<std::string>> open(1);
  for (const MenuRow& row : menuRows()) {
    if (row.label && *row.label != 0) {
      EXPECT_TRUE(open.back().insert(row.label).second) << row.label;
    }
    if (row.kind == MenuRow::Kind::submenu) open.emplace_back();
    if (row.kind == MenuRow::Kind::end) open.pop_back();
  }
}

TEST(ToolBars, TheUpperOneHasItsButtonsInOrder)
{
  EXPECT_THAT(tooltipsOf(upperToolBar(), ""), ElementsAreArray({"New",
                                                                "Open",
                                                                "Save",
                                                                "Cut",
                                                                "Copy",
                                                                "Paste",
                                                                "Undo",
                                                                "Redo",
                                                                "Vertex Mode",
                                                                "Edge Mode",
                                                                "Polygon Mode",
                                                                "Object Mode",
                                                                "Group Mode",
                                                                "LOD Mode",
                                                                "DOF Mode",
                                                                "Switch Mode",
                                                                "Light Point Mode",
                                                                "Light Point System Mode",
                                                                "External Reference Mode",
                                                                "Shrink Polygons",
                                                                "Show Normals",
                                                                "Show Vertices Large",
                                                                "Show Vertex Numbers",
                                                                "Snap To Grid",
                                                                "Report Statistics",
                                                                "Report Differences"}));
}

TEST(ToolBars, TheLeftOneHasItsToolsInOrder)
{
  EXPECT_THAT(tooltipsOf(leftToolBar(), "XFORM"),
              ElementsAreArray(
                  {"Move", "Rotate", "Scale", "Apply Transformation Matrix", "Eliminate Transformation Matrices"}));
  EXPECT_THAT(tooltipsOf(leftToolBar(), "CREATE"),
              ElementsAreArray({"Create Node", "Create Polygon", "Create Disk", "Create Sphere",
                                "Create External Reference", "Create Light Point"}));
  EXPECT_THAT(tooltipsOf(leftToolBar(), "SURFACE"),
              ElementsAreArray({"Apply Color", "Read Color From Node", "Apply Texture", "Read Texture From Node",
                                "Apply Texture Mapping", "Read Texture Mapping From Node", "Apply Material",
                                "Read Material From Node", "Apply Shader", "Read Shader From Node", "Remove Texture",
                                "Remove Texture Mapping", "Remove Material", "Remove Shader"}));
  EXPECT_THAT(
      tooltipsOf(leftToolBar(), "TEXMAP"),
      ElementsAreArray({"Map Texture", "Move Texture Map", "Rotate Texture Map", "Scale Texture Map", "Modify UV"}));
  EXPECT_THAT(tooltipsOf(leftToolBar(), "MODIFY"),
              ElementsAreArray({"Mirror", "Reverse Polygon", "Slice", "Split/Triangulate", "Extrude", "Revolve",
                                "Subdivide", "Simplify", "Merge Polygons", "Quantify", "Shade"}));
  EXPECT_THAT(tooltipsOf(leftToolBar(), "ATTR"), ElementsAreArray({"Apply Attributes", "Apply Comment"}));
}

TEST(ImportFilters, AreListedInOrder)
{
  std::vector<std::string> lines;
  for (const FileFilter& filter : importFilters())
    lines.push_back(std::string(filter.description) + " " + filter.pattern);
  EXPECT_THAT(
      lines,
      ElementsAreArray(
          {"3DC Point Cloud *.3dc", "3D Studio MAX *.3ds", "AC3D *.ac", "COLLADA *.dae", "Autodesk DXF *.dxf",
           "Autodesk FBX *.fbx", "LightWave *.{lwo,lws}", "Quake Character Models *.md2", "Alias Wavefront OBJ *.obj",
           "OpenSceneGraph *.{osg,ive,osga,osgb,osgt,osgx}", "VBS2 P3D *.p3d", "Stanford Triangle Format *.ply",
           "ESRI Shape *.{shp}", "StereoLithography *.{stl,sta}", "Direct X *.x",
           "All supported import formats "
           "*.{3dc,3ds,ac,dae,dw,dxf,fbx,geo,lwo,lws,md2,obj,osg,ive,osga,osgb,osgt,osgx,p3d,ply,shp,stl,sta,x}"}));
}

TEST(ToolBars, EveryButtonHasAPicture)
{
  for (const auto bar : {upperToolBar(), leftToolBar()})
    for (const ToolButton& button : bar)
      EXPECT_TRUE(icon(button.icon, 24)) << button.tooltip;
}

TEST(ToolBars, HoldTheirGroupsInOnePiece)
{
  for (const auto bar : {upperToolBar(), leftToolBar()}) {
    std::set<std::string> closed;
    std::string group;
    for (const ToolButton& button : bar) {
      if (group == button.group) continue;
      EXPECT_TRUE(closed.insert(button.group).second) << button.group;
      group = button.group;
    }
  }
  EXPECT_EQ(upperToolBar().size(), 26U);
  EXPECT_EQ(leftToolBar().size(), 43U);
}

} // namespace nalt
