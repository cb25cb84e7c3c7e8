#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

class SelectionBindings : public ScriptTest {
protected:
  SelectionBindings() { fillSmallDocument(*shell.newModel("a.flt")); }
};

} // namespace

TEST_F(SelectionBindings, SelectByNameInAnyMix)
{
  EXPECT_EQ(printed("print(nalt.selectByName('O1', {'p1', 'p1/V0'}, 'none'))\n"
                    "print(table.concat(nalt.getSelectionNames(), ' '))"),
            "true\np1/V0 p1 o1\n");
  EXPECT_EQ(printed("print(nalt.selectByName({'O1','p1'}, true), table.concat(nalt.getSelectionNames(), ' '))"),
            "true p1\n")
      << "case sensitive";
  EXPECT_EQ(printed("nalt.selectByName('o2') print(nalt.selectByName('p1', true, true))\n"
                    "print(table.concat(nalt.getSelectionNames(), ' '))"),
            "true\np1 o2\n")
      << "added";
}

TEST_F(SelectionBindings, KeepTheSelectionWhenNoNameMatches)
{
  EXPECT_EQ(printed("nalt.selectByName('o2') print(nalt.selectByName('none'), nalt.selectByName({}))\n"
                    "print(nalt.getSelectionNames()[1])"),
            "false false\no2\n");
}

TEST_F(SelectionBindings, SelectByModeInAnyCase)
{
  EXPECT_EQ(printed("print(nalt.selectAll('polygon'), nalt.getNumSelectedPrimitives('Polygon'))\n"
                    "print(nalt.selectAll('VERTEX'), nalt.getTotalNumSelectedPrimitives())\n"
                    "print(nalt.selectAll('LOD'))"),
            "true 2\ntrue 6\nfalse\n");
}

TEST_F(SelectionBindings, AreProceduresWhereNothingIsAsked)
{
  EXPECT_EQ(printed("nalt.selectByName('p1')\n"
                    "print(select('#', nalt.invertSelection('POLYGON')), nalt.getSelectionNames()[1])\n"
                    "print(select('#', nalt.selectParents()), nalt.getSelectionNames()[1])\n"
                    "print(select('#', nalt.selectChildren()), #nalt.getSelectionNames())\n"
                    "print(select('#', nalt.selectPrevious()), nalt.getSelectionNames()[1])\n"
                    "print(select('#', nalt.convertSelection('VERTEX')), #nalt.getSelectionNames())\n"
                    "print(select('#', nalt.selectNone()), #nalt.getSelectionNames())"),
            "0 p2\n0 o1\n0 2\n0 o1\n0 6\n0 0\n");
}

TEST_F(SelectionBindings, FindGeometry)
{
  EXPECT_EQ(printed("print(nalt.selectByNumberOfVertices(3), nalt.getNumSelectedPrimitives('POLYGON'))\n"
                    "nalt.selectByName('o2') print(nalt.selectByNumberOfVertices(3), nalt.selectByNumberOfVertices(3, "
                    "false))\n"
                    "print(nalt.selectVerticesByLocation(1, 0), nalt.getTotalNumSelectedPrimitives())\n"
                    "nalt.selectNone() print(nalt.selectSliverPolygons())\n"
                    "nalt.selectByName('p1') print(nalt.selectNakedEdges(), nalt.getNumSelectedPrimitives('EDGE'))"),
            "true 2\nfalse true\ntrue 2\nfalse\ntrue 3\n");
}

TEST_F(SelectionBindings, CountChildrenOfOneNode)
{
  EXPECT_EQ(
      printed(
          "for _, name in ipairs{'g1', 'o1', 'o2', 'p1'} do nalt.selectByName(name) print(nalt.getNumChildren()) end"),
      "2\n2\n0\n0\n");
  EXPECT_TRUE(shell.messages.empty());
  EXPECT_EQ(
      printed("nalt.selectByName('o1', 'o2') print(nalt.getNumChildren()) nalt.selectNone() nalt.getNumChildren()"),
      "0\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Can only get number of children from one single node.",
                                                   "WARNING: Can only get number of children from one single node."));
}

TEST_F(SelectionBindings, CountVerticesOfOnePolygon)
{
  EXPECT_EQ(printed("nalt.selectByName('p1') print(nalt.getNumVertices())"), "3\n");
  EXPECT_EQ(printed("nalt.selectByName('p1', 'p2') print(nalt.getNumVertices())\n"
                    "nalt.selectByName('p1/V0') print(nalt.getNumVertices())\n"
                    "nalt.selectByName('o1') print(nalt.getNumVertices())"),
            "0\n0\n0\n");
  EXPECT_THAT(
      shell.messages,
      testing::ElementsAre("WARNING: Can only get number of vertices from one single polygon or light point node.",
                           "WARNING: Can only get number of vertices from one single polygon or light point node.",
                           "WARNING: Invalid node type for getNumVertices."));
}

} // namespace nalt
