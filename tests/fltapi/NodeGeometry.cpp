// Matrices, centers and transformations of nodes.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/visitors/VertexVisitors.h"
#include "tests/fltapi/support/Workbench.h"

namespace fltapi {
namespace {

using namespace nalt::tests;

std::string translation(float x, float y, float z)
{
  return flt::matrix({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1});
}

std::string scaling(float factor)
{
  return flt::matrix({factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, 1});
}

class NodeGeometry : public testing::Test {
protected:
  Workbench bench;
};

TEST_F(NodeGeometry, withoutMatricesLiesInTheWorld)
{
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::object("o1"))));
  EXPECT_TRUE(first<ObjectRecord>(*file)->worldMatrix().isIdentity());
}

TEST_F(NodeGeometry, goesThroughTheMatricesOfItsParentsInsideOut)
{
  const auto file = bench.load(flt::file(flt::group("g1") + translation(1, 2, 3) +
                                         flt::level(flt::object("o1") + scaling(2) + translation(10, 0, 0))));
  auto* object = first<ObjectRecord>(*file);
  EXPECT_EQ(osg::Vec3d(1, 1, 1) * object->localMatrix(), osg::Vec3d(12, 2, 2)); // in child order
  EXPECT_EQ(osg::Vec3d(1, 1, 1) * object->worldMatrix(), osg::Vec3d(13, 4, 5));
  EXPECT_EQ(osg::Vec3d(0, 0, 0) * object->parent()->worldMatrix(), osg::Vec3d(1, 2, 3));
}

TEST_F(NodeGeometry, isNotMovedByTheMatrixOfAReplication)
{
  const auto file = bench.load(flt::generatedFile("replication"));
  EXPECT_TRUE(first<GroupRecord>(*file)->localMatrix().isIdentity());
  EXPECT_TRUE(first<ObjectRecord>(*file)->worldMatrix().isIdentity());
}

TEST_F(NodeGeometry, ofPolygonsAndLightPointsHasNoMatrixOfItsOwn)
{
  const auto file = bench.load(flt::file(flt::object("o1") + flt::level(flt::face("p1") + translation(1, 2, 3) +
                                                                        flt::node(111, "lp1") + translation(1, 2, 3))));
  EXPECT_TRUE(first<FaceRecord>(*file)->localMatrix().isIdentity());
  EXPECT_TRUE(first<LightPointRecord>(*file)->localMatrix().isIdentity());
}

TEST_F(NodeGeometry, ofAnInstanceStandsAtItsFirstReference)
{
  const auto file =
      bench.load(flt::file(flt::instanceDefinition(1) + flt::level(flt::group("g1") + translation(1, 0, 0)) +
                           flt::group("g2") + translation(10, 0, 0) + flt::level(flt::instanceReference(1)) +
                           flt::group("g3") + translation(100, 0, 0) + flt::level(flt::instanceReference(1))));
  const auto* body = file->instanceDefinition(1)->firstPrimaryChild();
  EXPECT_EQ(osg::Vec3d() * body->worldMatrix(), osg::Vec3d(11, 0, 0));
}

TEST_F(NodeGeometry, ofInstancesInACircleEnds)
{
  const auto file = bench.load(flt::generatedFile("recursive-instance"));
  EXPECT_TRUE(file->instanceDefinition(2)->firstPrimaryChild()->worldMatrix().isIdentity());
}

TEST_F(NodeGeometry, hasItsCenterAmongItsVertices)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(0, 0, 0)), b = pool.add(flt::plainVertex(4, 0, 0)),
             c = pool.add(flt::plainVertex(2, 6, 9));
  const auto file =
      bench.load(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a, b, c})) + flt::object("o2") +
                                     flt::level(flt::polygon("p2", {b, b, b})) + flt::group("empty")));
  auto& header = *file->header();
  EXPECT_EQ(named(header, "o1")->center(), osg::Vec3d(2, 2, 3));
  EXPECT_EQ(header.center(), osg::Vec3d(3, 1, 1.5));
  EXPECT_EQ(named(header, "empty")->center(), osg::Vec3d());
}

TEST_F(NodeGeometry, countsInstancesAsOftenAsTheyAreShown)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(9, 0, 0)), b = pool.add(flt::plainVertex(0, 0, 0));
  const auto file = bench.load(
      flt::file(pool, flt::instanceDefinition(1) + flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {a}))) +
                          flt::group("g1") +
                          flt::level(flt::instanceReference(1) + flt::instanceReference(1) + flt::object("o2") +
                                     flt::level(flt::polygon("p2", {b})))));
  EXPECT_EQ(file->header()->center(), osg::Vec3d(6, 0, 0));
  CalculatePivotVisitor pivot;
  file->header()->accept(pivot);
  EXPECT_EQ(pivot.sum(), osg::Vec3d(18, 0, 0));
  EXPECT_EQ(pivot.count(), 3);
}

TEST_F(NodeGeometry, ofInstancesOfInstancesIsSummedQuickly)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  auto content = flt::instanceDefinition(0) + flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {a})));
  for (int i = 1; i <= 60; ++i) {
    content += flt::instanceDefinition(i) +
               flt::level(flt::group("g") + flt::level(flt::instanceReference(i - 1) + flt::instanceReference(i - 1)));
  }
  const auto file = bench.load(flt::file(pool, content + flt::instanceReference(60)));
  CalculatePivotVisitor pivot;
  file->header()->accept(pivot);
  EXPECT_EQ(pivot.count(), std::exp2(60));
  EXPECT_EQ(pivot.mean(), osg::Vec3d(1, 2, 3));
}

TEST_F(NodeGeometry, sumsTheNormalsOfItsPolygons)
{
  flt::VertexPool pool;
  const auto o = pool.add(flt::plainVertex(0, 0, 0)), x = pool.add(flt::plainVertex(5, 0, 0)),
             y = pool.add(flt::plainVertex(0, 3, 0)), z = pool.add(flt::plainVertex(0, 0, 2));
  const auto file = bench.load(
      flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {o, x, y}) + flt::polygon("p2", {o, y, z}) +
                                                     flt::polygon("p3", {o, x}))));
  CalculateAverageNormalVisitor normals;
  file->header()->accept(normals);
  EXPECT_EQ(normals.sum(), osg::Vec3d(1, 0, 1));
  EXPECT_EQ(normals.count(), 3);
}

TEST_F(NodeGeometry, isTransformedVertexByVertex)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3)), b = pool.add(flt::normalVertex(4, 5, 6));
  const auto file = bench.load(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a, b}))));
  auto* object = first<ObjectRecord>(*file);
  // A quarter turn about y, twice the size, moved along x.
  object->transformVertices(osg::Matrixd::scale(2, 2, 2) * osg::Matrixd::rotate(osg::PI_2, 0, 1, 0) *
                            osg::Matrixd::translate(100, 0, 0));
  const auto* face = first<FaceRecord>(*file);
  const auto near = [](const osg::Vec3d& p, const osg::Vec3d& q) { return (p - q).length() < 1e-6; };
  EXPECT_TRUE(near(face->vertexAt(0)->position(), {106, 4, -2}));
  EXPECT_TRUE(near(face->vertexAt(1)->position(), {112, 10, -8}));
  EXPECT_TRUE(near(*face->vertexAt(1)->normal(), {1, 0, 0})); // turned, not moved, of unit length
}

TEST_F(NodeGeometry, isTransformedOnceWhereInstancesShareIt)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  const auto file = bench.load(flt::file(pool, flt::instanceDefinition(1) +
                                                   flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {a}))) +
                                                   flt::instanceReference(1) + flt::instanceReference(1)));
  file->header()->transformVertices(osg::Matrixd::translate(10, 0, 0));
  const auto* face =
      static_cast<const FaceRecord*>(file->instanceDefinition(1)->firstPrimaryChild()->firstPrimaryChild());
  EXPECT_EQ(face->vertexAt(0)->position(), osg::Vec3d(11, 2, 3));
}

TEST(NormalOfAPolygon, pointsWhereItsCornersRunCounterClockwise)
{
  Workbench bench;
  flt::VertexPool pool;
  std::vector<std::uint32_t> square, concave;
  for (const auto& [x, y] : {std::pair{0, 0}, {4, 0}, {4, 4}, {0, 4}})
    square.push_back(pool.add(flt::plainVertex(x, y, 7)));
  // The corner that points inward comes second.
  for (const auto& [x, y] : {std::pair{0, 0}, {2, 1}, {4, 0}, {2, 8}})
    concave.push_back(pool.add(flt::plainVertex(x, y, 7)));
  const auto file = bench.load(
      flt::file(pool, flt::object("o1") + flt::level(flt::polygon("square", square) + flt::polygon("concave", concave) +
                                                     flt::polygon("empty", {}))));
  auto& header = *file->header();
  for (const auto* name : {"square", "concave"})
    EXPECT_EQ(static_cast<FaceRecord*>(named(header, name))->normal(), osg::Vec3d(0, 0, 1)) << name;
  EXPECT_EQ(static_cast<FaceRecord*>(named(header, "empty"))->normal(), osg::Vec3d());
}

} // namespace
} // namespace fltapi
