#include "scene/image/Highlight.h"

#include "scene/image/Marks.h"
#include "scene/image/ModUserData.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

#include <osg/MatrixTransform>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

constexpr int size = 100;
const osg::Vec4ub redPixel(255, 0, 0, 255);

/// Looks down on the square from (0, 0) to (10, 10), ten pixels to the unit.
class Highlighting : public SyncFixture {
protected:
  void SetUp() override
  {
    view_ = OffscreenView::create(size, size);
    if (!view_) GTEST_SKIP() << "no OpenGL without a display";
  }
  FaceRecord& block(PrimNodeRecord& parent, double x, double y, double side)
  {
    return build.face(parent, {{x, y, 0}, {x + side, y, 0}, {x + side, y + side, 0}, {x, y + side, 0}}, red);
  }
  void mark(PrimNodeRecord& record, bool on = true)
  {
    setMark(record, Mark::selected, on);
    sync().highlight().markChanged(record);
  }
  void markCorner(FaceRecord& face, int corner, std::uint8_t mark, bool on = true)
  {
    setMark(*face.vertexList()->vertexAt(corner), mark, on);
    setMark(face, Mark::parts, on);
    sync().highlight().markChanged(face);
  }
  void draw()
  {
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    scene->addChild(sync().root());
    scene->addChild(&sync().highlight());
    view_->setScene(scene);
    view_->lookDown(10);
    image_ = view_->draw();
  }
  std::string pixels() const { return {reinterpret_cast<const char*>(image_->data()), image_->getTotalSizeInBytes()}; }
  /// Pixels of a color in the rectangle between two places of the plane, both included.
  int count(const osg::Vec4ub& color, double left, double bottom, double right, double top) const
  {
    int sum = 0;
    for (int y = static_cast<int>(bottom * 10); y <= static_cast<int>(top * 10); ++y) {
      for (int x = static_cast<int>(left * 10); x <= static_cast<int>(right * 10); ++x)
        sum += view_->pixel(x, y) == color;
    }
    return sum;
  }
  int black(double left, double bottom, double right, double top) const
  {
    return count({0, 0, 0, 255}, left, bottom, right, top);
  }
  int white(double left, double bottom, double right, double top) const
  {
    return count({255, 255, 255, 255}, left, bottom, right, top);
  }
  bool isHighlighted(double left, double bottom, double right, double top) const
  {
    return black(left, bottom, right, top) > 0 && white(left, bottom, right, top) > 0;
  }
  osg::Vec4ub at(double x, double y) const { return view_->pixel(static_cast<int>(x * 10), static_cast<int>(y * 10)); }

  std::unique_ptr<OffscreenView> view_;
  osg::ref_ptr<osg::Image> image_;
};

} // namespace

TEST_F(Highlighting, APolygonGetsAnOutlineInTwoColors)
{
  auto& face = block(object, 2, 2, 6);
  block(object, 9, 9, 0.5);
  draw();
  const auto plain = pixels();
  EXPECT_EQ(black(0, 0, 9.9, 9.9), 0);
  mark(face);
  draw();
  view_->save("highlight-polygon");
  for (const auto& [left, bottom, right, top] :
       {std::array{1.5, 1.5, 8.5, 2.5}, {1.5, 7.5, 8.5, 8.5}, {1.5, 1.5, 2.5, 8.5}, {7.5, 1.5, 8.5, 8.5}})
    EXPECT_TRUE(isHighlighted(left, bottom, right, top)) << left << " " << bottom;
  EXPECT_EQ(at(5, 5), redPixel);
  EXPECT_FALSE(isHighlighted(8.6, 8.6, 9.9, 9.9));
  mark(face, false);
  draw();
  EXPECT_EQ(pixels(), plain);
}

TEST_F(Highlighting, CornersArePointsAndEdgesAreLines)
{
  auto& face = block(object, 2, 2, 6);
  markCorner(face, 2, Mark::selected);
  draw();
  EXPECT_TRUE(isHighlighted(7.5, 7.5, 8.5, 8.5));
  EXPECT_FALSE(isHighlighted(1, 1, 7, 7));
  markCorner(face, 2, Mark::selected, false);
  markCorner(face, 3, Mark::edge);
  draw();
  EXPECT_TRUE(isHighlighted(1.5, 3, 2.5, 7)) << "from the last corner to the first";
  EXPECT_FALSE(isHighlighted(3, 1, 9, 9));
}

TEST_F(Highlighting, MovesWithTheCorner)
{
  auto& face = block(object, 2, 2, 3);
  markCorner(face, 2, Mark::selected);
  draw();
  EXPECT_TRUE(isHighlighted(4.5, 4.5, 5.5, 5.5));
  auto& corner = *face.vertexList()->vertexAt(2);
  corner.setPosition({8, 8, 0});
  sync().update(face);
  draw();
  EXPECT_TRUE(isHighlighted(7.5, 7.5, 8.5, 8.5));
  EXPECT_FALSE(isHighlighted(4.5, 4.5, 5.5, 5.5));
}

TEST_F(Highlighting, SurvivesWhateverMovesThePolygonToAnotherGeometry)
{
  auto& face = block(object, 2, 2, 6);
  block(object, 0, 0, 1);
  mark(face);
  draw();
  const auto before = black(0, 0, 9.9, 9.9);
  face.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::solidBothSides});
  sync().update(face);
  draw();
  EXPECT_EQ(black(0, 0, 9.9, 9.9), before);
  build.vertex(face, {2, 5, 0});
  sync().update(face);
  draw();
  EXPECT_EQ(black(0, 0, 9.9, 9.9), before);
  sync().translateAll();
  draw();
  EXPECT_EQ(black(0, 0, 9.9, 9.9), before);
}

TEST_F(Highlighting, GoesWithThePolygonAndReturnsWithIt)
{
  auto& face = block(object, 2, 2, 6);
  block(object, 0, 0, 1);
  mark(face);
  draw();
  const auto before = pixels();
  sync().remove(face);
  draw();
  EXPECT_FALSE(isHighlighted(0, 0, 9.9, 9.9));
  sync().translate(face);
  draw();
  EXPECT_EQ(pixels(), before);
  sync().remove(group);
  draw();
  EXPECT_EQ(view_->drawnPixels(), 0);
}

TEST_F(Highlighting, ANodeShowsTheOutlinesOfAllBelowIt)
{
  block(object, 1, 1, 3);
  auto& other = build.add<ObjectRecord>(group);
  block(other, 6, 6, 3);
  mark(group);
  draw();
  EXPECT_TRUE(isHighlighted(0.5, 0.5, 4.5, 4.5));
  EXPECT_TRUE(isHighlighted(5.5, 5.5, 9.5, 9.5));
  mark(group, false);
  mark(other);
  draw();
  EXPECT_FALSE(isHighlighted(0.5, 0.5, 4.5, 4.5));
  EXPECT_TRUE(isHighlighted(5.5, 5.5, 9.5, 9.5));
  mark(other, false);
  mark(build.header());
  draw();
  EXPECT_TRUE(isHighlighted(0.5, 0.5, 4.5, 4.5));
}

TEST_F(Highlighting, FollowsTheMatricesAboveAndEndsWithThem)
{
  auto& face = block(object, 0, 0, 3);
  auto& matrix = build.translation(group, {6, 0, 0});
  mark(face);
  draw();
  EXPECT_TRUE(isHighlighted(5.5, 0, 9.5, 3.5));
  EXPECT_FALSE(isHighlighted(0, 0, 3.5, 3.5));
  matrix.setMatrix(osg::Matrixd::translate(0, 6, 0));
  sync().update(group);
  draw();
  EXPECT_TRUE(isHighlighted(0, 5.5, 3.5, 9.5));
  EXPECT_FALSE(isHighlighted(5.5, 0, 9.5, 3.5));
  group.removeChild(&matrix);
  sync().update(group);
  draw();
  EXPECT_TRUE(isHighlighted(0, 0, 3.5, 3.5));
}

TEST_F(Highlighting, EveryCopyOfAReplicatedGroupIsHighlighted)
{
  auto& face = block(object, 1, 1, 1);
  build.translation(group, {3, 0, 0});
  build.add<ReplicateRecord>(group).set(ReplicateRecord::fields.count, std::int16_t{2});
  mark(face);
  draw();
  for (const double x : {0.5, 3.5, 6.5})
    EXPECT_TRUE(isHighlighted(x, 0.5, x + 2, 2.5)) << x;
}

TEST_F(Highlighting, EveryReferenceToAnInstanceIsHighlighted)
{
  auto& definition = build.definition(1);
  build.translation(build.reference(group, 1), {2, 2, 0});
  build.translation(build.reference(group, 1), {6, 6, 0});
  mark(*definition.primaryChildAt(0));
  draw();
  EXPECT_TRUE(isHighlighted(1.5, 1.5, 3.5, 3.5));
  EXPECT_TRUE(isHighlighted(5.5, 5.5, 7.5, 7.5));
}

TEST_F(Highlighting, WhatAViewportHidesIsntHighlightedThere)
{
  auto& face = block(object, 1, 1, 3);
  auto& toggle = build.add<SwitchRecord>(group);
  auto& below = build.add<ObjectRecord>(toggle);
  auto& switched = block(below, 6, 6, 3);
  mark(face);
  mark(switched);
  sync().setViewportBits(3);
  view_->setBits(1);
  ModUserData::of(face).setVisible(false, 1, sync(), /*traverse=*/false);
  draw();
  EXPECT_FALSE(isHighlighted(0.5, 0.5, 4.5, 4.5));
  EXPECT_TRUE(isHighlighted(5.5, 5.5, 9.5, 9.5));
  view_->setBits(2);
  draw();
  EXPECT_TRUE(isHighlighted(0.5, 0.5, 4.5, 4.5));
  toggle.setBit(0, 0, false);
  toggle.set(SwitchRecord::fields.currentMask, 0);
  sync().update(toggle);
  draw();
  EXPECT_FALSE(isHighlighted(5.5, 5.5, 9.5, 9.5));
  ModUserData::of(object).setVisible(false, 2, sync(), /*traverse=*/false);
  draw();
  EXPECT_FALSE(isHighlighted(0.5, 0.5, 4.5, 4.5));
}

TEST_F(Highlighting, LiesOverWhatCoversTheModel)
{
  auto& face = block(object, 2, 2, 6);
  build.face(object, {{0, 0, 1}, {10, 0, 1}, {10, 10, 1}, {0, 10, 1}}, green);
  mark(face);
  draw();
  EXPECT_TRUE(isHighlighted(1.5, 1.5, 8.5, 8.5));
}

TEST_F(Highlighting, ItsGroupsHaveTheirNamesAndCopiesTheirTransform)
{
  auto& face = block(object, 0, 0, 3);
  build.translation(group, {6, 0, 0});
  mark(face);
  draw();
  ASSERT_EQ(sync().highlight().getNumChildren(), 2U);
  EXPECT_EQ(sync().highlight().getChild(0)->getName(), "blackgroup");
  EXPECT_EQ(sync().highlight().getChild(1)->getName(), "whitegroup");
  const auto* places = sync().highlight().getChild(0)->asGroup()->getChild(0)->asGroup();
  ASSERT_EQ(places->getNumChildren(), 1U);
  EXPECT_EQ(places->getChild(0)->getName(), "SelectionTransform");
  EXPECT_EQ(places->getChild(0)->asTransform()->asMatrixTransform()->getMatrix(), osg::Matrixd::translate(6, 0, 0));
}

TEST_F(Highlighting, OutlivesItsModelHarmlessly)
{
  auto& face = block(object, 2, 2, 6);
  mark(face);
  const osg::ref_ptr<Highlight> highlight = &sync().highlight();
  const osg::ref_ptr<osg::Group> scene = new osg::Group;
  scene->addChild(highlight);
  dropSync();
  view_->setScene(scene);
  view_->draw();
  EXPECT_EQ(view_->drawnPixels(), 0);
}

TEST_F(Highlighting, FollowsShrunkPolygons)
{
  auto& face = block(object, 0, 0, 10);
  auto& partly = block(object, 20, 0, 10); // out of sight
  mark(face);
  markCorner(partly, 0, Mark::selected);
  draw();
  EXPECT_TRUE(isHighlighted(9.7, 3, 9.9, 7));
  sync().setShrinkingBits(1);
  draw();
  EXPECT_FALSE(isHighlighted(9.7, 3, 9.9, 7));
  EXPECT_TRUE(isHighlighted(9.3, 3, 9.7, 7));
}

TEST_F(Highlighting, FollowsCornersAndEdgesOfShrunkPolygons)
{
  auto& face = block(object, 0, 0, 10);
  markCorner(face, 0, Mark::selected);
  markCorner(face, 1, Mark::edge);
  sync().setShrinkingBits(1);
  draw();
  EXPECT_GT(white(0.3, 0.3, 0.7, 0.7), 0);
  EXPECT_EQ(white(0, 0, 0.1, 0.1), 0);
  EXPECT_TRUE(isHighlighted(9.3, 3, 9.7, 7));
}
