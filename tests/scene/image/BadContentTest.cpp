#include "tests/scene/image/LogCapture.h"
#include "tests/scene/image/MeshBuilder.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/TempFolder.h"

#include <functional>
#include <limits>
#include <numbers>
#include <random>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();

/// What files hold that no program wrote on purpose: it is shown as far as that goes, and does no harm.
class BadContent : public SyncFixture {
protected:
  /// The whole image has an extent that a camera can frame.
  void expectFramed()
  {
    const auto bound = sync().root()->getBound();
    EXPECT_TRUE(bound.valid());
    EXPECT_LT(bound.radius(), 1e20);
    const auto view = OffscreenView::create(60, 60);
    if (!view) return;
    view->setScene(sync().root());
    view->lookAlong({0, 0, -1}, {0, 1, 0});
    view->draw();
    EXPECT_GT(view->drawnPixels(), 50);
  }
};

std::vector<osg::Vec3d> ring(int corners, const std::function<double(int)>& radius)
{
  std::vector<osg::Vec3d> points;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * i / corners;
    points.emplace_back(radius(i) * std::cos(angle), radius(i) * std::sin(angle), 0);
  }
  return points;
}

} // namespace

TEST_F(BadContent, CornersThatAreNowhereTakeTheirFaceAway)
{
  build.square(object, 0, 0, red);
  for (const double bad : {none, endless, -endless, 1e300, 1e30}) {
    for (const int corners : {1, 2, 3, 4, 7}) {
      std::vector<osg::Vec3d> points(static_cast<std::size_t>(corners), osg::Vec3d(1, 1, 1));
      for (int i = 0; i < corners; ++i)
        points[static_cast<std::size_t>(i)].set(i, i * i, 0);
      points.back().y() = bad;
      auto& face = build.face(object, points);
      sync().translate(face);
      EXPECT_EQ(sync().polygonOf(face), nullptr);
    }
  }
  expectFramed();
  expectLikeFresh();
}

TEST_F(BadContent, AFaceComesBackWhenItsCornerDoes)
{
  auto& face = build.square(object, 0, 0, red);
  sync();
  face.vertexAt(2)->setPosition({none, 0, 0});
  sync().update(face);
  EXPECT_EQ(sync().polygonOf(face), nullptr);
  face.vertexAt(2)->setPosition({1, 1, 0});
  sync().update(face);
  EXPECT_EQ(polygon(face).getCount(), 4);
}

TEST_F(BadContent, LightPointsAndMeshesKeepTheNumbersOfTheirVertices)
{
  auto& light = build.add<LightPointRecord>(group);
  build.add<VertexListRecord>(light);
  build.vertex(light, {1, 2, 3});
  build.vertex(light, {none, endless, 0});
  auto& mesh = build.add<MeshRecord>(object);
  setPool(build, mesh, {{0, 0, 0}, {none, 0, 0}, {4, 0, 0}, {0, 4, 0}});
  addPrimitive(build, mesh, MeshPrimitiveRecord::indexedPolygon, {0, 2, 3});
  EXPECT_EQ(polygon(light).getCount(), 2);
  EXPECT_EQ(corner(light, 1), osg::Vec3(1, 2, 3));
  expectFramed();
}

TEST_F(BadContent, MatricesThatAreNoMatricesMoveNothing)
{
  build.square(object, 0, 0, red);
  for (const double bad : {none, endless, 1e200}) {
    auto& child = build.add<GroupRecord>(group);
    build.square(build.add<ObjectRecord>(child), 1, 0);
    build.translation(child, {bad, 0, 0});
    auto& dof = build.add<DofRecord>(group);
    build.square(build.add<ObjectRecord>(dof), 2, 0);
    dof.set(DofRecord::fields.origin, {bad, bad, 0});
  }
  expectFramed();
}

TEST_F(BadContent, CopiesThatGrowBeyondAllNumbersStay)
{
  build.square(object, 0, 0, red);
  auto* replicate = build.file().create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, std::int16_t{3000});
  group.insertAncillary(replicate);
  auto* matrix = build.file().create<MatrixRecord>();
  matrix->setMatrix(osg::Matrixd::scale(10, 10, 10));
  group.insertAncillary(matrix);
  EXPECT_EQ(sync().nodeOf(group)->asGroup()->getNumChildren(), 3001U);
  EXPECT_LT(sync().root()->getBound().radius(), 1e20);

  auto& face = build.square(object, 0, 0);
  auto* copies = build.file().create<ReplicateRecord>();
  copies->set(ReplicateRecord::fields.count, std::int16_t{32000});
  face.insertAncillary(copies);
  auto* step = build.file().create<MatrixRecord>();
  step->setMatrix(osg::Matrixd::scale(10, 10, 10));
  face.insertAncillary(step);
  sync().translate(face);
  EXPECT_NE(sync().polygonOf(face), nullptr);
}

TEST_F(BadContent, IndicesThatNoPaletteHasAreLeftOut)
{
  for (const int index : {-30000, -2, 7, 32767}) {
    auto& face = build.square(object, 0, 0, red);
    const auto& fields = FaceRecord::fields;
    face.set(fields.material, static_cast<std::int16_t>(index));
    face.set(fields.texture, static_cast<std::int16_t>(index));
    face.set(fields.shader, static_cast<std::int16_t>(index));
    face.set(fields.textureMapping, static_cast<std::int16_t>(index));
    face.set(fields.lineStyle, std::uint8_t{200});
    face.set(fields.drawType, static_cast<std::uint8_t>(index));
    face.set(fields.lightMode, static_cast<std::uint8_t>(index));
    auto& colored = build.square(object, 1, 0);
    colored.set(fields.flags, 0);
    colored.set(fields.colorIndex, static_cast<std::uint32_t>(index));
    colored.vertexAt(0)->setFlags(0);
    colored.vertexAt(0)->set(VertexRecord::fields.colorIndex, static_cast<std::uint32_t>(index));
  }
  auto& light = build.add<IndexedLightPointRecord>(group);
  light.set(IndexedLightPointRecord::fields.appearance, 99);
  build.add<VertexListRecord>(light);
  build.vertex(light, {0, 0, 0});
  expectFramed();
  expectLikeFresh();
}

TEST_F(BadContent, FacesWithoutVerticesOrAVertexListShowNothing)
{
  auto& empty = build.face(object, {});
  auto& bare = build.add<FaceRecord>(object);
  auto& child = build.face(empty, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  EXPECT_EQ(sync().polygonOf(empty), nullptr);
  EXPECT_EQ(sync().polygonOf(bare), nullptr);
  EXPECT_NE(sync().polygonOf(child), nullptr);
  build.vertex(empty, {0, 0, 0});
  sync().update(empty);
  EXPECT_EQ(polygon(empty).getMode(), static_cast<GLenum>(GL_POINTS));
  expectLikeFresh();
}

TEST_F(BadContent, APolygonOfAHundredThousandCornersIsFilledAtOnce)
{
  constexpr int corners = 100'000;
  const auto flower = [](int i) { return 10 + 2 * std::cos(5 * 2 * std::numbers::pi * i / corners); };
  auto& bent = build.face(object, ring(corners, flower), red);
  double seconds = processorSeconds([&] { sync(); });
  EXPECT_LT(seconds, 20);
  EXPECT_NEAR(areaOf(geometry(bent)), std::numbers::pi * (100 + 4 / 2), 0.01);

  auto& plain = build.face(object, ring(corners, [](int) { return 3; }), green);
  seconds = processorSeconds([&] { sync().translate(plain); });
  EXPECT_LT(seconds, 20);
  EXPECT_EQ(polygon(plain).getCount(), corners);
}

TEST_F(BadContent, StarsWithAHundredThousandRaysTakeNoTime)
{
  build.face(object, ring(100'000, [](int i) { return i % 2 ? 10 : 1; }), red);
  build.face(object, ring(100'000, [](int i) { return i % 2 ? 10 : 9.99; }), red);
  EXPECT_LT(processorSeconds([&] { sync(); }), 20);
  expectFramed();
}

TEST_F(BadContent, ATangleOfManyCornersTakesNoTime)
{
  std::mt19937 random(1);
  std::uniform_real_distribution<double> anywhere(0, 10);
  std::vector<osg::Vec3d> points;
  for (int i = 0; i < 100'000; ++i)
    points.emplace_back(anywhere(random), anywhere(random), 0);
  build.face(object, points, red);
  EXPECT_LT(processorSeconds([&] { sync(); }), 20);
  expectFramed();
}

TEST_F(BadContent, InstancesThatShowEachOtherEndSomewhere)
{
  for (int number : {1, 2, 3})
    build.definition(number);
  for (int number : {1, 2, 3}) {
    auto& body = *build.file().instanceDefinition(number)->primaryChildAt(0);
    for (int other : {1, 2, 3})
      build.reference(body, other);
  }
  build.reference(group, 1);
  expectFramed();
  sync().translateAll();
  expectFramed();
}

TEST_F(BadContent, AChainOfInstancesEndsBeforeTheStackDoes)
{
  constexpr int count = 30'000;
  for (int number = 0; number < count; ++number)
    build.definition(number);
  for (int number = 0; number + 1 < count; ++number)
    build.reference(*build.file().instanceDefinition(number)->primaryChildAt(0), number + 1);
  build.reference(group, 0);
  expectFramed();
}

TEST_F(BadContent, AnImageThatIsNoneLeavesItsFacesPlain)
{
  const TempFolder folder;
  std::string large("\x01\xda\0\1\0\3\x7f\xff\x7f\xff\0\3", 12); // its size is that of many more bytes
  large.resize(600);
  std::string endless("\x01\xda\1\1\0\3\0\4\0\1\0\1", 12); // a row of 4 pixels with runs of 127
  endless.resize(512);
  endless += std::string("\0\0\2\x08\0\0\0\4", 8) + "\x7f\1\x7f\1";
  writeFile(folder / "noise.rgb", std::string(1000, '\x7f'));
  writeFile(folder / "large.rgb", large);
  writeFile(folder / "endless.rgb", endless);
  writeFile(folder / "empty.png", "");
  writeFile(folder / "short.jpg", "\xff\xd8\xff");
  int index = 0;
  for (const auto* name : {"noise.rgb", "large.rgb", "endless.rgb", "empty.png", "short.jpg", "missing.rgb", "", "/"}) {
    build.texture(index, *name ? folder / name : "");
    auto& face = build.square(object, index, 0, red);
    face.set(FaceRecord::fields.texture, static_cast<std::int16_t>(index));
    sync().translate(face);
    EXPECT_EQ(stateSet(face).getTextureAttribute(0, osg::StateAttribute::TEXTURE), nullptr) << name;
    ++index;
  }
  expectFramed();
}

TEST_F(BadContent, RunLengthsOfASoundImageAreRead)
{
  const TempFolder folder;
  std::string image("\x01\xda\1\1\0\2\0\4\0\1\0\1", 12);
  image.resize(512);
  image += std::string("\0\0\2\x08\0\0\0\3\4\x50\0", 11); // one run of 4 pixels
  writeFile(folder / "sound.bw", image);
  build.texture(0, folder / "sound.bw");
  auto& face = build.square(object, 0, 0, red);
  face.set(FaceRecord::fields.texture, std::int16_t{0});
  const auto* texture = stateSet(face).getTextureAttribute(0, osg::StateAttribute::TEXTURE)->asTexture();
  ASSERT_NE(texture->getImage(0), nullptr);
  EXPECT_EQ(texture->getImage(0)->s(), 4);
  EXPECT_EQ(*texture->getImage(0)->data(3, 0), 0x50);
}

TEST_F(BadContent, AnUnknownPrimitiveIsToldOnceHoweverOftenItIsTranslated)
{
  auto& mesh = build.add<MeshRecord>(object);
  setPool(build, mesh, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  addPrimitive(build, mesh, 9, {0, 1, 2});
  const LogCapture log;
  sync().update(mesh);
  sync().translateAll();
  EXPECT_EQ(log.text(), "Mesh: Unknown primitive type\n");
}

TEST_F(BadContent, AVertexOfNoKnownKindIsToldOnceAndDrawnAsItStands)
{
  auto& face = build.square(object, 0, 0, red);
  fltapi::storeAt(face.vertexAt(2)->data(), std::int16_t{99});
  const LogCapture log;
  sync().update(face);
  EXPECT_EQ(log.text(), "Failed to get Vertex op code.\n");
  EXPECT_EQ(polygon(face).getCount(), 4);
  EXPECT_NEAR(areaOf(geometry(face)), 1, 1e-5);
}

TEST_F(BadContent, AFaceOfNoFileIsDrawnWithoutColorAndMaterial)
{
  auto& face = build.square(object, 0, 0, red);
  face.set(FaceRecord::fields.flags, 0);
  face.set(FaceRecord::fields.colorIndex, 200);
  face.set(FaceRecord::fields.lightMode, FaceRecord::lit);
  face.set(FaceRecord::fields.material, std::int16_t{0});
  sync();
  face.setFile(nullptr);
  const LogCapture log;
  sync().update(face);
  EXPECT_THAT(log.text(), testing::HasSubstr("No FLT file found for retrieving color palette.\n"));
  EXPECT_THAT(log.text(), testing::HasSubstr("No FLT file found for retrieving material palette.\n"));
  EXPECT_EQ(color(face), osg::Vec4ub(255, 255, 255, 255));
}

TEST_F(BadContent, AFaceOfNoFileIsDrawnWithoutTextureAndShader)
{
  auto& face = build.square(object, 0, 0, red);
  face.set(FaceRecord::fields.texture, std::int16_t{0});
  face.set(FaceRecord::fields.shader, std::int16_t{0});
  sync();
  face.setFile(nullptr);
  const LogCapture log;
  sync().update(face);
  EXPECT_THAT(log.text(), testing::HasSubstr("No FLT file found for retrieving texture palette.\n"));
  EXPECT_THAT(log.text(), testing::HasSubstr("No FLT file found for retrieving shader palette.\n"));
  EXPECT_EQ(stateSet(face).getTextureAttribute(0, osg::StateAttribute::TEXTURE), nullptr);
  EXPECT_EQ(stateSet(face).getAttribute(osg::StateAttribute::PROGRAM), nullptr);
}
