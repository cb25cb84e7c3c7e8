#include "scene/image/Visibility.h"

#include "scene/image/ModUserData.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

constexpr std::uint32_t left = 1;
constexpr std::uint32_t right = 2;

class Visibility : public SyncFixture {
protected:
  FaceRecord& one = build.square(object, 0, 0, red);
  FaceRecord& two = build.square(object, 1, 0, green);

  bool shows(const FaceRecord& face, std::uint32_t bit)
  {
    const auto* node = sync().nodeOf(object);
    return polygon(face).isVisibleIn(bit) && node->getNodeMask() & bit && sync().nodeOf(group)->getNodeMask() & bit;
  }
};

} // namespace

TEST_F(Visibility, APolygonHiddenInOneViewportIsDrawnInTheOther)
{
  const auto first = OffscreenView::create(20, 10);
  const auto second = OffscreenView::create(20, 10);
  if (!first || !second) GTEST_SKIP() << "no OpenGL without a display";
  first->setBits(left);
  second->setBits(right);
  for (const auto& view : {first.get(), second.get()}) {
    view->setScene(sync().root());
    view->lookDown(10);
    view->draw();
    EXPECT_EQ(view->pixel(5, 5), osg::Vec4ub(255, 0, 0, 255));
  }
  hide({&one}, left, sync());
  first->draw();
  second->draw();
  EXPECT_EQ(first->pixel(5, 5), OffscreenView::background());
  EXPECT_EQ(first->pixel(15, 5), osg::Vec4ub(0, 255, 0, 255));
  EXPECT_EQ(second->pixel(5, 5), osg::Vec4ub(255, 0, 0, 255));

  hide({&two}, left, sync());
  first->draw();
  EXPECT_EQ(first->drawnPixels(), 0);
  unhide({&one}, left, sync());
  first->draw();
  EXPECT_EQ(first->pixel(5, 5), osg::Vec4ub(255, 0, 0, 255));
}

TEST_F(Visibility, ANodeIsHiddenWithAllBelowIt)
{
  hide({&group}, left, sync());
  EXPECT_FALSE(shows(one, left));
  EXPECT_TRUE(shows(one, right));
  EXPECT_EQ(polygon(one).mask(), ~left);
  EXPECT_EQ(sync().nodeOf(group)->getNodeMask(), ~left);
}

TEST_F(Visibility, UnhidingAPartShowsItAndNoMore)
{
  hide({&group}, left, sync());
  unhide({&one}, left, sync());
  EXPECT_TRUE(shows(one, left));
  EXPECT_FALSE(shows(two, left));
}

TEST_F(Visibility, IsolatingHidesTheRest)
{
  isolate({&two}, left | right, sync());
  EXPECT_TRUE(shows(two, left));
  EXPECT_TRUE(shows(two, right));
  EXPECT_FALSE(shows(one, right));
  unhideAll(left | right, sync());
  EXPECT_TRUE(shows(one, left));
  EXPECT_TRUE(shows(one, right));
}

TEST_F(Visibility, UnhidingTheBodyOfAnInstanceShowsItsReferences)
{
  auto& definition = build.definition(1);
  auto& reference = build.reference(group, 1);
  hide({&group}, left, sync());
  unhide({definition.firstPrimaryChild()}, left, sync());
  EXPECT_EQ(ModUserData::nodeMaskOf(reference), ~0U);
  EXPECT_EQ(ModUserData::nodeMaskOf(group), ~0U);
}

TEST_F(Visibility, HiddenStaysHiddenWhenItIsTranslatedAgain)
{
  hide({&one}, left, sync());
  one.vertexList()->removeVertex(one.vertexAt(3));
  sync().update(one);
  EXPECT_EQ(polygon(one).mask(), ~left);
  sync().remove(group);
  sync().translate(group);
  EXPECT_EQ(polygon(one).mask(), ~left);
  expectLikeFresh();
}

TEST_F(Visibility, AHiddenFaceBelowASwitchObeysBoth)
{
  auto& choice = build.add<SwitchRecord>(group);
  auto& face = build.square(choice, 0, 0);
  choice.set(SwitchRecord::fields.currentMask, 0);
  choice.setBit(0, 0, false);
  sync();
  hide({&face}, left, sync());
  EXPECT_EQ(polygon(face).mask(), 0U);
  choice.setBit(0, 0, true);
  sync().update(choice);
  EXPECT_EQ(polygon(face).mask(), ~left);
  unhide({&face}, left, sync());
  EXPECT_EQ(polygon(face).mask(), ~0U);
}

TEST_F(Visibility, HiddenInAllViewportsMeansHidden)
{
  sync().setViewportBits(left | right);
  hide({&one}, left, sync());
  EXPECT_FALSE(ModUserData::of(one).hidden());
  hide({&one}, right, sync());
  EXPECT_TRUE(ModUserData::of(one).hidden());
  unhide({&one}, left, sync());
  EXPECT_FALSE(ModUserData::of(one).hidden());
}

TEST_F(Visibility, AnotherSetOfViewportsIsTakenOver)
{
  sync().setViewportBits(left | right);
  hide({&one}, left, sync());
  sync().setViewportBits(left);
  UpdateVisibilityVisitor visitor(sync());
  build.header().accept(visitor);
  EXPECT_TRUE(ModUserData::of(one).hidden());
}

TEST_F(Visibility, MeshesAndLightPointsAreHiddenToo)
{
  auto& mesh = build.add<MeshRecord>(object);
  build.add<LocalVertexPoolRecord>(mesh);
  auto& light = build.add<LightPointRecord>(group);
  build.add<VertexListRecord>(light);
  build.vertex(light, {0, 0, 0});
  hide({&mesh, &light}, right, sync());
  EXPECT_EQ(sync().meshGeodeOf(mesh)->getDrawable(0)->getNodeMask(), ~right);
  EXPECT_EQ(polygon(light).mask(), ~right);
  EXPECT_EQ(sync().nodeOf(light)->getNodeMask(), ~right);
}

TEST_F(Visibility, NothingIsKeptForWhatWasNeverHidden)
{
  sync();
  unhideAll(left, sync());
  EXPECT_FALSE(one.userData());
  hide({&one}, left, sync());
  EXPECT_TRUE(one.userData());
  EXPECT_FALSE(two.userData());
}

TEST_F(Visibility, AGeometryHolderHasOnlyPolygons)
{
  EXPECT_TRUE(ModUserData::of(object).isGeometryHolder());
  EXPECT_FALSE(ModUserData::of(group).isGeometryHolder());
  EXPECT_FALSE(ModUserData::of(build.header()).isGeometryHolder());
  build.add<GroupRecord>(object);
  EXPECT_FALSE(ModUserData::of(object).isGeometryHolder());
}

TEST_F(Visibility, FlagsOfTheTreeViewAndTheSelectionAreKept)
{
  auto& data = ModUserData::of(one);
  EXPECT_FALSE(data.isSelected());
  EXPECT_FALSE(data.isContracted());
  data.setSelected(true);
  data.setContracted(true);
  EXPECT_TRUE(ModUserData::find(one)->isSelected());
  EXPECT_TRUE(ModUserData::find(one)->isContracted());
  EXPECT_EQ(&data.record(), &one);
}
