#include "scene/image/NormalLines.h"
#include "scene/image/VertexNumber.h"
#include "scene/image/VertexNumbers.h"
#include "scene/image/Visibility.h"
#include "tests/scene/image/MeshBuilder.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

#include <gmock/gmock.h>

// What viewports show beside or instead of the polygons as they are: shrunk polygons, normals, numbers.

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

constexpr std::uint32_t left = 1;
constexpr std::uint32_t right = 2;
const osg::Vec4ub redPixel(255, 0, 0, 255);

/// The square from (0, 0) to (10, 10), ten pixels to the unit.
class ViewAids : public SyncFixture {
protected:
  FaceRecord& block(double x, double y, double side, PackedColor color = red)
  {
    return build.face(object, {{x, y, 0}, {x + side, y, 0}, {x + side, y + side, 0}, {x, y + side, 0}}, color);
  }
  static void draw(OffscreenView& view, osg::Node* scene)
  {
    view.setScene(scene);
    view.lookDown(10);
    view.draw();
  }
  static osg::Vec4ub at(const OffscreenView& view, double x, double y)
  {
    return view.pixel(static_cast<int>(x * 10), static_cast<int>(y * 10));
  }
};

using Shrinking = ViewAids;

class Normals : public ViewAids {
protected:
  NormalLines lines;
  NormalLines::Settings settings;

  void show(const NormalLines::IsSelected& isSelected = {})
  {
    lines.update(*sync().root(), left, settings, isSelected);
  }
  std::vector<osg::Vec3> ends()
  {
    std::vector<osg::Vec3> all;
    for (unsigned i = 0; i < lines.geode()->getNumDrawables(); ++i) {
      const auto* array = lines.geode()->getDrawable(i)->asGeometry()->getVertexArray();
      const auto& values = static_cast<const osg::Vec3Array&>(*array);
      all.insert(all.end(), values.begin(), values.end());
    }
    return all;
  }
  std::size_t count() { return ends().size() / 2; }
};

class Numbers : public ViewAids {
protected:
  VertexNumbers numbers;

  void show() { numbers.update(*sync().root(), left); }
  /// Every number that is shown, as often as it is.
  std::vector<int> shown()
  {
    std::vector<int> all;
    for (unsigned i = 0; i < numbers.group()->getNumChildren(); ++i) {
      const auto& geode = *numbers.group()->getChild(i)->asGroup()->getChild(0)->asGroup();
      for (unsigned k = 0; k < geode.getNumChildren(); ++k) {
        const auto& number = dynamic_cast<const VertexNumber&>(*geode.getChild(k));
        all.insert(all.end(), number.places().size(), number.number());
      }
    }
    return all;
  }
};

} // namespace

TEST_F(Shrinking, APolygonMovesATenthTowardsItsCentreInThatViewportOnly)
{
  block(0, 0, 10);
  const auto first = OffscreenView::create(100, 100);
  const auto second = OffscreenView::create(100, 100);
  if (!first || !second) GTEST_SKIP() << "no OpenGL without a display";
  first->setBits(left);
  second->setBits(right);
  draw(*first, sync().root());
  EXPECT_EQ(at(*first, 0.2, 0.2), redPixel);

  sync().setShrinkingBits(left);
  draw(*first, sync().root());
  draw(*second, sync().root());
  EXPECT_EQ(at(*first, 0.3, 5), OffscreenView::background());
  EXPECT_EQ(at(*first, 0.7, 5), redPixel);
  EXPECT_EQ(at(*first, 9.3, 9.3), redPixel);
  EXPECT_EQ(at(*first, 9.7, 9.7), OffscreenView::background());
  EXPECT_EQ(at(*second, 0.3, 5), redPixel);
}

TEST_F(Shrinking, ComesBackExactly)
{
  const auto& face = block(0.1, 0.3, 7.7);
  const auto before = textOf(*sync().root());
  sync().setShrinkingBits(left);
  EXPECT_NE(geometry(face).shrunk().positions()[0], corner(face, 0));
  sync().setShrinkingBits(0);
  EXPECT_EQ(textOf(*sync().root()), before);
}

TEST_F(Shrinking, FollowsEdits)
{
  auto& face = block(0, 0, 10);
  sync().setShrinkingBits(left);
  face.vertexAt(0)->setPosition({-10, -10, 0});
  sync().update(face);
  // The centre is (5, 5) no more, but (2.5, 2.5).
  EXPECT_EQ(geometry(face).shrunk().positions()[0], osg::Vec3(-8.75F, -8.75F, 0));

  auto& other = block(20, 0, 10);
  sync().translate(other);
  const auto first = static_cast<std::size_t>(polygon(other).getFirst());
  EXPECT_EQ(geometry(other).shrunk().positions()[first], osg::Vec3(20.5F, 0.5F, 0));
  sync().remove(face);
  EXPECT_EQ(geometry(other).shrunk().positions().size(), 4U);
  EXPECT_EQ(geometry(other).shrunk().positions()[0], osg::Vec3(20.5F, 0.5F, 0));
}

TEST_F(Shrinking, TheLightsOfAStringKeepTheirDistance)
{
  auto& light = build.add<LightPointRecord>(group);
  build.add<VertexListRecord>(light);
  build.vertex(light, {1, 1, 1});
  build.vertex(light, {2, 1, 1});
  sync().setShrinkingBits(left);
  const auto& faces = *sync().polygonOf(light)->geometry();
  EXPECT_THAT(faces.positionsIn(left), testing::ElementsAre(osg::Vec3(1, 1, 1), osg::Vec3(2, 1, 1)));
}

TEST_F(Shrinking, EachPolygonOfAMeshShrinksByItself)
{
  auto& mesh = build.add<MeshRecord>(object);
  mesh.set(MeshRecord::fields.lightMode, std::uint8_t{FaceRecord::gouraud});
  setPool(build, mesh, {{0, 0, 0}, {0, 10, 0}, {5, 0, 0}, {5, 10, 0}, {10, 0, 0}, {10, 10, 0}});
  addPrimitive(build, mesh, MeshPrimitiveRecord::quadStrip, {1, 0, 3, 2, 5, 4});
  const auto view = OffscreenView::create(100, 100);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  draw(*view, sync().root());
  EXPECT_EQ(at(*view, 5, 5), redPixel);
  sync().setShrinkingBits(left);
  draw(*view, sync().root());
  EXPECT_EQ(at(*view, 5, 5), OffscreenView::background());
  EXPECT_EQ(at(*view, 4.5, 5), redPixel);
  EXPECT_EQ(at(*view, 5.5, 5), redPixel);
  sync().setShrinkingBits(0);
  draw(*view, sync().root());
  EXPECT_EQ(at(*view, 5, 5), redPixel);
}

TEST_F(Normals, StandOnEachCornerWithTheirLength)
{
  block(0, 0, 10);
  settings.length = 3;
  show();
  ASSERT_EQ(count(), 4U);
  EXPECT_EQ(ends()[0], osg::Vec3(0, 0, 0));
  EXPECT_EQ(ends()[1], osg::Vec3(0, 0, 3));
}

TEST_F(Normals, OfAVertexGoBeforeThatOfThePolygon)
{
  for (const int mode : {FaceRecord::flat, FaceRecord::lit}) {
    auto& face = build.add<FaceRecord>(object);
    face.set(FaceRecord::fields.lightMode, static_cast<std::uint8_t>(mode));
    build.add<VertexListRecord>(face);
    for (const auto& at : {osg::Vec3d(0, 0, 0), {1, 0, 0}, {0, 1, 0}}) {
      auto* vertex = build.file().create<NormalVertexRecord>();
      vertex->setPosition(at);
      vertex->setNormal({1, 0, 0});
      face.vertexList()->addVertex(vertex);
    }
    face.vertexAt(1)->setNormal({0, 0, 0});
    sync().translate(face);
    show();
    ASSERT_EQ(count(), 3U);
    EXPECT_EQ(ends()[1], osg::Vec3(1, 0, 0));
    EXPECT_EQ(ends()[3], osg::Vec3(1, 0, 1));
    sync().remove(face);
    object.removeChild(&face);
  }
}

TEST_F(Normals, TurnWithTheNodesAboveThemAndKeepTheirLength)
{
  block(0, 0, 1);
  auto* matrix = build.file().create<MatrixRecord>();
  matrix->setMatrix(osg::Matrixd::scale(5, 5, 5) * osg::Matrixd::rotate(osg::PI_2, osg::Vec3d(0, 1, 0)));
  group.insertAncillary(matrix);
  show();
  const auto direction = ends()[1] - ends()[0];
  EXPECT_NEAR((direction - osg::Vec3(1, 0, 0)).length(), 0, 1e-5);
}

TEST_F(Normals, CopiesShowThemOnlyWhenAsked)
{
  block(0, 0, 1);
  auto* replicate = build.file().create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, 2);
  group.insertAncillary(replicate);
  build.translation(group, {10, 0, 0});
  build.definition(1);
  build.reference(build.header(), 1);
  show();
  EXPECT_EQ(count(), 4U);
  settings.copies = true;
  show();
  EXPECT_EQ(count(), 16U);
}

TEST_F(Normals, TheSelectionCanBeAllThatHasThem)
{
  auto& one = block(0, 0, 1);
  auto& two = block(5, 0, 1);
  auto& mesh = build.add<MeshRecord>(object);
  setPool(build, mesh, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  addPrimitive(build, mesh, MeshPrimitiveRecord::indexedPolygon, {0, 1, 2});
  settings.onlySelection = true;
  show([](const Record&) { return false; });
  EXPECT_EQ(count(), 0U);
  show([&](const Record& record) { return &record == &one; });
  EXPECT_EQ(count(), 4U);
  show([&](const Record& record) { return &record == two.vertexAt(2); });
  ASSERT_EQ(count(), 1U);
  EXPECT_EQ(ends()[0], osg::Vec3(6, 1, 0));
  show([&](const Record& record) { return &record == &mesh; });
  EXPECT_EQ(count(), 3U);
  show([&](const Record& record) { return &record == &object; });
  EXPECT_EQ(count(), 11U);
}

TEST_F(Normals, FollowEditsAndHiding)
{
  auto& face = block(0, 0, 1);
  show();
  face.vertexAt(0)->setPosition({-1, -1, 0});
  sync().update(face);
  show();
  EXPECT_EQ(ends()[0], osg::Vec3(-1, -1, 0));
  hide({&face}, left, sync());
  show();
  EXPECT_EQ(count(), 0U);
  unhideAll(left, sync());
  hide({&face}, right, sync());
  show();
  EXPECT_EQ(count(), 4U);
  sync().remove(face);
  show();
  EXPECT_EQ(count(), 0U);
}

TEST_F(Normals, AreDrawnInTheirColor)
{
  build.face(object, {{2, 2, 0}, {2, 8, 0}, {2, 8, 5}, {2, 2, 5}}, red); // seen from its edge
  settings.length = 5;
  settings.color = {0, 1, 0, 1};
  show();
  const auto view = OffscreenView::create(100, 100);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  draw(*view, lines.geode());
  EXPECT_NEAR(view->drawnPixels(), 100, 4); // two lines, each over another one
  bool found = false;
  for (int y = 18; y < 23; ++y)
    found = found || view->pixel(50, y) == osg::Vec4ub(0, 255, 0, 255);
  EXPECT_TRUE(found);
}

TEST_F(Numbers, CountTheCornersOfEachPolygonFromNought)
{
  block(0, 0, 10);
  build.face(object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  show();
  EXPECT_THAT(shown(), testing::UnorderedElementsAre(0, 0, 1, 1, 2, 2, 3));
}

TEST_F(Numbers, LightPointsAndMeshesHaveThemToo)
{
  auto& light = build.add<LightPointRecord>(group);
  build.add<VertexListRecord>(light);
  build.vertex(light, {1, 1, 1});
  build.vertex(light, {2, 1, 1});
  auto& mesh = build.add<MeshRecord>(object);
  setPool(build, mesh, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  addPrimitive(build, mesh, MeshPrimitiveRecord::indexedPolygon, {0, 1, 2});
  show();
  EXPECT_THAT(shown(), testing::UnorderedElementsAre(0, 1, 0, 1, 2));
}

TEST_F(Numbers, AreRightAfterEdits)
{
  auto& face = block(0, 0, 10);
  show();
  build.vertex(face, {-5, 5, 0});
  sync().update(face);
  show();
  EXPECT_THAT(shown(), testing::UnorderedElementsAre(0, 1, 2, 3, 4));
  hide({&face}, left, sync());
  show();
  EXPECT_THAT(shown(), testing::IsEmpty());
  unhideAll(left, sync());
  sync().remove(face);
  show();
  EXPECT_EQ(numbers.group()->getNumChildren(), 0U);
}

TEST_F(Numbers, AreDrawnLegiblyOverThePolygons)
{
  block(1, 1, 8);
  show();
  const auto view = OffscreenView::create(100, 100);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  const osg::ref_ptr<osg::Group> scene = new osg::Group;
  scene->addChild(sync().root());
  scene->addChild(numbers.group());
  draw(*view, scene);
  view->save("numbers");
  // Within a digit's reach of the place of each: white digits, their dark rim, and the polygon around.
  for (const auto& place : {osg::Vec2i(16, 16), {84, 16}, {84, 84}, {16, 84}}) {
    int white = 0;
    int black = 0;
    int plain = 0;
    for (int y = -8; y <= 8; ++y) {
      for (int x = -6; x <= 6; ++x) {
        const auto pixel = view->pixel(place.x() + x, place.y() + y);
        white += pixel == osg::Vec4ub(255, 255, 255, 255);
        black += pixel == osg::Vec4ub(0, 0, 0, 255);
        plain += pixel == redPixel;
      }
    }
    EXPECT_GT(white, 8) << place.x() << ' ' << place.y();
    EXPECT_GT(black, 15);
    EXPECT_GT(plain, 60);
  }
}

TEST_F(Numbers, KeepTheirSizeAtEveryDistance)
{
  block(1, 1, 8);
  show();
  const auto view = OffscreenView::create(100, 100);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  view->setScene(numbers.group());
  view->lookDown(10);
  view->draw();
  const auto near = view->drawnPixels();
  view->lookDown(8);
  view->draw();
  EXPECT_EQ(view->drawnPixels(), near);
}
