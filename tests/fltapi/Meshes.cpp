#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

class Meshes : public testing::Test {
protected:
  Workbench bench;
  osg::ref_ptr<FltFile> file = bench.load(flt::generatedFile("meshes"));
  MeshRecord* mesh = first<MeshRecord>(*file);
};

TEST_F(Meshes, holdTheirPoolAndThenTheirPrimitives)
{
  EXPECT_THAT(childOpcodes(*mesh), ElementsAre(opcodes::comment, opcodes::localVertexPool, opcodes::meshPrimitive,
                                               opcodes::meshPrimitive, opcodes::meshPrimitive));
  EXPECT_EQ(mesh->parent()->getName(), "o1");
  EXPECT_THAT(childOpcodes(*mesh->parent()), ElementsAre(opcodes::mesh, opcodes::face));
}

TEST_F(Meshes, haveTheFieldsOfAFaceBehindAReservedWord)
{
  const auto bytes = flt::sampleRecord(84);
  EXPECT_EQ(mesh->get(MeshRecord::fields.irColorCode), static_cast<std::int32_t>(flt::bigEndian(bytes, 16, 4)));
  EXPECT_EQ(mesh->get(MeshRecord::fields.material), static_cast<std::int16_t>(flt::bigEndian(bytes, 34, 2)));
  EXPECT_EQ(mesh->get(MeshRecord::fields.flags), flt::bigEndian(bytes, 48, 4));
  EXPECT_EQ(mesh->get(MeshRecord::fields.shader), static_cast<std::int16_t>(flt::bigEndian(bytes, 82, 2)));
}

TEST_F(Meshes, giveTheAttributesOfTheirVertices)
{
  const auto& pool = static_cast<const LocalVertexPoolRecord&>(*mesh->firstPrimaryChild());
  using Pool = LocalVertexPoolRecord;
  EXPECT_EQ(pool.vertexCount(), 3);
  EXPECT_TRUE(pool.has(Pool::normal));
  EXPECT_FALSE(pool.has(Pool::colorIndex));
  EXPECT_EQ(Pool::stride(pool.get(pool.fields.attributeMask)), 24u + 4 + 12 + 8 + 8);
  const auto vector = [&](int i) {
    return FieldTraits<osg::Vec3d>::load(pool.data() + pool.offsetOf(i, Pool::position));
  };
  EXPECT_EQ(vector(0), osg::Vec3d(0, 0, 1));
  EXPECT_EQ(vector(2), osg::Vec3d(2, 4, 1));
  const auto layer = [&](int i) {
    return FieldTraits<osg::Vec2f>::load(pool.data() + pool.offsetOf(i, Pool::firstLayerUV));
  };
  EXPECT_EQ(layer(1), osg::Vec2f(2, 3));
  // Packed colors stay in the order of the file.
  EXPECT_EQ(loadAt<PackedColor>(pool.data() + pool.offsetOf(1, Pool::rgbaColor)), (PackedColor{255, 2, 3, 4}));
  for (const int i : {-1, 3})
    EXPECT_EQ(pool.offsetOf(i, Pool::position), 0u);
  EXPECT_EQ(pool.offsetOf(0, Pool::lastLayerUV), 0u);
}

TEST_F(Meshes, haveColorIndicesThatAreNumbers)
{
  const auto pool = flt::record(85, flt::Bytes().u32(1).u32(0x40000000).u32(0x00000180));
  const auto bytes = flt::file(flt::object("o1") + flt::level(flt::node(84, "m1") + pool));
  const auto loaded = bench.load(bytes);
  const auto& record = static_cast<const LocalVertexPoolRecord&>(*first<MeshRecord>(*loaded)->firstPrimaryChild());
  EXPECT_EQ(loadAt<std::uint32_t>(record.data() + record.offsetOf(0, LocalVertexPoolRecord::colorIndex)), 0x180u);
  EXPECT_TRUE(sameBytes(bench.save(*loaded), bytes));
}

TEST_F(Meshes, giveTheIndicesOfTheirPrimitives)
{
  int seen = 0;
  for (const auto* child : mesh->primaryChildren()) {
    if (child->opcode() != opcodes::meshPrimitive) continue;
    EXPECT_THAT(static_cast<const MeshPrimitiveRecord&>(*child).indices(), ElementsAre(0, 1, 2));
    ++seen;
  }
  EXPECT_EQ(seen, 3);
}

TEST_F(Meshes, giveOnlyWhatIsReallyThere)
{
  const auto primitive = [&](int width, std::uint32_t count) {
    const auto bytes = flt::record(86, flt::Bytes().i16(4).i16(width).u32(count).u32(0x01020304).u16(0x0506));
    const auto loaded = bench.load(flt::file(flt::object("o1") + flt::level(flt::node(84, "m1") + flt::level(bytes))));
    return first<MeshPrimitiveRecord>(*loaded)->indices();
  };
  EXPECT_THAT(primitive(1, 1000), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(primitive(2, 0xffffffff), ElementsAre(0x0102, 0x0304, 0x0506));
  EXPECT_THAT(primitive(4, 9), ElementsAre(0x01020304));
  EXPECT_THAT(primitive(4, 0), IsEmpty());
  EXPECT_THAT(primitive(3, 1), IsEmpty());
  EXPECT_THAT(primitive(0, 1), IsEmpty());
}

TEST_F(Meshes, areWrittenInTheOrderInWhichTheyAreRead)
{
  EXPECT_TRUE(sameBytes(bench.save(*file), flt::generatedFile("meshes")));
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 4 [ 84 31 85 [ 86 86 86 ] 5 ] ]");
}

TEST_F(Meshes, withoutAPoolOrPrimitivesAreWrittenToo)
{
  for (const auto& inside : {flt::level(flt::sampleRecord(86)), flt::sampleRecord(85), std::string(),
                             flt::sampleRecord(85) + flt::comment("of the pool") + flt::level(flt::sampleRecord(86))}) {
    const auto bytes = flt::file(flt::object("o1") + flt::level(flt::node(84, "m1") + inside + flt::face("p1")));
    EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
  }
}

TEST_F(Meshes, ofMorphingPolygonsAreCarried)
{
  const auto bytes = flt::file(
      flt::object("o1") +
      flt::level(flt::face("p1") + flt::level(flt::record(89, flt::Bytes().u32(8).u32(48).u32(88).u32(128)))));
  const auto loaded = bench.load(bytes);
  const auto* list = first<MorphVertexListRecord>(*loaded);
  EXPECT_EQ(loadAt<std::uint32_t>(list->data() + 8), 48u);
  EXPECT_TRUE(sameBytes(bench.save(*loaded), bytes));
}

TEST_F(Meshes, ofVerticesInNodesAreCarriedWithTheirStructure)
{
  const auto bytes =
      flt::file(flt::object("o1") +
                flt::level(flt::face("p1") + flt::level(flt::sampleRecord(7) + flt::comment("text") +
                                                        flt::sampleRecord(8) + flt::level(flt::sampleRecord(9)))));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

} // namespace
} // namespace fltapi
