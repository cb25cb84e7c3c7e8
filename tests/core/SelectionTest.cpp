#include "core/Model.h"
#include "core/Preferences.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/core/RecordingShell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectionTest : public testing::Test {
protected:
  SelectionTest() : before_(Shell::install(&shell))
  {
    model->createEmpty();
    group = make<fltapi::GroupRecord>(*model->fltFile()->header());
    object = make<fltapi::ObjectRecord>(*group);
  }
  ~SelectionTest() override
  {
    model.reset();
    Shell::install(before_);
    Preferences::get() = {};
  }

  template <class T>
  T* make(fltapi::PrimNodeRecord& parent)
  {
    auto* record = model->fltFile()->create<T>();
    parent.addChild(record, /*append=*/true);
    record->assignUniqueName();
    return record;
  }
  fltapi::FaceRecord* makeFace(fltapi::PrimNodeRecord& parent, const std::vector<osg::Vec3d>& corners)
  {
    auto* face = make<fltapi::FaceRecord>(parent);
    auto* list = model->fltFile()->create<fltapi::VertexListRecord>();
    face->addChild(list, /*append=*/true);
    for (const auto& corner : corners) {
      auto* vertex = model->fltFile()->create<fltapi::VertexRecord>();
      vertex->setPosition(corner);
      list->addVertex(vertex);
    }
    return face;
  }
  /// A unit square with its lower left corner at (x, y).
  fltapi::FaceRecord* makeSquare(double x, double y)
  {
    return makeFace(*object, {{x, y, 0}, {x + 1, y, 0}, {x + 1, y + 1, 0}, {x, y + 1, 0}});
  }
  SelectionSet& selections() { return model->selections(); }
  std::vector<std::string> names() { return selections().names(); }

  RecordingShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);
  fltapi::GroupRecord* group;
  fltapi::ObjectRecord* object;

private:
  Shell* before_;
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

TEST_F(SelectionTest, WithoutUndoThereIsNoCommand)
{
  makeSquare(0, 0);
  selectAll(*model, SelectionMode::polygon, false);
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
}

TEST_F(SelectionTest, TogglingTheLastElementLeavesNoFamilyBehind)
{
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
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
  search.names = {"p"};
  EXPECT_FALSE(selectByName(*model, search, true));
  search.names = {""};
  EXPECT_FALSE(selectByName(*model, search, true));
}

TEST_F(SelectionTest, TheNumberOfCornersCounts)
{
  makeSquare(0, 0);
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  EXPECT_TRUE(selectByNumberOfVertices(*model, 3, false, true));
  EXPECT_THAT(names(), ElementsAre("p2"));
  EXPECT_FALSE(selectByNumberOfVertices(*model, 4, /*fromCurrent=*/true, true));
  EXPECT_TRUE(selectByNumberOfVertices(*model, 4, /*fromCurrent=*/false, true));
  EXPECT_THAT(names(), ElementsAre("p1"));
}

TEST_F(SelectionTest, LocationIgnoresTheHeight)
{
  makeFace(*object, {{2, 3, 0}, {2, 3, 50}, {7, 3, 0}});
  EXPECT_TRUE(selectVerticesByLocation(*model, 2, 3.00005, true));
  EXPECT_THAT(names(), ElementsAre("p1/V0", "p1/V1"));
  EXPECT_FALSE(selectVerticesByLocation(*model, 2, 3.0001, true));
}

TEST_F(SelectionTest, PolygonsOfFewerThanThreeCornersAreSlivers)
{
  makeSquare(0, 0);
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}});
  make<fltapi::FaceRecord>(*object);
  EXPECT_TRUE(selectSliverPolygons(*model, true));
  EXPECT_THAT(names(), ElementsAre("p2", "p3"));
}

TEST_F(SelectionTest, ASliverIsThinAndSmallByOneTolerance)
{
  Preferences::get().tolerance = 1;
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {1, 0.001, 0}});    // thin and small
  makeFace(*object, {{0, 0, 0}, {1000, 0, 0}, {1000, 10, 0}}); // thin, but large
  makeFace(*object, {{0, 0, 0}, {0.5, 0, 0}, {0, 0.5, 0}});    // small, but not thin
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
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {0, -1, 0}});
  EXPECT_TRUE(selectNakedEdges(*model, true));
  EXPECT_EQ(selections().size(), 6u);
}

TEST_F(SelectionTest, WithoutNakedEdgesTheSelectionStays)
{
  makeFace(*object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  makeFace(*object, {{1, 0, 0}, {0, 0, 0}, {0, 1, 0}});
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
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't add selection of other type than polygon.",
                                          "WARNING: Can't remove selection of other type than polygon.",
                                          "WARNING: Can't combine with selection of other type than polygon.",
                                          "WARNING: Can't add selection of other type."));
}

} // namespace
} // namespace nalt
