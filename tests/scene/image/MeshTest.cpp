#include "tests/scene/image/LogCapture.h"
#include "tests/scene/image/MeshBuilder.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

#include <gmock/gmock.h>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

using Pool = LocalVertexPoolRecord;

class Meshes : public SyncFixture {
protected:
  MeshRecord& mesh = build.add<MeshRecord>(object);

  void setPool(const std::vector<osg::Vec3d>& positions, PackedColor color = red)
  {
    tests::setPool(build, mesh, positions, color);
  }
  void addPrimitive(int type, const std::vector<std::uint32_t>& indices)
  {
    tests::addPrimitive(build, mesh, type, indices);
  }
  const osg::Geometry& shown() { return *sync().meshGeodeOf(mesh)->getDrawable(0)->asGeometry(); }
  std::vector<GLenum> modes()
  {
    std::vector<GLenum> modes;
    for (unsigned i = 0; i < shown().getNumPrimitiveSets(); ++i)
      modes.push_back(shown().getPrimitiveSet(i)->getMode());
    return modes;
  }
};

const std::vector<osg::Vec3d> strip = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0}, {2, 0, 0}, {2, 1, 0}};

} // namespace

TEST_F(Meshes, EachPrimitiveBecomesAPrimitiveSetOfItsKind)
{
  setPool(strip);
  addPrimitive(MeshPrimitiveRecord::triangleStrip, {0, 2, 1, 3, 4, 5});
  addPrimitive(MeshPrimitiveRecord::triangleFan, {0, 2, 3, 1});
  addPrimitive(MeshPrimitiveRecord::quadStrip, {1, 0, 3, 2, 5, 4});
  addPrimitive(MeshPrimitiveRecord::indexedPolygon, {0, 2, 4, 5, 1});
  EXPECT_THAT(modes(), testing::ElementsAre(GL_TRIANGLE_STRIP, GL_TRIANGLE_FAN, GL_QUAD_STRIP, GL_POLYGON));
  EXPECT_EQ(sync().meshGeodeOf(mesh)->getName(), "facegeode");
  EXPECT_EQ(Sync::recordOf(shown()), &mesh);
  EXPECT_EQ(Sync::recordOf(shown(), 2), &mesh);
}

TEST_F(Meshes, AnUnknownPrimitiveIsToldAndLeftOut)
{
  setPool(strip);
  addPrimitive(7, {0, 1, 2});
  addPrimitive(MeshPrimitiveRecord::triangleFan, {0, 2, 3, 1});
  const LogCapture log;
  EXPECT_THAT(modes(), testing::ElementsAre(GL_TRIANGLE_FAN));
  EXPECT_EQ(log.text(), "Mesh: Unknown primitive type\n");
}

TEST_F(Meshes, IndicesOutsideThePoolAreNeverDrawn)
{
  setPool(strip);
  addPrimitive(MeshPrimitiveRecord::triangleStrip, {0, 1, 6});
  addPrimitive(MeshPrimitiveRecord::indexedPolygon, {0, 1, 0xffffffff, 2});
  EXPECT_EQ(shown().getNumPrimitiveSets(), 0U);
}

TEST_F(Meshes, AMeshWithoutAPoolShowsNothing)
{
  sync();
  EXPECT_EQ(sync().meshGeodeOf(mesh)->getNumDrawables(), 0U);
}

TEST_F(Meshes, ConcavePolygonsAreTessellated)
{
  setPool({{2, 1, 0}, {4, 0, 0}, {2, 4, 0}, {0, 0, 0}});
  addPrimitive(MeshPrimitiveRecord::indexedPolygon, {1, 2, 3, 0});
  EXPECT_THAT(modes(), testing::ElementsAre(GL_TRIANGLES));
  EXPECT_NEAR(areaOf(shown()), 6, 1e-5);
}

TEST_F(Meshes, LitMeshesWithoutNormalsGetThemFromTheirTriangles)
{
  mesh.set(MeshRecord::fields.lightMode, std::uint8_t{FaceRecord::lit});
  setPool(strip);
  addPrimitive(MeshPrimitiveRecord::quadStrip, {1, 0, 3, 2, 5, 4});
  const auto& normals = static_cast<const osg::Vec3Array&>(*shown().getNormalArray());
  for (const auto& normal : normals)
    EXPECT_EQ(normal, osg::Vec3(0, 0, 1));
}

TEST_F(Meshes, ChangesAndRemovalAreFollowed)
{
  setPool(strip);
  addPrimitive(MeshPrimitiveRecord::triangleStrip, {0, 2, 1, 3});
  const auto* pool = mesh.findChild<Pool>();
  EXPECT_NEAR(areaOf(shown()), 1, 1e-5);
  addPrimitive(MeshPrimitiveRecord::triangleStrip, {2, 4, 3, 5});
  sync().update(*mesh.findChild<MeshPrimitiveRecord>());
  EXPECT_NEAR(areaOf(shown()), 2, 1e-5);
  mesh.set(MeshRecord::fields.drawType, std::uint8_t{FaceRecord::solidBothSides});
  sync().update(*mesh.findChild<Pool>());
  EXPECT_FALSE(sync().meshGeodeOf(mesh)->getStateSet()->getMode(GL_CULL_FACE) & osg::StateAttribute::ON);
  EXPECT_TRUE(pool);
  expectLikeFresh();
  sync().remove(mesh);
  EXPECT_FALSE(sync().meshGeodeOf(mesh));
  EXPECT_EQ(sync().nodeOf(object)->asGroup()->getNumChildren(), 0U);
}

TEST_F(Meshes, AMeshIsDrawnInTheColorsOfItsVertices)
{
  const auto view = OffscreenView::create(20, 10);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  mesh.set(MeshRecord::fields.lightMode, std::uint8_t{FaceRecord::gouraud});
  setPool(strip, blue);
  addPrimitive(MeshPrimitiveRecord::quadStrip, {1, 0, 3, 2, 5, 4});
  view->setScene(sync().root());
  view->lookDown(10);
  view->draw();
  EXPECT_EQ(view->drawnPixels(), 200);
  EXPECT_EQ(view->pixel(15, 5), osg::Vec4ub(0, 0, 255, 255));
}
