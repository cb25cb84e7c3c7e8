#include "tests/scene/view/ViewportFixture.h"

#include "core/GridOperations.h"

#include <gmock/gmock.h>
#include <osg/Depth>
#include <osg/Geometry>

namespace nalt {
namespace {

class ViewportGridTest : public ViewportFixture {
protected:
  static const osg::Geometry& linesOf(osg::Geode* geode) { return *geode->getDrawable(0)->asGeometry(); }
  static unsigned lineCount(osg::Geode* geode) { return linesOf(geode).getVertexArray()->getNumElements() / 2; }
  bool hangs(osg::Geode* geode) { return view->scene().root()->containsNode(geode); }
  osg::Geode* thin() { return view->scene().grid().thinLines(); }
  osg::Geode* thick() { return view->scene().grid().thickLines(); }
};

TEST_F(ViewportGridTest, ShowGridAddsAndRemovesItsTwoGeodes)
{
  EXPECT_FALSE(hangs(thin()) || hangs(thick()));
  pick("Show Grid");
  EXPECT_TRUE(hangs(thin()) && hangs(thick()));
  pick("Show Grid");
  EXPECT_FALSE(hangs(thin()) || hangs(thick()));
}

TEST_F(ViewportGridTest, EveryTenthLineIsThick)
{
  pick("Show Grid");
  EXPECT_EQ(lineCount(thick()), 2U * 5U); // -20, -10, 0, 10, 20 in both directions
  EXPECT_EQ(lineCount(thin()), 2U * 36U);
}

TEST_F(ViewportGridTest, OnlyTheLinesThroughTheOriginHaveTheAxisColor)
{
  ViewportPreferences preferences;
  preferences.gridColor.set(0, 1, 0, 1);
  preferences.gridAxisColor.set(1, 0, 0, 1);
  view->setPreferences(preferences);
  pick("Show Grid");
  const osg::Geometry& lines = linesOf(thick());
  const auto& colors = *dynamic_cast<const osg::Vec4Array*>(lines.getColorArray());
  const auto& vertices = *dynamic_cast<const osg::Vec3Array*>(lines.getVertexArray());
  ASSERT_EQ(lines.getNumPrimitiveSets(), colors.size());
  for (unsigned i = 0; i < lines.getNumPrimitiveSets(); ++i) {
    const auto& set = *dynamic_cast<const osg::DrawArrays*>(lines.getPrimitiveSet(i));
    for (int k = set.getFirst(); k < set.getFirst() + set.getCount(); k += 2) {
      const osg::Vec3f middle = (vertices[k] + vertices[k + 1]) / 2.0F;
      EXPECT_EQ(colors[i], middle.length() < 1e-6F ? preferences.gridAxisColor : preferences.gridColor);
    }
  }
  const auto& thinColors = *dynamic_cast<const osg::Vec4Array*>(linesOf(thin()).getColorArray());
  EXPECT_EQ(thinColors[0], preferences.gridColor);
}

TEST_F(ViewportGridTest, LinesReachAsFarAsTheirNumber)
{
  pick("Show Grid");
  setGridSpacing(*model, 2.0, false);
  setXZGrid(*model, false);
  const osg::BoundingBox& box = linesOf(thick()).getBoundingBox();
  EXPECT_NEAR(box.xMin(), -40.0, 1e-5);
  EXPECT_NEAR(box.xMax(), 40.0, 1e-5);
  EXPECT_NEAR(box.zMax(), 40.0, 1e-5);
  EXPECT_NEAR(box.yMax(), 0.0, 1e-5);
}

TEST_F(ViewportGridTest, DepthModesSetTestRangeAndBinOnBothKindsOfLine)
{
  struct Row {
    const char* label;
    osg::Depth::Function function;
    double nearEnd;
    double farEnd;
    int bin;
  };
  for (const Row& row :
       {Row{"Always On Top", osg::Depth::LESS, 0, 0, 0}, Row{"Never On Top", osg::Depth::ALWAYS, 1, 1, -1},
        Row{"Z-buffer", osg::Depth::LESS, 0, 1, 0}}) {
    pick(row.label);
    for (osg::Geode* geode : {thin(), thick()}) {
      SCOPED_TRACE(row.label);
      const osg::StateSet& state = *geode->getStateSet();
      const auto& depth = *dynamic_cast<const osg::Depth*>(state.getAttribute(osg::StateAttribute::DEPTH));
      EXPECT_EQ(depth.getFunction(), row.function);
      EXPECT_EQ(depth.getZNear(), row.nearEnd);
      EXPECT_EQ(depth.getZFar(), row.farEnd);
      EXPECT_EQ(state.getBinName(), "RenderBin");
      EXPECT_EQ(state.getBinNumber(), row.bin);
    }
  }
}

TEST_F(ViewportGridTest, SizesFollowTheMenu)
{
  pick("Increase Grid Size");
  EXPECT_EQ(view->grid()->halfSize(), 21);
  pick("Decrease Grid Size");
  pick("Double Grid Size");
  EXPECT_EQ(view->grid()->halfSize(), 40);
  pick("Half Grid Size");
  pick("Half Grid Size");
  EXPECT_EQ(view->grid()->halfSize(), 10);
}

TEST_F(ViewportGridTest, AGridOfAnEmptyModelDoesntGrowWithoutEnd)
{
  for (int i = 0; i < 20; ++i)
    pick("Double Grid Size");
  EXPECT_EQ(view->grid()->halfSize(), 160);
}

TEST_F(ViewportGridTest, AHugeGridIsDrawnWithLinesThatFitIntoMemory)
{
  view->grid()->setOrigin({});
  for (int i = 0; i < 40; ++i)
    view->grid()->redouble(1e30);
  pick("Show Grid");
  EXPECT_LT(lineCount(thin()) + lineCount(thick()), 300000U);
  EXPECT_GT(linesOf(thin()).getBoundingBox().radius(), 1e9);
}

TEST_F(ViewportGridTest, TheGridOfTheActiveViewportIsTheModelsOne)
{
  EXPECT_EQ(&model->grid(), view->grid());
  setGridSpacing(*model, 4.0, false);
  EXPECT_EQ(view->preferences().gridSpacing, 4.0);
  model->removeAllViewports(/*destroy=*/true);
  EXPECT_EQ(model->grid().spacing(), 1.0);
}

TEST_F(ViewportGridTest, AGridEntryWorksOnTheViewportWhoseMenuItIs)
{
  Model two(0, 0, 800, 600);
  two.createEmpty();
  createViewports(two, 2);
  auto* second = dynamic_cast<Viewport*>(two.viewports().at(1));
  view = second;
  pick("Align To XZ");
  EXPECT_TRUE(second->isActive());
  EXPECT_NEAR(second->grid()->axes().normal.y(), -1.0, 1e-12);
  EXPECT_NEAR(dynamic_cast<Viewport*>(two.viewports().at(0))->grid()->axes().normal.z(), 1.0, 1e-12);
}

TEST_F(ViewportGridTest, AboveAndBelowLookAcrossTheGrid)
{
  setXZGrid(*model, false); // the normal is -y
  pick("Above Grid");
  EXPECT_NEAR(view->camera().pose().viewDirection().y(), 1.0, 1e-9);
  pick("Below Grid");
  EXPECT_NEAR(view->camera().pose().viewDirection().y(), -1.0, 1e-9);
}

TEST_F(ViewportGridTest, ThreePointsAlignTheGridAndTheStatusLineAsksForThem)
{
  pick("Show Grid");
  pick("Align To Vertices");
  EXPECT_EQ(shell.status, "Aligning grid, set point 1");
  EXPECT_TRUE(view->gridPoint({1, 2, 3}));
  EXPECT_EQ(shell.status, "Aligning grid, set point 2");
  EXPECT_TRUE(view->gridPoint({1, 5, 3}));
  EXPECT_EQ(shell.status, "Aligning grid, set point 3");
  EXPECT_TRUE(view->gridPoint({1, 2, 9}));
  EXPECT_EQ(shell.status, "");
  EXPECT_FALSE(view->gridPlacement().waits());
  EXPECT_EQ(view->grid()->points().origin, osg::Vec3d(1, 2, 3));
  EXPECT_EQ(view->grid()->points().onAxis, osg::Vec3d(1, 5, 3));
  EXPECT_EQ(view->grid()->points().third, osg::Vec3d(1, 2, 9));
  EXPECT_FALSE(view->gridPoint({0, 0, 0}));
}

TEST_F(ViewportGridTest, TheSameEntryStopsAligningAndClearsTheStatus)
{
  pick("Show Grid");
  pick("Align To Vertices");
  EXPECT_TRUE(view->gridPoint({1, 2, 3}));
  pick("Align To Vertices");
  EXPECT_EQ(shell.status, "");
  EXPECT_FALSE(view->gridPoint({4, 4, 4}));
  EXPECT_EQ(view->grid()->points().origin, osg::Vec3d(1, 2, 3));
}

TEST_F(ViewportGridTest, TranslatingTakesOnePointAndEndsAligning)
{
  pick("Show Grid");
  pick("Align To Vertices");
  pick("Translate Origin");
  EXPECT_EQ(shell.status, "Translating grid, set new origin point");
  EXPECT_EQ(view->gridPlacement().step(), 0);
  EXPECT_TRUE(view->gridPoint({7, 0, 0}));
  EXPECT_EQ(shell.status, "");
  EXPECT_EQ(view->grid()->points().onAxis, osg::Vec3d(8, 0, 0));
  pick("Translate Origin");
  pick("Align To Vertices");
  EXPECT_FALSE(view->gridPlacement().translates());
  EXPECT_EQ(shell.status, "Aligning grid, set point 1");
}

TEST_F(ViewportGridTest, AHiddenGridTakesNoPoint)
{
  pick("Align To Vertices");
  EXPECT_FALSE(view->gridPoint({1, 2, 3}));
  EXPECT_EQ(view->gridPlacement().step(), 1);
}

TEST_F(ViewportGridTest, TheStatusLineIsLeftAloneWhileAScriptRuns)
{
  shell.isQuiet = true;
  shell.status = "of the script";
  pick("Align To Vertices");
  EXPECT_EQ(shell.status, "of the script");
}

TEST_F(ViewportGridTest, PointsOnTheGridSnapWhileSnappingIsOn)
{
  EXPECT_FALSE(view->pointOnGrid({0.7, 0, 5}, {0.7, 0, -5}));
  pick("Show Grid");
  EXPECT_EQ(view->pointOnGrid({0.7, 0, 5}, {0.7, 0, -5}), osg::Vec3d(1, 0, 0));
  DisplaySwitches switches = model->switches();
  switches.snapToGrid = false;
  model->setSwitches(switches);
  EXPECT_NEAR(view->pointOnGrid({0.7, 0, 5}, {0.7, 0, -5})->x(), 0.7, 1e-12);
}

TEST_F(ViewportGridTest, PreferencesThatCantBeDrawnWithAreLeftAsTheyWere)
{
  ViewportPreferences wanted;
  wanted.gridSpacing = 0.0;
  wanted.nearClip = 5.0;
  wanted.farClip = 2.0;
  wanted.fieldOfView = 200.0;
  wanted.largeVertexSize = -1.0;
  wanted.gridColor.set(1, 1, 1, 1);
  view->setPreferences(wanted);
  const ViewportPreferences& now = view->preferences();
  EXPECT_EQ(now.gridSpacing, 1.0);
  EXPECT_EQ(now.nearClip, 0.1);
  EXPECT_EQ(now.farClip, 100000.0);
  EXPECT_EQ(now.fieldOfView, 60.0);
  EXPECT_EQ(now.largeVertexSize, 4.0);
  EXPECT_EQ(now.gridColor, osg::Vec4f(1, 1, 1, 1));
}

} // namespace
} // namespace nalt
