#include "scene/view/CornerMarks.h"

#include "core/selection/SelectOperations.h"
#include "scene/image/DofPreview.h"
#include "scene/view/ViewportCount.h"
#include "tests/scene/view/SmallScene.h"
#include "tests/scene/view/VisitCount.h"

#include <osg/Geometry>
#include <osg/NodeVisitor>

namespace nalt {
namespace {

/// Counts the vertices of all geometries below a node.
class VertexCount : public osg::NodeVisitor {
public:
  VertexCount() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) {}
  using osg::NodeVisitor::apply;
  void apply(osg::Geometry& geometry) override
  {
    if (geometry.getVertexArray()) count += geometry.getVertexArray()->getNumElements();
  }
  unsigned count = 0;
};

class CornerMarksTest : public SmallScene {
protected:
  void SetUp() override
  {
    SmallScene::SetUp();
    marks.watch(&model->selections());
  }
  void TearDown() override
  {
    marks.watch(nullptr);
    SmallScene::TearDown();
  }
  void update() { marks.update(*model->sync(), view->bits(), style, preferences); }
  unsigned vertexCount()
  {
    VertexCount visitor;
    marks.root()->accept(visitor);
    return visitor.count;
  }

  CornerMarks marks;
  ViewStyle style;
  ViewportPreferences preferences;
};

TEST_F(CornerMarksTest, ThereIsNothingUntilItIsAskedFor)
{
  update();
  EXPECT_EQ(marks.root()->getNumChildren(), 0U);
}

TEST_F(CornerMarksTest, EachCornerHasALineForItsNormal)
{
  style.normals = true;
  update();
  EXPECT_EQ(vertexCount(), 2U * 6U);
  style.normals = false;
  update();
  EXPECT_EQ(marks.root()->getNumChildren(), 0U);
}

TEST_F(CornerMarksTest, OnlyTheSelectionHasNormalsWhenThatIsWanted)
{
  style.normals = true;
  preferences.normalsOnlySelection = true;
  update();
  EXPECT_EQ(vertexCount(), 0U);
  select(*first);
  update();
  EXPECT_EQ(vertexCount(), 2U * 3U);
  ASSERT_TRUE(convertSelection(*model, SelectionMode::vertex, false));
  update();
  EXPECT_EQ(vertexCount(), 2U * 3U);
}

TEST_F(CornerMarksTest, NormalsAreAsLongAsTheirScale)
{
  style.normals = true;
  preferences.normalsScale = 2.5;
  update();
  EXPECT_NEAR(marks.root()->getBound().center().z(), 1.25, 1e-5);
}

TEST_F(CornerMarksTest, NumbersStandAtTheCorners)
{
  style.vertexNumbers = true;
  update();
  EXPECT_EQ(marks.root()->getNumChildren(), 1U);
  EXPECT_TRUE(marks.root()->getBound().valid());
}

TEST_F(CornerMarksTest, NothingIsLookedAtWhileNothingChanges)
{
  const osg::ref_ptr<VisitCount> visits = new VisitCount;
  model->sceneRoot()->addChild(visits);
  style.normals = true;
  style.vertexNumbers = true;
  preferences.normalsOnlySelection = true;
  select(*first);
  update();
  const int before = visits->count;
  EXPECT_GT(before, 0);
  update();
  update();
  EXPECT_EQ(visits->count, before);
  select(*second);
  update();
  EXPECT_GT(visits->count, before);
}

TEST_F(CornerMarksTest, NormalsOfTheSelectionAreMadeAnewOnlyWhereSomethingChanged)
{
  auto* far = make<fltapi::ObjectRecord>(*model->fltFile()->header());
  std::swap(object, far);
  auto* third = makeFace();
  std::swap(object, far);
  model->sync()->translateAll();
  style.normals = true;
  preferences.normalsOnlySelection = true;
  model->selections().select(selectionOf(*first), recordedChange("", "", false));
  model->selections().add(*selectionOf(*third), recordedChange("", "", false));
  update();
  const auto* normals = marks.root()->getChild(0)->asGroup();
  ASSERT_EQ(normals->getNumChildren(), 2U);
  const osg::ref_ptr<const osg::Node> near = normals->getChild(0);
  const osg::ref_ptr<const osg::Node> other = normals->getChild(1);
  third->vertexAt(0)->setPosition({0, 0, 7});
  model->sync()->update(*third);
  update();
  EXPECT_EQ(normals->getChild(0), near);
  EXPECT_NE(normals->getChild(1), other);
}

TEST_F(CornerMarksTest, NormalsFollowEditsOfWhatIsSelected)
{
  style.normals = true;
  preferences.normalsOnlySelection = true;
  select(*first);
  update();
  first->vertexAt(0)->setPosition({0, 0, 7});
  model->sync()->update(*first);
  update();
  EXPECT_GT(marks.root()->getBound().center().z() + marks.root()->getBound().radius(), 7);
}

TEST_F(CornerMarksTest, NormalsOfAnotherSceneTakeTheirPlace)
{
  style.normals = true;
  update();
  EXPECT_EQ(vertexCount(), 2U * 6U);
  Model other(0, 0, 400, 300);
  other.createEmpty();
  ASSERT_TRUE(other.sceneRoot());
  marks.update(*other.sync(), view->bits(), style, preferences);
  EXPECT_EQ(vertexCount(), 0U);
}

TEST_F(CornerMarksTest, MovingAPreviewedNodeMovesItsNormals)
{
  auto* dof = make<fltapi::DofRecord>(*model->fltFile()->header());
  object = make<fltapi::ObjectRecord>(*dof);
  makeFace();
  model->sync()->translateAll();
  style.normals = true;
  update();
  const double before = marks.root()->getBound().radius();
  DofPreview preview(*model->sync());
  DofValues values = currentDofValues(*dof);
  values[0] = 100;
  preview.move(*dof, values);
  update();
  EXPECT_GT(marks.root()->getBound().radius(), before + 40);
}

TEST_F(CornerMarksTest, ShrunkPolygonsAreAMatterOfOneViewport)
{
  changeViewportCount(*model, 2);
  ViewStyle shrunk = viewport(1)->style();
  shrunk.shrunkPolygons = true;
  viewport(1)->setStyle(shrunk);
  EXPECT_EQ(model->sync()->shrinkingBits(), viewport(1)->bits());
  shrunk.shrunkPolygons = false;
  viewport(1)->setStyle(shrunk);
  EXPECT_EQ(model->sync()->shrinkingBits(), 0U);
}

TEST_F(CornerMarksTest, AViewportThatGoesTakesItsShrinkingAlong)
{
  changeViewportCount(*model, 2);
  ViewStyle shrunk = viewport(1)->style();
  shrunk.shrunkPolygons = true;
  viewport(1)->setStyle(shrunk);
  model->removeAllViewports(/*destroy=*/true);
  EXPECT_EQ(model->sync()->shrinkingBits(), 0U);
}

} // namespace
} // namespace nalt
