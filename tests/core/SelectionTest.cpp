#include "core/hierarchy/DeleteSelected.h"
#include "core/selection/PivotCommand.h"
#include "core/selection/SelectOperations.h"
#include "scene/image/Highlight.h"
#include "scene/image/ModUserData.h"
#include "tests/core/ModelFixture.h"

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectionTest : public ModelFixture {
protected:
  SelectionTest() : group(make<fltapi::GroupRecord>(header())), object(make<fltapi::ObjectRecord>(*group)) {}

  fltapi::FaceRecord* makeFace(const std::vector<osg::Vec3d>& corners) { return tests::makeFace(*object, corners); }
  /// A unit square with its lower left corner at (x, y).
  fltapi::FaceRecord* makeSquare(double x, double y)
  {
    return makeFace({{x, y, 0}, {x + 1, y, 0}, {x + 1, y + 1, 0}, {x, y + 1, 0}});
  }

  fltapi::GroupRecord* group;
  fltapi::ObjectRecord* object;
};

TEST_F(SelectionTest, SelectAllTakesEverythingOfAMode)
{
  makeSquare(0, 0);
  makeSquare(1, 0);
  EXPECT_TRUE(selectAll(*model, SelectionMode::polygon, true));
  EXPECT_THAT(names(), ElementsAre("p1", "p2"));
  EXPECT_TRUE(selectAll(*model, SelectionMode::vertex, true));
  EXPECT_EQ(selections().size(), 8u);
}

TEST_F(SelectionTest, SelectAllOfAMissingKindKeepsTheOldSelection)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  EXPECT_FALSE(selectAll(*model, SelectionMode::lod, true));
  EXPECT_THAT(names(), ElementsAre("p1"));
}

TEST_F(SelectionTest, ANodeIsntSelectedTogetherWithOneAboveOrBelowIt)
{
  auto* face = makeSquare(0, 0);
  selections().select(selectionOf(*face));
  EXPECT_FALSE(selections().add(*selectionOf(*group)));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Recursive selection is not allowed."));
  EXPECT_THAT(names(), ElementsAre("p1"));

  selections().select(selectionOf(*group));
  EXPECT_FALSE(selections().add(*selectionOf(*face)));
  EXPECT_THAT(names(), ElementsAre("g1"));
}

TEST_F(SelectionTest, APolygonIsntSelectedTogetherWithItsCorners)
{
  auto* face = makeSquare(0, 0);
  selectAll(*model, SelectionMode::vertex, true);
  EXPECT_FALSE(selections().add(*selectionOf(*face)));
  EXPECT_EQ(selections().size(SelectionMode::polygon), 0u);
}

TEST_F(SelectionTest, FamiliesStandSideBySide)
{
  auto* face = makeSquare(0, 0);
  auto* other = make<fltapi::GroupRecord>(*model->fltFile()->header());
  selections().select(selectionOf(*face));
  EXPECT_TRUE(selections().add(*selectionOf(*other)));
  EXPECT_THAT(names(), ElementsAre("p1", "g2"));
}

TEST_F(SelectionTest, SeveralFamiliesJoinInOneStep)
{
  makeSquare(0, 0);
  makeSquare(1, 0);
  makeSquare(2, 0);
  make<fltapi::GroupRecord>(header());
  NameSearch search;
  search.names = {"p1"};
  selectByName(*model, search, true);
  search = {.names = {"p2", "p3/V0", "g2"}, .caseSensitive = false, .addToSelection = true};
  EXPECT_TRUE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("p3/V0", "p1", "p2", "g2"));
  EXPECT_EQ(model->commandStack().undoCommands().size(), 2U);
  model->commandStack().undo();
  EXPECT_THAT(names(), ElementsAre("p1"));
  model->commandStack().redo();
  EXPECT_THAT(names(), ElementsAre("p3/V0", "p1", "p2", "g2"));
}

TEST_F(SelectionTest, OfSeveralFamiliesThoseJoinThatMay)
{
  makeSquare(0, 0);
  makeSquare(1, 0);
  NameSearch search;
  search.names = {"p1"};
  selectByName(*model, search, true);
  search = {.names = {"g1", "p2"}, .caseSensitive = false, .addToSelection = true};
  EXPECT_TRUE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("p1", "p2"));
  EXPECT_THAT(shell.messages, IsEmpty());
  search.names = {"g1", "o1"};
  EXPECT_FALSE(selectByName(*model, search, true));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Recursive selection is not allowed."));
  EXPECT_EQ(model->commandStack().undoCommands().size(), 2U);
}

TEST_F(SelectionTest, AnEmptySelectionChangesNothingWithoutAWord)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  const NodeSelection nothing(SelectionMode::group);
  EXPECT_FALSE(selections().add(nothing));
  EXPECT_FALSE(selections().toggle(nothing));
  EXPECT_FALSE(selections().remove(nothing));
  EXPECT_THAT(names(), ElementsAre("p1"));
  EXPECT_THAT(shell.messages, IsEmpty());
  EXPECT_EQ(model->commandStack().undoCommands().size(), 1U);
}

TEST_F(SelectionTest, UndoAndRedoOfEveryKindOfChange)
{
  auto* a = makeSquare(0, 0);
  auto* b = makeSquare(1, 0);
  selections().select(selectionOf(*a));
  selections().add(*selectionOf(*b));
  selections().toggle(*selectionOf(*a));
  selections().remove(*selectionOf(*b));
  EXPECT_THAT(names(), IsEmpty());
  auto& stack = model->commandStack();
  const std::vector<std::vector<std::string>> states = {{"p2"}, {"p1", "p2"}, {"p1"}, {}};
  for (const auto& state : states) {
    stack.undo();
    EXPECT_EQ(names(), state);
  }
  stack.redo();
  EXPECT_THAT(names(), ElementsAre("p1"));
  stack.redo();
  EXPECT_THAT(names(), ElementsAre("p1", "p2"));
}

TEST_F(SelectionTest, UndoOfARemovalSelectsOnlyWhatWasSelected)
{
  const auto* list = makeSquare(0, 0)->vertexList();
  const auto corners = [&](std::initializer_list<int> numbers) {
    VertexSelection selection(SelectionMode::vertex);
    for (const int number : numbers)
      selection.insert({const_cast<fltapi::VertexListRecord*>(list), list->vertexAt(number)});
    return selection;
  };
  selections().select(corners({0, 1}).clone());
  EXPECT_TRUE(selections().remove(corners({1, 2, 3})));
  EXPECT_THAT(names(), ElementsAre("p1/V0"));
  model->commandStack().undo();
  EXPECT_THAT(names(), ElementsAre("p1/V0", "p1/V1"));
  model->commandStack().redo();
  EXPECT_THAT(names(), ElementsAre("p1/V0"));
  EXPECT_FALSE(selections().remove(corners({2, 3}))) << "they aren't selected";
  EXPECT_EQ(model->commandStack().undoCommands().size(), 2U);
}

TEST_F(SelectionTest, WithoutUndoThereIsNoCommand)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, false);
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
}

TEST_F(SelectionTest, TogglingTheLastElementLeavesNoFamilyBehind)
{
  makeFace({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  auto* list = static_cast<fltapi::FaceRecord*>(object->primaryChildAt(0))->vertexList();
  EdgeSelection edge(SelectionMode::edge);
  edge.insert({list, list->vertexAt(0), list->vertexAt(1)});
  selections().toggle(edge);
  EXPECT_THAT(names(), ElementsAre("p1/E0"));
  selections().toggle(edge);
  EXPECT_TRUE(selections().current().families().empty());
}

TEST_F(SelectionTest, PreviousTwiceLeadsBackToTheStart)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  selectAll(*model, SelectionMode::group, true);
  selectPrevious(*model, true);
  EXPECT_THAT(names(), ElementsAre("p1"));
  selectPrevious(*model, true);
  EXPECT_THAT(names(), ElementsAre("g1"));
}

TEST_F(SelectionTest, AnUndoneSelectionIsThePreviousOne)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  selectAll(*model, SelectionMode::group, true);
  model->commandStack().undo();
  EXPECT_THAT(names(), ElementsAre("p1"));
  selectPrevious(*model, true);
  EXPECT_THAT(names(), ElementsAre("g1"));
}

TEST_F(SelectionTest, CornersOfAPolygonThatIsGoneArePassedOver)
{
  auto* face = makeSquare(0, 0);
  selectAll(*model, SelectionMode::vertex, /*undoable=*/false);
  object->removeChild(face);
  EXPECT_THAT(names(), ElementsAre());
  EXPECT_FALSE(selections().current().find(SelectionMode::vertex)->boundingBox().valid());
  selectNone(*model, /*undoable=*/false);
  EXPECT_TRUE(selections().empty());
}

TEST_F(SelectionTest, ThePreviousSelectionHasNothingThatWasDeleted)
{
  auto* face = makeSquare(0, 0);
  makeSquare(1, 0);
  selectAll(*model, SelectionMode::vertex, true);
  selectAll(*model, SelectionMode::polygon, true);
  selections().select(selectionOf(*face));
  deleteSelected(*model, true);
  selectAll(*model, SelectionMode::group, true);
  selectPrevious(*model, true);
  selectPrevious(*model, true);
  EXPECT_THAT(names(), ElementsAre("g1"));
  model->commandStack().undo();
  model->commandStack().undo();
  model->commandStack().undo();
  model->commandStack().undo();
  EXPECT_THAT(names(), ElementsAre("p1"));
  NameSearch corners;
  corners.names = {"p2/V0", "p2/V1"};
  selectByName(*model, corners, true);
  corners.names = {"p2/V0"};
  selectByName(*model, corners, true);
  deleteSelected(*model, true);
  selectAll(*model, SelectionMode::group, true);
  selectPrevious(*model, true);
  EXPECT_THAT(names(), IsEmpty()) << "the corner is gone";
}

TEST_F(SelectionTest, InvertSelectsTheOthers)
{
  auto* a = makeSquare(0, 0);
  makeSquare(1, 0);
  selections().select(selectionOf(*a));
  EXPECT_TRUE(invertSelection(*model, SelectionMode::polygon, true));
  EXPECT_THAT(names(), ElementsAre("p2"));
  selectAll(*model, SelectionMode::polygon, true);
  EXPECT_FALSE(invertSelection(*model, SelectionMode::polygon, true));
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SelectionTest, ConversionGoesDownAndElseUp)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::group, true);
  EXPECT_TRUE(convertSelection(*model, SelectionMode::polygon, true));
  EXPECT_THAT(names(), ElementsAre("p1"));
  EXPECT_TRUE(convertSelection(*model, SelectionMode::edge, true));
  EXPECT_THAT(names(), ElementsAre("p1/E0", "p1/E1", "p1/E2", "p1/E3"));
  EXPECT_TRUE(convertSelection(*model, SelectionMode::object, true));
  EXPECT_THAT(names(), ElementsAre("o1"));
}

TEST_F(SelectionTest, EverythingConvertsToTheHeader)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::vertex, true);
  EXPECT_TRUE(convertSelection(*model, SelectionMode::header, true));
  EXPECT_THAT(names(), ElementsAre("db"));
}

TEST_F(SelectionTest, ParentsAndChildren)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  selectParents(*model, true);
  EXPECT_THAT(names(), ElementsAre("o1"));
  selectChildren(*model, true);
  EXPECT_THAT(names(), ElementsAre("p1"));
  selectChildren(*model, true);
  EXPECT_THAT(names(), ElementsAre("p1/V0", "p1/V1", "p1/V2", "p1/V3"));
  selectParents(*model, true);
  EXPECT_THAT(names(), ElementsAre("p1"));
}

TEST_F(SelectionTest, NamesFindNodesCornersAndEdges)
{
  makeSquare(0, 0);
  NameSearch search;
  search.names = {"G1"};
  EXPECT_TRUE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("g1"));
  search.caseSensitive = true;
  EXPECT_FALSE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("g1"));
  search.names = {"p1/V2", "p1/E3"};
  EXPECT_TRUE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("p1/V2", "p1/E3"));
  for (const char* name : {"p", "p1/v2", "p1/e3", "p1/V02", "p1/V-0", "p1/V+2", "p1/V2 ", "p1/V4"}) {
    search.names = {name};
    EXPECT_FALSE(selectByName(*model, search, true)) << name;
  }
  search.caseSensitive = false;
  search.names = {"P1/v2", "p1/e3"};
  EXPECT_TRUE(selectByName(*model, search, true));
  EXPECT_THAT(names(), ElementsAre("p1/V2", "p1/E3"));
  search.names = {""};
  EXPECT_FALSE(selectByName(*model, search, true));
}

TEST_F(SelectionTest, TheNumberOfCornersCounts)
{
  makeSquare(0, 0);
  makeFace({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  EXPECT_TRUE(selectByNumberOfVertices(*model, 3, false, true));
  EXPECT_THAT(names(), ElementsAre("p2"));
  EXPECT_FALSE(selectByNumberOfVertices(*model, 4, /*fromCurrent=*/true, true));
  EXPECT_TRUE(selectByNumberOfVertices(*model, 4, /*fromCurrent=*/false, true));
  EXPECT_THAT(names(), ElementsAre("p1"));
}

TEST_F(SelectionTest, LocationIgnoresTheHeight)
{
  makeFace({{2, 3, 0}, {2, 3, 50}, {7, 3, 0}});
  EXPECT_TRUE(selectVerticesByLocation(*model, 2, 3.00005, true));
  EXPECT_THAT(names(), ElementsAre("p1/V0", "p1/V1"));
  EXPECT_FALSE(selectVerticesByLocation(*model, 2, 3.0001, true));
}

TEST_F(SelectionTest, PolygonsOfFewerThanThreeCornersAreSlivers)
{
  makeSquare(0, 0);
  makeFace({{0, 0, 0}, {1, 0, 0}});
  make<fltapi::FaceRecord>(*object);
  EXPECT_TRUE(selectSliverPolygons(*model, true));
  EXPECT_THAT(names(), ElementsAre("p2", "p3"));
}

TEST_F(SelectionTest, ASliverIsThinAndSmallByOneTolerance)
{
  Preferences::get().tolerance = 1;
  makeFace({{0, 0, 0}, {1, 0, 0}, {1, 0.001, 0}});    // thin and small
  makeFace({{0, 0, 0}, {1000, 0, 0}, {1000, 10, 0}}); // thin, but large
  makeFace({{0, 0, 0}, {0.5, 0, 0}, {0, 0.5, 0}});    // small, but not thin
  EXPECT_TRUE(selectSliverPolygons(*model, true));
  EXPECT_THAT(names(), ElementsAre("p1"));
}

TEST_F(SelectionTest, TheOuterEdgesOfTwoSquaresAreNaked)
{
  makeSquare(0, 0);
  makeSquare(1, 0);
  EXPECT_TRUE(selectNakedEdges(*model, true));
  EXPECT_THAT(names(), ElementsAre("p1/E0", "p1/E2", "p1/E3", "p2/E0", "p2/E1", "p2/E2"));
}

TEST_F(SelectionTest, ANeighbourThatRunsTheSameWayDoesntCount)
{
  makeFace({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  makeFace({{0, 0, 0}, {1, 0, 0}, {0, -1, 0}});
  EXPECT_TRUE(selectNakedEdges(*model, true));
  EXPECT_EQ(selections().size(), 6u);
}

TEST_F(SelectionTest, EdgesWithoutLengthOrPlaceAreNaked)
{
  const double none = std::nan("");
  for (int i = 0; i < 40; ++i) { // all of their edges have one key
    const osg::Vec3d point = i % 3 == 0 ? osg::Vec3d(none, i % 2, 0) : osg::Vec3d(40 - i, i % 5, 0);
    makeFace({point, point});
  }
  EXPECT_TRUE(selectNakedEdges(*model, false));
  // An edge from a point to itself and the one back are each other's neighbours, unless the point is nowhere.
  EXPECT_EQ(selections().size(), 2U * 14);
}

TEST_F(SelectionTest, WithoutNakedEdgesTheSelectionStays)
{
  makeFace({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  makeFace({{1, 0, 0}, {0, 0, 0}, {0, 1, 0}});
  selectAll(*model, SelectionMode::polygon, true);
  EXPECT_FALSE(selectNakedEdges(*model, true));
  EXPECT_THAT(names(), ElementsAre("p1", "p2"));
}

TEST_F(SelectionTest, ThePivotIsTheMiddleOfTheBoxInWorldCoordinates)
{
  makeSquare(0, 0);
  auto* matrix = model->fltFile()->create<fltapi::MatrixRecord>();
  matrix->setMatrix(osg::Matrixd::translate(10, 0, 0));
  group->insertAncillary(matrix);
  EXPECT_FALSE(selections().pivot());
  selectAll(*model, SelectionMode::polygon, true);
  EXPECT_EQ(selections().pivot(), osg::Vec3d(10.5, 0.5, 0));
  selectNone(*model, true);
  EXPECT_FALSE(selections().pivot());
}

TEST_F(SelectionTest, ThePivotCanBePutElsewhereAndBack)
{
  struct Listener : PivotListener {
    std::vector<osg::Vec3d> heard;
    void pivotChanged(const osg::Vec3d& place) override { heard.push_back(place); }
  } listener;
  selections().pivotListeners.push_back(&listener);
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, false);
  selections().settlePivot();
  changePivot(*model, {1.5, 2, -3}, true);
  EXPECT_EQ(selections().pivot(), osg::Vec3d(1.5, 2, -3));
  selections().settlePivot();
  const auto& command = *model->commandStack().undoCommands().back();
  EXPECT_EQ(command.name(), "Change Pivot");
  EXPECT_EQ(command.scriptText(), "nalt.changePivot(1.5, 2, -3)");
  EXPECT_THAT(command.commentText(), testing::StartsWith("--\n-- nalt.changePivot(x, y, z)\n-- Changes the position"));
  model->commandStack().undo();
  EXPECT_EQ(selections().pivot(), osg::Vec3d(0.5, 0.5, 0));
  selections().settlePivot();
  selections().settlePivot();
  model->commandStack().redo();
  EXPECT_EQ(selections().pivot(), osg::Vec3d(1.5, 2, -3));
  selections().settlePivot();
  const osg::Vec3d middle(0.5, 0.5, 0);
  const osg::Vec3d place(1.5, 2, -3);
  EXPECT_THAT(listener.heard, ElementsAre(middle, place, middle, place)) << "each place once";
  selectAll(*model, SelectionMode::object, false);
  EXPECT_EQ(selections().pivot(), middle) << "another selection takes the pivot to its own middle";
}

TEST_F(SelectionTest, APivotWithNothingSelectedGoesAwayOnUndo)
{
  changePivot(*model, {1, 1, 1}, true);
  EXPECT_EQ(selections().pivot(), osg::Vec3d(1, 1, 1));
  model->commandStack().undo();
  EXPECT_FALSE(selections().pivot());
}

TEST_F(SelectionTest, EveryChangeIsRecordedAsTheLineThatRepeatsIt)
{
  makeFace({{0, 0, 0}, {1, 0, 0}});
  auto* square = makeSquare(0, 0);
  const auto recorded = [&] { return model->commandStack().undoCommands().back()->scriptText(); };
  selectAll(*model, SelectionMode::polygon, true);
  EXPECT_EQ(recorded(), "nalt.selectAll(\"POLYGON\")");
  selections().select(selectionOf(*square));
  invertSelection(*model, SelectionMode::polygon, true);
  EXPECT_EQ(recorded(), "nalt.invertSelection(\"POLYGON\")");
  convertSelection(*model, SelectionMode::vertex, true);
  EXPECT_EQ(recorded(), "nalt.convertSelection(\"VERTEX\")");
  selectPrevious(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectPrevious()");
  selectParents(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectParents()");
  selectChildren(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectChildren()");
  NameSearch search;
  search.names = {"p2", "g\\1"};
  selectByName(*model, search, true);
  EXPECT_EQ(recorded(), "nalt.selectByName(\"p2\", \"g\\\\1\", false, false)");
  selectByNumberOfVertices(*model, 4, true, true);
  EXPECT_EQ(recorded(), "nalt.selectByNumberOfVertices(4, true)");
  selectVerticesByLocation(*model, 1, 1, true);
  EXPECT_EQ(recorded(), "nalt.selectVerticesByLocation(1, 1)");
  selectNone(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectNone()");
  EXPECT_EQ(model->commandStack().undoCommands().back()->commentText(),
            "--\n-- nalt.selectNone()\n-- Clears all selections.");
  selectNakedEdges(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectNakedEdges()");
  selectNone(*model, true);
  selectSliverPolygons(*model, true);
  EXPECT_EQ(recorded(), "nalt.selectSliverPolygons()");
  EXPECT_THAT(model->commandStack().undoCommands().back()->commentText(),
              testing::StartsWith("--\n-- nalt.selectSliverPolygons()\n"));
  selections().toggle(*selections().current().find(SelectionMode::polygon)->clone());
  EXPECT_EQ(recorded(), "nalt.selectNone()") << "whatever leaves nothing selected";
}

TEST_F(SelectionTest, SelectedNodesAreMarked)
{
  auto* face = makeSquare(0, 0);
  const auto isMarked = [&] { return ModUserData::of(*face).isSelected(); };
  EXPECT_FALSE(isMarked());
  selections().select(selectionOf(*face));
  EXPECT_TRUE(isMarked());
  selectAll(*model, SelectionMode::vertex, true);
  EXPECT_FALSE(isMarked());
  model->commandStack().undo();
  EXPECT_TRUE(isMarked());
  deleteSelected(*model, true);
  EXPECT_FALSE(isMarked());
  model->commandStack().undo();
  EXPECT_TRUE(isMarked());
}

TEST_F(SelectionTest, ASceneThatIsMadeLaterHighlightsWhatIsSelected)
{
  auto* face = makeSquare(0, 0);
  selections().select(selectionOf(*face));
  EXPECT_TRUE(selections().add(*selectionOf(*make<fltapi::GroupRecord>(*model->fltFile()->header()))));
  model->sceneRoot();
  EXPECT_EQ(model->sync()->polygonOf(*face)->marks(), Mark::selected);
  auto& highlight = model->sync()->highlight();
  highlight.update();
  const auto* places = highlight.getChild(0)->asGroup()->getChild(0)->asGroup();
  EXPECT_EQ(places->getNumChildren(), 2U);
}

TEST_F(SelectionTest, AnotherDocumentStartsWithNothingSelectedAndNothingToUndo)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, true);
  model->createEmpty();
  EXPECT_TRUE(selections().empty());
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
  EXPECT_EQ(model->currentParent(), model->fltFile()->header());
}

TEST_F(SelectionTest, ListenersHearWhetherAnythingIsSelected)
{
  struct Listener : SelectionListener {
    std::vector<bool> heard;
    void selectionChanged(bool selected) override { heard.push_back(selected); }
  } listener;
  selections().listeners.push_back(&listener);
  selectAll(*model, SelectionMode::group, true);
  selectNone(*model, true);
  EXPECT_THAT(listener.heard, ElementsAre(true, false));
}

TEST_F(SelectionTest, AReplacedRecordStaysSelected)
{
  auto* old = makeSquare(0, 0);
  auto* young = makeSquare(0, 0);
  selections().select(selectionOf(*old));
  selections().replaceRecord(*old, *young);
  EXPECT_THAT(names(), ElementsAre("p2"));
}

TEST_F(SelectionTest, FamiliesDontMix)
{
  auto* face = makeSquare(0, 0);
  const auto polygons = selectionOf(*face);
  EXPECT_FALSE(polygons->add(*selectionOf(*group)));
  EXPECT_FALSE(polygons->remove(*selectionOf(*group)));
  EXPECT_FALSE(polygons->combine(*selectionOf(*group)));
  const auto sound = selectionOf(*make<fltapi::SoundRecord>(*group));
  EXPECT_FALSE(sound->add(*polygons));
  EXPECT_FALSE(sound->remove(*polygons));
  EXPECT_FALSE(sound->combine(*polygons));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't add selection of other type than polygon.",
                                          "WARNING: Can't remove selection of other type than polygon.",
                                          "WARNING: Can't combine with selection of other type than polygon.",
                                          "WARNING: Can't add selection of other type.",
                                          "WARNING: Can't remove selection of other type.",
                                          "WARNING: Can't combine with selection of other type."));
  shell.messages.clear();
  const std::pair<SelectionMode, std::string> words[] = {{SelectionMode::vertex, "vertex"},
                                                         {SelectionMode::edge, "edge"},
                                                         {SelectionMode::polygon, "polygon"},
                                                         {SelectionMode::object, "object"},
                                                         {SelectionMode::group, "group"},
                                                         {SelectionMode::header, "group"},
                                                         {SelectionMode::lightPointSystem, "group"},
                                                         {SelectionMode::lod, "LOD"},
                                                         {SelectionMode::dof, "DOF"},
                                                         {SelectionMode::switchNode, "switch"},
                                                         {SelectionMode::lightPoint, "light point"},
                                                         {SelectionMode::external, "external"}};
  for (const auto& [mode, word] : words) {
    EXPECT_FALSE(Selection::make(mode)->add(*sound));
    EXPECT_EQ(shell.messages.back(), "WARNING: Can't add selection of other type than " + word + ".");
  }
}

} // namespace
} // namespace nalt
