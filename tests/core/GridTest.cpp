#include "core/Grid.h"

#include "core/GridOperations.h"
#include "core/selection/RecordedChange.h"
#include "tests/core/ModelFixture.h"

#include <cmath>
#include <limits>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double infinite = std::numeric_limits<double>::infinity();

void expectNear(const osg::Vec3d& a, const osg::Vec3d& b)
{
  EXPECT_LT((a - b).length(), 1e-12) << a.x() << ' ' << a.y() << ' ' << a.z();
}

TEST(GridTest, StartsOnTheGroundWithTwentyLinesOnEachSide)
{
  const Grid grid;
  EXPECT_EQ(grid.spacing(), 1.0);
  EXPECT_EQ(grid.halfSize(), 20);
  EXPECT_EQ(grid.thickLineNumber(), 10);
  EXPECT_EQ(grid.snapTolerance(), 0.5);
  EXPECT_FALSE(grid.isVisible());
  expectNear(grid.axes().normal, {0, 0, 1});
}

TEST(GridTest, AxesFollowFromThreePointsThatNeedNotBeAtRightAngles)
{
  Grid grid;
  grid.setPoints({{1, 1, 1}, {4, 1, 1}, {5, 1, 9}});
  const Grid::Axes axes = grid.axes();
  expectNear(axes.first, {1, 0, 0});
  expectNear(axes.normal, {0, -1, 0});
  expectNear(axes.second, {0, 0, 1});
}

TEST(GridTest, ANewOriginTakesTheOtherPointsAlong)
{
  Grid grid;
  grid.setOrigin({1, 2, 3});
  expectNear(grid.points().onAxis, {2, 2, 3});
  expectNear(grid.points().third, {1, 3, 3});
}

TEST(GridTest, PointsAreKeptAsTheyWereGiven)
{
  Grid grid;
  grid.setPointOnAxis({3, 0, 4});
  grid.setThirdPoint({1, 7, 2});
  expectNear(grid.points().onAxis, {3, 0, 4});
  expectNear(grid.points().third, {1, 7, 2});
  EXPECT_NEAR((grid.points().third - grid.points().origin) * grid.axes().normal, 0.0, 1e-12);
}

TEST(GridTest, AnOffsetGoesAlongTheNormal)
{
  Grid grid;
  grid.setPoints({{0, 0, 0}, {1, 0, 0}, {0, 0, 1}});
  grid.addOffset(2.5);
  expectNear(grid.points().origin, {0, -2.5, 0});
  expectNear(grid.points().third, {0, -2.5, 1});
}

TEST(GridTest, PointsThatWouldLieOnALineAreIgnored)
{
  Grid grid;
  EXPECT_FALSE(grid.setThirdPoint({2, 0, 0}));
  EXPECT_FALSE(grid.setPointOnAxis({0, -3, 0}));
  EXPECT_FALSE(grid.setPointOnAxis({0, 0, 0}));
  EXPECT_FALSE(grid.setPointOnAxis({infinite, 0, 0}));
  EXPECT_FALSE(grid.setOrigin({std::nan(""), 0, 0}));
  expectNear(grid.points().origin, {0, 0, 0});
  expectNear(grid.points().onAxis, {1, 0, 0});
  expectNear(grid.points().third, {0, 1, 0});
}

TEST(GridTest, ARayMeetsThePlaneUnlessItRunsAlongIt)
{
  Grid grid;
  grid.setOrigin({0, 0, 2});
  expectNear(grid.intersection({1, 1, 10}, {3, 1, 6}).value(), {5, 1, 2});
  EXPECT_FALSE(grid.intersection({0, 0, 1}, {5, 0, 1}));
}

TEST(GridTest, ThePlaneIsMetBehindTheViewerToo)
{
  const Grid grid;
  expectNear(grid.intersection({0, 0, 1}, {1, 0, 2}).value(), {-1, 0, 0});
}

TEST(GridTest, PointsSnapToTheNearestCrossing)
{
  Grid grid;
  ASSERT_TRUE(grid.setSpacing(2.0));
  grid.setOrigin({1, 0, 0});
  expectNear(grid.snapped({3.9, 1.2, 0}).value(), {3, 2, 0});
  expectNear(grid.snapped({-1.2, -0.9, 0}).value(), {-1, 0, 0});
}

TEST(GridTest, ASmallerToleranceSnapsOnlyNearACrossing)
{
  Grid grid;
  grid.setSnapTolerance(0.25);
  EXPECT_TRUE(grid.snapped({0.25, 0, 0}));
  EXPECT_FALSE(grid.snapped({0.26, 0, 0}));
  EXPECT_FALSE(grid.snapped({0, 5.4, 0}));
}

TEST(GridTest, SizesStopAtOneBelowAndNowhereAbove)
{
  Grid grid;
  for (int i = 0; i < 7; ++i)
    grid.halve();
  EXPECT_EQ(grid.halfSize(), 1);
  grid.decrease();
  EXPECT_EQ(grid.halfSize(), 1);
  for (int i = 0; i < 1000; ++i)
    grid.increase();
  EXPECT_EQ(grid.halfSize(), 1001);
}

TEST(GridTest, HalvingAnOddSizeRoundsDown)
{
  Grid grid;
  grid.increase();
  grid.halve();
  EXPECT_EQ(grid.halfSize(), 10);
}

TEST(GridTest, DoublingStopsOnlyBeyondAHundredUnitsAndTenRadii)
{
  Grid grid;
  grid.redouble(1.0);
  grid.redouble(1.0);
  EXPECT_EQ(grid.halfSize(), 80);
  grid.redouble(1.0);
  EXPECT_EQ(grid.halfSize(), 160);
  grid.redouble(1.0);
  EXPECT_EQ(grid.halfSize(), 160);
  grid.redouble(16.0); // not above ten radii
  EXPECT_EQ(grid.halfSize(), 320);
}

TEST(GridTest, WhatCantBeCountedOrMeasuredByIsRefused)
{
  Grid grid;
  EXPECT_FALSE(grid.setThickLineNumber(0));
  EXPECT_EQ(grid.thickLineNumber(), 10);
  EXPECT_TRUE(grid.setThickLineNumber(4));
  for (const double spacing : {0.0, -1.0, infinite, std::nan("")})
    EXPECT_FALSE(grid.setSpacing(spacing));
  EXPECT_EQ(grid.spacing(), 1.0);
}

class GridOperationsTest : public ModelFixture {
protected:
  GridOperationsTest() { shell.recorder = &recorder; }

  fltapi::FaceRecord* makePolygon(const std::vector<osg::Vec3d>& corners) { return makeFace(header(), corners); }
  void select(fltapi::FaceRecord& face)
  {
    const auto selection = selectionOf(face);
    selections().add(*selection, recordedChange("", "", false));
  }

  RecordedText recorder;
};

TEST_F(GridOperationsTest, EachIsRecordedUnderItsTitle)
{
  select(*makePolygon({{0, 0, 5}, {2, 0, 5}, {0, 3, 5}}));
  setXYGrid(*model, true);
  setXZGrid(*model, true);
  setYZGrid(*model, true);
  setGridOrigin(*model, {1, 2, 3.5}, true);
  setGridPointOnAxis(*model, {2, 2, 3.5}, true);
  setGridThirdPoint(*model, {1, 3, 3.5}, true);
  EXPECT_TRUE(addGridOffset(*model, -0.5, true));
  EXPECT_TRUE(setGridSpacing(*model, 0.25, true));
  EXPECT_TRUE(alignGridToPolygon(*model, true));

  EXPECT_THAT(recorder.scripts,
              ElementsAre("nalt.setXYGrid()", "nalt.setXZGrid()", "nalt.setYZGrid()", "nalt.setGridOrigin(1, 2, 3.5)",
                          "nalt.setGridPointOnAxis(2, 2, 3.5)", "nalt.setGridThirdPoint(1, 3, 3.5)",
                          "nalt.addGridOffset(-0.5)", "nalt.setGridSpacing(0.25)", "nalt.alignGridToPolygon()"));
  std::vector<std::string> names;
  for (const auto& command : model->commandStack().undoCommands())
    names.push_back(command->name());
  EXPECT_THAT(names,
              ElementsAre("Script Command: Set XY Grid", "Script Command: Set XZ Grid", "Script Command: Set YZ Grid",
                          "Script Command: Set Grid Origin", "Script Command: Set Grid Point On Axis",
                          "Script Command: Set Grid Third Point", "Script Command: Add Grid Offset",
                          "Script Command: Set Grid Spacing", "Script Command: Align Grid To Polygon"));
  ASSERT_EQ(recorder.comments.size(), 9u);
  EXPECT_THAT(recorder.comments.at(3), testing::HasSubstr("-- nalt.setGridOrigin(originX, originY, originZ)\n"));
}

TEST_F(GridOperationsTest, WhatIsIgnoredIsntRecorded)
{
  EXPECT_FALSE(setGridThirdPoint(*model, {2, 0, 0}, true));
  EXPECT_FALSE(setGridPointOnAxis(*model, {0, 5, 0}, true));
  EXPECT_THAT(recorder.scripts, IsEmpty());
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
}

TEST_F(GridOperationsTest, UndoTakesTheRecordedLineBackAndLeavesTheGrid)
{
  setGridSpacing(*model, 4.0, true);
  model->commandStack().undo();
  EXPECT_THAT(recorder.scripts, IsEmpty());
  EXPECT_EQ(model->grid().spacing(), 4.0);
}

TEST_F(GridOperationsTest, ABatchRunMakesNoCommands)
{
  setXZGrid(*model, false);
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
  EXPECT_THAT(recorder.scripts, IsEmpty());
  expectNear(model->grid().axes().normal, {0, -1, 0});
}

TEST_F(GridOperationsTest, ThePlanesOfTheAxesStartAtTheOrigin)
{
  setGridOrigin(*model, {5, 5, 5}, false);
  setYZGrid(*model, false);
  expectNear(model->grid().points().origin, {0, 0, 0});
  expectNear(model->grid().points().onAxis, {0, 1, 0});
  expectNear(model->grid().points().third, {0, 0, 1});
  setXZGrid(*model, false);
  expectNear(model->grid().points().onAxis, {1, 0, 0});
  expectNear(model->grid().points().third, {0, 0, 1});
  setXYGrid(*model, false);
  expectNear(model->grid().points().third, {0, 1, 0});
}

TEST_F(GridOperationsTest, AnUnusableNumberIsRefusedWithAMessage)
{
  EXPECT_FALSE(addGridOffset(*model, infinite, true));
  EXPECT_FALSE(setGridSpacing(*model, 0.0, true));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Invalid grid offset.", "WARNING: Invalid grid spacing."));
  EXPECT_THAT(recorder.scripts, IsEmpty());
}

TEST_F(GridOperationsTest, AligningNeedsASelectedPolygon)
{
  EXPECT_FALSE(alignGridToPolygon(*model, true));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: No polygon is selected - can't align grid."));
  EXPECT_THAT(recorder.scripts, IsEmpty());
}

TEST_F(GridOperationsTest, AligningNeedsNoMoreThanOnePolygon)
{
  select(*makePolygon({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
  select(*makePolygon({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
  EXPECT_FALSE(alignGridToPolygon(*model, true));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: More than one polygon is selected - can't align grid."));
}

TEST_F(GridOperationsTest, AligningNeedsAPolygonWithAPlane)
{
  select(*makePolygon({{0, 0, 0}, {1, 1, 1}, {0, 0, 0}, {5, 5, 5}}));
  EXPECT_FALSE(alignGridToPolygon(*model, true));
  EXPECT_THAT(shell.messages,
              ElementsAre("WARNING: Selected polygon doesn't define a valid plane - can't align grid."));
  expectNear(model->grid().axes().normal, {0, 0, 1});
}

TEST_F(GridOperationsTest, AligningLooksPastCornersThatAddNothing)
{
  select(*makePolygon({{1, 0, 0}, {1, 0, 0}, {1, 0, 2}, {1, 0, 4}, {1, 3, 4}}));
  EXPECT_TRUE(alignGridToPolygon(*model, true));
  expectNear(model->grid().points().origin, {1, 0, 0});
  expectNear(model->grid().points().onAxis, {1, 0, 2});
  expectNear(model->grid().points().third, {1, 3, 4});
}

TEST_F(GridOperationsTest, AligningWorksOnATinyPolygonFarAway)
{
  select(*makePolygon({{1e6, 0, 0}, {1e6 + 1e-3, 0, 0}, {1e6, 0, 1e-3}}));
  EXPECT_TRUE(alignGridToPolygon(*model, true));
  expectNear(model->grid().axes().normal, {0, -1, 0});
}

TEST_F(GridOperationsTest, AligningFollowsTheMatrixAboveThePolygon)
{
  auto* group = make<fltapi::GroupRecord>(*model->fltFile()->header());
  auto* matrix = model->fltFile()->create<fltapi::MatrixRecord>();
  matrix->setMatrix(osg::Matrixd::translate(0, 0, 7));
  group->addChild(matrix, /*append=*/true);
  const osg::ref_ptr<fltapi::FaceRecord> face = makePolygon({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  model->fltFile()->header()->removeChild(face);
  group->addChild(face, /*append=*/true);
  select(*face);
  EXPECT_TRUE(alignGridToPolygon(*model, true));
  expectNear(model->grid().points().origin, {0, 0, 7});
}

} // namespace
} // namespace nalt
