// From the vertex palette of a file to polygons with corners of their own, and back.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/io/VertexPaletteLayout.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/ProcessorTime.h"

#include <gmock/gmock.h>

#include <bit>
#include <limits>
#include <set>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class VertexPalette : public testing::Test {
protected:
  /// A new vertex at the end of the first polygon.
  VertexRecord* addVertex(FltFile& file, const osg::Vec3d& position)
  {
    auto* vertex = file.create<VertexRecord>();
    vertex->setPosition(position);
    first<FaceRecord>(file)->vertexList()->addVertex(vertex);
    return vertex;
  }
  osg::ref_ptr<FltFile> fileWithAPolygon()
  {
    return bench.load(flt::file(flt::object("o1") + flt::level(flt::polygon("p1", {}))));
  }
  /// How many vertices stand in a saved file.
  std::size_t verticesIn(const std::string& saved)
  {
    std::size_t count = 0;
    for (const int opcode : flt::opcodesOf(saved))
      count += isVertexOpcode(opcode);
    return count;
  }
  Workbench bench;
};

TEST_F(VertexPalette, givesPolygonsThatShareAnOffsetVerticesOfTheirOwn)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3)), b = pool.add(flt::plainVertex(4, 5, 6));
  const auto file = bench.load(
      flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a, b, a}) + flt::polygon("p2", {a, b, b}))));
  auto* p1 = static_cast<FaceRecord*>(named(*file->header(), "p1"));
  auto* p2 = static_cast<FaceRecord*>(named(*file->header(), "p2"));
  std::set<const Record*> vertices;
  for (const auto* face : {p1, p2}) {
    for (int i = 0; i < 3; ++i)
      vertices.insert(face->vertexAt(i));
  }
  EXPECT_THAT(vertices, SizeIs(6));
  p1->vertexAt(0)->setPosition({10, 20, 30});
  EXPECT_EQ(p1->vertexAt(2)->position(), osg::Vec3d(1, 2, 3));
  EXPECT_EQ(p2->vertexAt(0)->position(), osg::Vec3d(1, 2, 3));
}

TEST_F(VertexPalette, isEmptyInMemory)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  const auto file = bench.load(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a}))));
  EXPECT_THAT(childOpcodes(*file->header()),
              ElementsAre(opcodes::colorPalette, opcodes::vertexPalette, opcodes::object));
  EXPECT_EQ(file->vertexPalette()->get(VertexPaletteRecord::fields.paletteLength), 8u);
}

TEST_F(VertexPalette, reachesIntoDefinitionsThatNobodyRefersTo)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  const auto bytes = flt::file(pool, flt::instanceDefinition(1) +
                                         flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {a})) +
                                                    flt::object("o2") + flt::level(flt::polygon("p2", {a}))) +
                                         flt::instanceReference(1) + flt::instanceDefinition(2) +
                                         flt::level(flt::object("o3") + flt::level(flt::polygon("p3", {a}))));
  const auto file = bench.load(bytes);
  for (const int number : {1, 2}) {
    for (auto* face : file->instanceDefinition(number)->primaryChildren())
      EXPECT_EQ(static_cast<FaceRecord*>(face->firstPrimaryChild())->vertexCount(), 1);
  }
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(VertexPalette, isLaidOutInTheOrderOfFirstUse)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 0, 0)), b = pool.add(flt::plainVertex(2, 0, 0)),
             unused = pool.add(flt::plainVertex(9, 0, 0)), c = pool.add(flt::plainVertex(3, 0, 0));
  EXPECT_GT(unused, b);
  const auto saved = bench.roundTrip(
      flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {c, a, c}) + flt::polygon("p2", {b, a}))));
  std::vector<std::string> xs;
  for (const auto& vertex : flt::recordsOf(saved, 68))
    xs.push_back(vertex.bytes(8, 8));
  const auto x = [](double value) { return flt::Bytes().f64(value).str(); };
  EXPECT_THAT(xs, ElementsAre(x(3), x(1), x(2)));
  const auto lists = flt::recordsOf(saved, 72);
  EXPECT_EQ(lists[0].content, flt::Bytes().u32(8).u32(48).u32(8).str());
  EXPECT_EQ(lists[1].content, flt::Bytes().u32(88).u32(48).str());
  EXPECT_EQ(flt::recordsOf(saved, 67).front().content, flt::Bytes().u32(8 + 3 * 40).str());
}

TEST_F(VertexPalette, holdsEqualVerticesOnce)
{
  flt::VertexPool pool;
  std::vector<std::uint32_t> offsets;
  for (int i = 0; i < 4; ++i)
    offsets.push_back(pool.add(flt::plainVertex(1, 2, 3)));
  const auto saved = bench.roundTrip(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", offsets))));
  EXPECT_EQ(verticesIn(saved), 1u);
  EXPECT_EQ(first<FaceRecord>(*bench.load(saved))->vertexCount(), 4);
}

TEST_F(VertexPalette, keepsKindsApart)
{
  flt::VertexPool pool;
  const std::vector offsets = {pool.add(flt::plainVertex(1, 2, 3)), pool.add(flt::normalVertex(1, 2, 3)),
                               pool.add(flt::textureVertex(1, 2, 3)), pool.add(flt::normalTextureVertex(1, 2, 3))};
  const auto bytes = flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", offsets)));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(VertexPalette, keepsVerticesApartThatDifferInOneByte)
{
  const auto& layout = flt::normalTextureVertex(1, 2, 3);
  flt::VertexPool pool;
  std::vector<std::uint32_t> offsets{pool.add(layout)};
  for (std::size_t at = 4; at < layout.size(); ++at) {
    auto changed = layout;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    offsets.push_back(pool.add(changed));
  }
  const auto bytes = flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", offsets)));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(VertexPalette, mergesByExactValues)
{
  const auto quiet = std::numeric_limits<double>::quiet_NaN();
  const auto otherNaN = std::bit_cast<double>(std::bit_cast<std::uint64_t>(quiet) + 1);
  const auto infinity = std::numeric_limits<double>::infinity();
  const auto file = fileWithAPolygon();
  for (int round = 0; round < 2; ++round) {
    for (const double x :
         {0.0, -0.0, 1.0, std::nextafter(1.0, 2.0), quiet, otherNaN, infinity, -infinity, 1e308, 1e-308})
      addVertex(*file, {x, 0, 0});
  }
  EXPECT_EQ(verticesIn(bench.save(*file)), 10u);
}

TEST_F(VertexPalette, keepsVerticesApartThatDifferInTheirColorFlags)
{
  const auto file = fileWithAPolygon();
  addVertex(*file, {1, 2, 3});
  auto* packed = addVertex(*file, {1, 2, 3});
  packed->setFlags(VertexBaseRecord::packedFlag);
  auto* indexed = addVertex(*file, {1, 2, 3});
  indexed->setFlags(0);
  EXPECT_EQ(verticesIn(bench.save(*file)), 3u);
}

TEST_F(VertexPalette, ofAModelWithoutExtentIsLaidOutLikeAnyOther)
{
  const auto file = fileWithAPolygon();
  for (int i = 0; i < 3; ++i)
    addVertex(*file, {0, 0, 0});
  const auto saved = bench.save(*file);
  EXPECT_EQ(verticesIn(saved), 1u);
  EXPECT_TRUE(sameBytes(bench.roundTrip(saved), saved));
}

TEST_F(VertexPalette, hasOffsetsThatFitTheVersion)
{
  flt::VertexPool pool;
  const std::vector offsets = {pool.add(flt::normalVertex(1, 0, 0)), pool.add(flt::normalTextureVertex(2, 1, 0)),
                               pool.add(flt::plainVertex(3, 0, 0)), pool.add(flt::textureVertex(4, 0, 0))};
  const auto file = bench.load(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", offsets))));
  const auto saved = bench.save(*file, 1570);
  EXPECT_EQ(flt::recordsOf(saved, 72).front().content, flt::Bytes().u32(8).u32(60).u32(120).u32(160).str());
  EXPECT_EQ(flt::recordsOf(saved, 67).front().content, flt::Bytes().u32(8 + 52 + 60 + 40 + 48).str());
  testing::internal::CaptureStderr();
  const auto again = bench.load(saved);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(first<VertexListRecord>(*again)->sameVertices(*first<VertexListRecord>(*file)));
}

TEST_F(VertexPalette, leavesAnEmptyPolygonAListOf4Bytes)
{
  const auto file = fileWithAPolygon();
  const auto saved = bench.save(*file);
  const auto list = flt::recordsOf(saved, 72).front();
  EXPECT_EQ(list.length, 4u);
  EXPECT_TRUE(sameBytes(bench.roundTrip(saved), saved));
}

TEST_F(VertexPalette, isTheSameInEverySave)
{
  const auto file = bench.load(flt::generatedFile("every-kind"));
  const auto once = bench.save(*file);
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(sameBytes(bench.save(*file), once));
}

TEST_F(VertexPalette, ofManyVerticesIsLaidOutQuickly)
{
  const osg::ref_ptr<FltFile> file = new FltFile;
  std::vector<osg::ref_ptr<VertexRecord>> vertices;
  for (int i = 0; i < 200000; ++i) {
    vertices.emplace_back(file->create<VertexRecord>());
    // The sum of the coordinates is the same for all.
    vertices.back()->setPosition({i * 0.5, -i * 0.5, 0});
  }
  const nalt::tests::ProcessorTimer timer;
  VertexPaletteLayout layout(1620);
  for (int round = 0; round < 2; ++round) {
    for (const auto& vertex : vertices)
      layout.add(*vertex);
  }
  const double took = timer.seconds();
  EXPECT_EQ(layout.entries().size(), vertices.size());
  EXPECT_LT(took, 5.0); // comparing each with each would take minutes
}

TEST_F(VertexPalette, ofSeveralKindsIsFoundByItsOffsets)
{
  flt::VertexPool pool;
  const std::vector offsets = {pool.add(flt::textureVertex(0, 0, 0)), pool.add(flt::plainVertex(1, 0, 0)),
                               pool.add(flt::normalTextureVertex(2, 0, 0)), pool.add(flt::normalVertex(3, 0, 0)),
                               pool.add(flt::textureVertex(4, 0, 0))};
  const std::vector order = {4, 1, 3, 0, 2, 1, 4};
  std::vector<std::uint32_t> corners;
  for (const auto i : order)
    corners.push_back(offsets[static_cast<std::size_t>(i)]);
  const auto file = bench.load(flt::file(pool, flt::polygon("p1", corners)));
  const auto& vertices = first<VertexListRecord>(*file)->vertices();
  ASSERT_EQ(vertices.size(), order.size());
  std::set<const Record*> distinct;
  for (std::size_t i = 0; i < order.size(); ++i) {
    EXPECT_EQ(vertices[i]->position().x(), order[i]) << i;
    distinct.insert(vertices[i].get());
  }
  EXPECT_EQ(distinct.size(), order.size()) << "nothing is shared";
}

TEST_F(VertexPalette, thatLacksACornersVertexTakesItsFurtherTextureCoordinatesToo)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 0, 0)), b = pool.add(flt::plainVertex(2, 0, 0));
  flt::Bytes layer;
  layer.u32(0x80000000);
  for (const float value : {0.1f, 0.2f, 0.3f})
    layer.f32(value).f32(value);
  const auto file =
      bench.load(flt::file(pool, flt::face("p1") + flt::level(flt::vertexList({a, 9999, b}) + flt::record(53, layer))));
  const auto* list = first<VertexListRecord>(*file);
  ASSERT_EQ(list->vertexCount(), 2);
  const auto* layers = list->findChild<UVListRecord>();
  ASSERT_TRUE(layers);
  EXPECT_EQ(layers->length(), 8 + 2 * 8u) << "a pair for each corner that is left";
  EXPECT_EQ(layers->uv(0, 1).x(), 0.1f);
  EXPECT_EQ(layers->uv(1, 1).x(), 0.3f);
}

TEST_F(VertexPalette, ofAFileWithoutOneLeavesPolygonsWithoutCorners)
{
  const auto file = bench.load(flt::header() + flt::plainVertex(1, 2, 3) +
                               flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {8}))));
  EXPECT_EQ(first<FaceRecord>(*file)->vertexCount(), 0);
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 67 [ 4 [ 5 [ 72 ] ] ]");
}

} // namespace
} // namespace fltapi
