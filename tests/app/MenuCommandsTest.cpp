#include "app/Commands.h"
#include "core/selection/SelectOperations.h"
#include "tests/app/GuiFixture.h"

namespace nalt {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuCommands : public GuiFixture {
protected:
  std::vector<std::string> selected() const { return gui.currentModel()->selections().names(); }
  void openSquares(int count) { gui.openModel(savedSquares("squares.flt", count), /*synchronous=*/true); }
};

} // namespace

TEST_F(MenuCommands, WithoutAModelOnlyWhatNeedsNoneIsActive)
{
  for (const char* label :
       {"&New", "&Open...", "E&xit", "Show &Gizmos", "Snap To &Grid", "&About Nalt...", "&Vertex Mode"})
    EXPECT_TRUE(isActive(label)) << label;
  for (const char* label : {"&Import...", // can read no format yet
                            "&Revert...",
                            "Re&vert Externals",
                            "Rever&t Textures",
                            "&Save",
                            "Save &As...",
                            "&Close Model",
                            "C&lose All Models    ",
                            "&Delete",
                            "&Next Model",
                            "&Previous Model",
                            "&More Detail",
                            "M&ost Detail",
                            "&Less Detail",
                            "L&east Detail",
                            "&Show All LODs",
                            "&All",
                            "&None",
                            "&Invert Selection",
                            "Select Sliver &Polygons",
                            "Select Na&ked Edges",
                            "S&elect Parents",
                            "Select &Children",
                            "Se&lect Previous"})
    EXPECT_FALSE(isActive(label)) << label;
  EXPECT_FALSE(entry("&Viewport").enabled(gui));
  EXPECT_FALSE(when::undoable(gui));
  EXPECT_FALSE(when::redoable(gui));
}

TEST_F(MenuCommands, AModelMakesItsEntriesActive)
{
  openSquares(1);
  for (const char* label :
       {"&Revert...", "&Save", "Save &As...", "&Close Model", "C&lose All Models    ", "&More Detail", "&Show All LODs",
        "&All", "&None", "&Invert Selection", "Select Sliver &Polygons", "Select Na&ked Edges", "S&elect Parents",
        "Select &Children", "Se&lect Previous"})
    EXPECT_TRUE(isActive(label)) << label;
  EXPECT_FALSE(isActive("&Delete")) << "nothing is selected";
  EXPECT_FALSE(isActive("&Next Model")) << "there is no other";
  gui.newModel("untitled.flt");
  EXPECT_TRUE(isActive("&Next Model"));
  EXPECT_TRUE(isActive("&Previous Model"));
  EXPECT_FALSE(isActive("&Revert...")) << "a new model has no file to go back to";
}

TEST_F(MenuCommands, WhileAFileIsOpenedTheModelsAreLeftAlone)
{
  openSquares(2);
  gui.setSelectionMode(static_cast<int>(SelectionMode::polygon));
  pick("&All");
  gui.files().open(savedSquares("other.flt", 1), /*synchronous=*/false);
  for (const char* label : {"&Revert...", "&Close Model", "C&lose All Models    ", "&Delete", "&More Detail", "&All",
                            "&None", "Select Na&ked Edges"})
    EXPECT_FALSE(isActive(label)) << label;
  EXPECT_FALSE(when::undoable(gui));
  for (const char* label : {"&New", "&Open...", "&Save", "E&xit"})
    EXPECT_TRUE(isActive(label)) << label;
  gui.files().waitUntilIdle();
  EXPECT_TRUE(isActive("&All"));
}

TEST_F(MenuCommands, WhatCannotBeUsedSaysWhy)
{
  const auto reason = [this](const std::string& label) {
    const char* text = whyNot(entry(label).run, entry(label).enabled, gui);
    return text ? std::string(text) : "";
  };
  EXPECT_EQ(reason("&New"), "");
  EXPECT_EQ(reason("Cu&t"), "not in this version");
  EXPECT_EQ(reason("&Save"), "no model is open");
  EXPECT_EQ(reason("&Shrink Polygons"), "no model is open");
  EXPECT_EQ(reason("&Delete"), "no model is open");
  EXPECT_STREQ(whyNotOpen(when::recentFiles, gui), "no file was opened yet");
  EXPECT_STREQ(whyNotOpen(when::never, gui), "not in this version");
  openSquares(1);
  EXPECT_EQ(reason("&Save"), "");
  EXPECT_EQ(whyNotOpen(when::recentFiles, gui), nullptr);
  EXPECT_EQ(reason("&Next Model"), "there is no other model");
  EXPECT_EQ(reason("&Delete"), "nothing is selected");
  EXPECT_STREQ(whyNot(commands::undo, when::undoable, gui), "nothing to undo");
  EXPECT_STREQ(whyNot(commands::redo, when::redoable, gui), "nothing to redo");
  gui.newModel("untitled.flt");
  EXPECT_EQ(reason("&Revert..."), "the model has no file yet");
  gui.openFiles({savedSquares("b.flt", 1)});
  EXPECT_EQ(reason("&Revert..."), "a file operation is running");
  EXPECT_EQ(reason("&All"), "a file operation is running");
  gui.files().waitUntilIdle();
  EXPECT_EQ(withReason("Save", nullptr), "Save");
  EXPECT_EQ(withReason("Save", "no model is open"), "Save (no model is open)");
}

TEST_F(MenuCommands, RecentFilesKeepTheirSpecialCharacters)
{
  EXPECT_EQ(commands::recentLabel(gui, 0), "");
  gui.addRecent("/me@home/R&D.flt");
  gui.addRecent("/b.flt");
  EXPECT_EQ(commands::recentLabel(gui, 0), "&1. /b.flt");
  EXPECT_EQ(commands::recentLabel(gui, 1), "&2. /me@@home/R&&D.flt");
  EXPECT_EQ(commands::recentLabel(gui, 2), "");
}

TEST_F(MenuCommands, AllSelectsByTheModeAndNoneClears)
{
  openSquares(2);
  gui.setSelectionMode(static_cast<int>(SelectionMode::polygon));
  pick("&All");
  EXPECT_THAT(selected(), ElementsAre("p1", "p2"));
  EXPECT_TRUE(isActive("&Delete"));
  EXPECT_EQ(commands::undoName(gui), "Undo Selection");
  gui.setSelectionMode(static_cast<int>(SelectionMode::group));
  pick("&All");
  EXPECT_THAT(selected(), ElementsAre("g1"));
  pick("&None");
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_FALSE(isActive("&Delete"));
  pick("Se&lect Previous");
  EXPECT_THAT(selected(), ElementsAre("p1", "p2")) << "what stood before the last search";
}

TEST_F(MenuCommands, InvertSelectsTheOthers)
{
  openSquares(3);
  gui.setSelectionMode(static_cast<int>(SelectionMode::polygon));
  NameSearch search;
  search.names = {"p2"};
  selectByName(*gui.currentModel(), search, /*undoable=*/true);
  pick("&Invert Selection");
  EXPECT_THAT(selected(), ElementsAre("p1", "p3"));
}

TEST_F(MenuCommands, ParentsAndChildrenAreOneLevelApart)
{
  openSquares(2);
  gui.setSelectionMode(static_cast<int>(SelectionMode::polygon));
  pick("&All");
  pick("S&elect Parents");
  EXPECT_THAT(selected(), ElementsAre("o1"));
  pick("S&elect Parents");
  EXPECT_THAT(selected(), ElementsAre("g1"));
  pick("Select &Children");
  EXPECT_THAT(selected(), ElementsAre("o1"));
}

TEST_F(MenuCommands, NakedEdgesAreThoseOnTheOutside)
{
  openSquares(2);
  pick("Select Na&ked Edges");
  EXPECT_EQ(gui.currentModel()->selections().size(), 6U);
}

TEST_F(MenuCommands, ASearchThatFindsNothingKeepsTheSelection)
{
  openSquares(1);
  gui.setSelectionMode(static_cast<int>(SelectionMode::object));
  pick("&All");
  pick("Select Sliver &Polygons");
  EXPECT_THAT(selected(), ElementsAre("o1"));
  gui.setSelectionMode(static_cast<int>(SelectionMode::switchNode));
  pick("&All");
  EXPECT_THAT(selected(), ElementsAre("o1"));
}

TEST_F(MenuCommands, DeleteTakesTheSelectionAwayAndUndoBringsItBack)
{
  openSquares(2);
  gui.setSelectionMode(static_cast<int>(SelectionMode::polygon));
  pick("&All");
  pick("&Delete");
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_TRUE(gui.currentModel()->isDirty());
  EXPECT_EQ(commands::undoName(gui), "Undo Delete");
  commands::undo(gui);
  EXPECT_EQ(commands::redoName(gui), "Redo Delete");
  pick("&All");
  EXPECT_THAT(selected(), ElementsAre("p1", "p2"));
}

TEST_F(MenuCommands, NodesAreShiftedAmongTheirNeighbours)
{
  openSquares(3);
  Model& model = *gui.currentModel();
  const auto order = [&] {
    auto* object = model.fltFile()->header()->primaryChildAt(0)->primaryChildAt(0);
    std::vector<std::string> names;
    for (const auto* child : object->primaryChildren())
      names.push_back(child->getName());
    return names;
  };
  for (const char* label : {"&Set Parent", "Shift F&ar Left", "Sh&ift Left", "Shi&ft Right", "Shift Far Ri&ght"})
    EXPECT_FALSE(isActive(label)) << label << " needs a selection";
  selectByName(model, {.names = {"p3"}}, /*undoable=*/true);
  pick("Sh&ift Left");
  EXPECT_THAT(order(), ElementsAre("p1", "p3", "p2"));
  pick("Shift F&ar Left");
  EXPECT_THAT(order(), ElementsAre("p3", "p1", "p2"));
  pick("Shi&ft Right");
  EXPECT_THAT(order(), ElementsAre("p1", "p3", "p2"));
  pick("Shift Far Ri&ght");
  EXPECT_THAT(order(), ElementsAre("p1", "p2", "p3"));
  EXPECT_EQ(commands::undoName(gui), "Undo Shift Far Right");
}

TEST_F(MenuCommands, SetParentTakesTheOneSelectedNode)
{
  openSquares(2);
  Model& model = *gui.currentModel();
  selectByName(model, {.names = {"o1"}}, /*undoable=*/true);
  pick("&Set Parent");
  EXPECT_EQ(model.currentParent()->getName(), "o1");
  EXPECT_EQ(commands::undoName(gui), "Undo Set Parent");
  commands::undo(gui);
  EXPECT_EQ(model.currentParent(), model.fltFile()->header());
  selectByName(model, {.names = {"p1", "p2"}}, /*undoable=*/true);
  pick("&Set Parent");
  EXPECT_THAT(said, ElementsAre("WARNING: Can't set parent based on multiple selection."));
}

TEST_F(MenuCommands, GizmosAndSnappingAreTheSameInAllModels)
{
  EXPECT_TRUE(entry("Show &Gizmos").isOn(gui));
  EXPECT_TRUE(entry("Snap To &Grid").isOn(gui));
  openSquares(1);
  pick("Show &Gizmos");
  pick("Snap To &Grid");
  EXPECT_FALSE(entry("Show &Gizmos").isOn(gui));
  EXPECT_FALSE(entry("Snap To &Grid").isOn(gui));
  gui.newModel("untitled.flt");
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(gui.modelAt(i)->switches().gizmos);
    EXPECT_FALSE(gui.modelAt(i)->switches().snapToGrid);
  }
  EXPECT_FALSE(Preferences::get().showGizmos);
}

TEST_F(MenuCommands, ModesAreARadioGroup)
{
  EXPECT_TRUE(entry("&Vertex Mode").isOn(gui));
  pick("&LOD Mode");
  EXPECT_TRUE(entry("&LOD Mode").isOn(gui));
  EXPECT_FALSE(entry("&Vertex Mode").isOn(gui));
  EXPECT_EQ(gui.selectionMode(), static_cast<int>(SelectionMode::lod));
}

TEST(ToolPoints, TellThePathBetweenTheLastTwo)
{
  ToolPoints points;
  EXPECT_EQ(points.delta(), osg::Vec3d());
  points.push({1, 2, 3});
  EXPECT_EQ(points.delta(), osg::Vec3d());
  points.push({4, 6, 3});
  EXPECT_EQ(*points.previous, osg::Vec3d(1, 2, 3));
  EXPECT_EQ(*points.current, osg::Vec3d(4, 6, 3));
  EXPECT_EQ(points.delta().length(), 5.0);
}

} // namespace nalt
