#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

class GridBindings : public ScriptTest {
protected:
  GridBindings() : model(*shell.newModel("a.flt")) { fillSmallDocument(model); }

  /// Origin, point on axis and third point after `text`.
  std::string gridAfter(const std::string& text)
  {
    return printed(text + "\nlocal function point(...) return table.concat({...}, ',') end\n"
                          "print(point(nalt.getGridOrigin()), point(nalt.getGridPointOnAxis()), "
                          "point(nalt.getGridThirdPoint()))");
  }

  Model& model;
};

} // namespace

TEST_F(GridBindings, StartInTheXYPlane)
{
  EXPECT_EQ(gridAfter(""), "0,0,0 1,0,0 0,1,0\n");
}

TEST_F(GridBindings, LayTheGridInAPlane)
{
  EXPECT_EQ(gridAfter("nalt.setXZGrid()"), "0,0,0 1,0,0 0,0,1\n");
  EXPECT_EQ(gridAfter("nalt.setYZGrid()"), "0,0,0 0,1,0 0,0,1\n");
  EXPECT_EQ(gridAfter("nalt.setXYGrid()"), "0,0,0 1,0,0 0,1,0\n");
}

TEST_F(GridBindings, MoveAllPointsWithTheOrigin)
{
  EXPECT_EQ(gridAfter("nalt.setGridOrigin(1, 2, 3)"), "1,2,3 2,2,3 1,3,3\n");
}

TEST_F(GridBindings, KeepPointsAsTheyAreGiven)
{
  EXPECT_EQ(gridAfter("nalt.setGridPointOnAxis(4, 0, 3) nalt.setGridThirdPoint(0, 5, 0.5)"), "0,0,0 4,0,3 0,5,0.5\n");
}

TEST_F(GridBindings, OffsetAlongTheNormal)
{
  EXPECT_EQ(gridAfter("nalt.addGridOffset(2) nalt.addGridOffset(-0.5)"), "0,0,1.5 1,0,1.5 0,1,1.5\n");
}

TEST_F(GridBindings, SetASpacingAboveZero)
{
  printed("nalt.setGridSpacing(2.5)");
  EXPECT_EQ(model.grid().spacing(), 2.5);
  EXPECT_TRUE(shell.messages.empty());
  printed("nalt.setGridSpacing(0) nalt.setGridSpacing(-1)");
  EXPECT_EQ(model.grid().spacing(), 2.5);
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Invalid grid spacing.", "WARNING: Invalid grid spacing."));
}

TEST_F(GridBindings, AlignToTheOneSelectedPolygon)
{
  EXPECT_EQ(printed("print(nalt.alignGridToPolygon())"), "false\n");
  EXPECT_EQ(printed("nalt.selectByName('o1') print(nalt.alignGridToPolygon())"), "false\n");
  EXPECT_EQ(printed("nalt.selectAll('POLYGON') print(nalt.alignGridToPolygon())"), "false\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: No polygon is selected - can't align grid.",
                                                   "WARNING: No polygon is selected - can't align grid.",
                                                   "WARNING: More than one polygon is selected - can't align grid."));
  EXPECT_EQ(gridAfter("nalt.setXZGrid() nalt.selectByName('p1') assert(nalt.alignGridToPolygon())"),
            "0,0,0 1,0,0 0,1,0\n");
}

TEST_F(GridBindings, AreProceduresButForTheAlignment)
{
  EXPECT_EQ(printed("print(select('#', nalt.setXYGrid()), select('#', nalt.setGridSpacing(1)), "
                    "select('#', nalt.addGridOffset(0)), select('#', nalt.setGridOrigin(0, 0, 0)))"),
            "0 0 0 0\n");
}

TEST_F(GridBindings, GiveZerosWithoutAModel)
{
  ASSERT_TRUE(executeBatch("print(nalt.getGridOrigin()) print(nalt.getGridPointOnAxis()) print(nalt.getPivot())"))
      << error;
  EXPECT_EQ(output, "0 0 0\n0 0 0\n0 0 0\n");
}

TEST_F(GridBindings, ServeEachModelItsOwnGrid)
{
  ASSERT_TRUE(executeBatch("nalt.newModel('b.flt') nalt.setXZGrid() nalt.newModel('c.flt')\n"
                           "print(nalt.getGridThirdPoint()) nalt.setCurrentModel('b.flt')\n"
                           "print(nalt.getGridThirdPoint())"))
      << error;
  EXPECT_EQ(output, "0 1 0\n0 0 1\n");
}

TEST_F(GridBindings, TellThePivotOfTheSelection)
{
  EXPECT_EQ(printed("print(nalt.getPivot())"), "0 0 0\n");
  EXPECT_EQ(printed("nalt.selectByName('p1') print(nalt.getPivot())"), "0.5 0.5 0\n");
}

} // namespace nalt
