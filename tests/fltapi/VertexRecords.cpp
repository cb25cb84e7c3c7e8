// Vertices and the lists that hold them.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;

constexpr int vertexKinds[] = {opcodes::vertex, opcodes::normalVertex, opcodes::normalTextureVertex,
                               opcodes::textureVertex};

class Vertices : public testing::Test {
protected:
  Vertices()
  {
    file->initNew();
    file->colorPalette()->setEntry(3, {.a = 255, .b = 127, .g = 64, .r = 254});
  }
  VertexBaseRecord* vertex(int opcode = opcodes::vertex)
  {
    return static_cast<VertexBaseRecord*>(file->createRecord(opcode));
  }
  osg::ref_ptr<FltFile> file = new FltFile;
};

TEST_F(Vertices, haveNoColorWhenNew)
{
  for (const int kind : vertexKinds) {
    const osg::ref_ptr<VertexBaseRecord> v = vertex(kind);
    EXPECT_EQ(v->flags(), 0x2000);
    EXPECT_FALSE(v->hasColor());
    EXPECT_FALSE(v->hasPackedColor());
    EXPECT_EQ(v->colorIndex(), 0xffffffffu);
    EXPECT_EQ(v->packedColor(), (PackedColor{255, 255, 255, 255}));
    EXPECT_EQ(v->position(), osg::Vec3d());
  }
}

TEST_F(Vertices, holdAPositionNormalsAndTextureCoordinates)
{
  for (const int kind : vertexKinds) {
    const osg::ref_ptr<VertexBaseRecord> v = vertex(kind);
    v->setPosition({1.5, -2.5, 1e10});
    v->setNormal({0, 1, 0});
    v->setUV({0.5f, 0.25f});
    EXPECT_EQ(v->position(), osg::Vec3d(1.5, -2.5, 1e10));
    EXPECT_EQ(vertexPosition(*v), v->position());
    const bool withNormal = kind == opcodes::normalVertex || kind == opcodes::normalTextureVertex;
    const bool withUV = kind == opcodes::textureVertex || kind == opcodes::normalTextureVertex;
    EXPECT_EQ(v->normal(), withNormal ? std::optional(osg::Vec3f(0, 1, 0)) : std::nullopt);
    EXPECT_EQ(v->uv(), withUV ? std::optional(osg::Vec2f(0.5f, 0.25f)) : std::nullopt);
    EXPECT_EQ(v->packedColor(), (PackedColor{255, 255, 255, 255}));
  }
  const osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
  EXPECT_EQ(vertexPosition(*group), osg::Vec3d());
}

TEST_F(Vertices, takeThePackedColorOfTheirIndexFromThePalette)
{
  for (const int kind : vertexKinds) {
    const osg::ref_ptr<VertexBaseRecord> v = vertex(kind);
    v->setPackedColor({1, 2, 3, 4});
    v->setColorIndex(3 * 128 + 127);
    EXPECT_EQ(v->colorIndex(), 3u * 128 + 127);
    EXPECT_EQ(v->packedColor(), (PackedColor{.a = 255, .b = 127, .g = 64, .r = 254}));
    EXPECT_EQ(v->flags(), 0);
    EXPECT_TRUE(v->hasColor());
    EXPECT_FALSE(v->hasPackedColor());
  }
}

TEST_F(Vertices, haveNoColorByAnIndexBeyondThePalette)
{
  for (const std::uint32_t index : {0x20000u, 0xffffffffu}) {
    const osg::ref_ptr<VertexBaseRecord> v = vertex();
    v->setColorIndex(3 * 128);
    v->setColorIndex(index);
    EXPECT_FALSE(v->hasColor());
    EXPECT_EQ(v->colorIndex(), 0xffffffffu);
    EXPECT_EQ(v->packedColor(), (PackedColor{255, 255, 255, 255}));
    EXPECT_EQ(v->get(VertexRecord::fields.colorIndex), index);
  }
  const osg::ref_ptr<VertexBaseRecord> last = vertex();
  last->setColorIndex(0x1ffff);
  EXPECT_TRUE(last->hasColor());
}

TEST_F(Vertices, takeAPackedColorOfTheirOwn)
{
  const osg::ref_ptr<VertexBaseRecord> v = vertex(opcodes::normalTextureVertex);
  v->setHardEdge(true);
  v->setPackedColor({1, 2, 3, 4});
  EXPECT_EQ(v->packedColor(), (PackedColor{1, 2, 3, 4}));
  EXPECT_EQ(v->flags(), 0x9000);
  EXPECT_TRUE(v->hasColor());
  EXPECT_TRUE(v->hasPackedColor());
  v->setHardEdge(false);
  EXPECT_FALSE(v->hardEdge());
  EXPECT_EQ(v->flags(), 0x1000);
}

TEST_F(Vertices, withoutAPaletteKeepTheirPackedColor)
{
  const osg::ref_ptr<FltFile> empty = new FltFile;
  const osg::ref_ptr<VertexRecord> v = empty->create<VertexRecord>();
  v->setColorIndex(5);
  EXPECT_EQ(v->colorIndex(), 5u);
  EXPECT_EQ(v->packedColor(), (PackedColor{255, 255, 255, 255}));
}

TEST_F(Vertices, areEqualWithinATolerance)
{
  const osg::ref_ptr<VertexBaseRecord> a = vertex(), b = vertex();
  a->setPosition({1, 2, 3});
  b->setPosition({1.00009, 1.99991, 3});
  EXPECT_TRUE(a->equals(*b));
  b->setPosition({1.00011, 2, 3});
  EXPECT_FALSE(a->equals(*b));
}

TEST_F(Vertices, areEqualOnlyWithEqualColorsAndFlags)
{
  const auto differ = [this](const auto& change, int kind = opcodes::vertex) {
    const osg::ref_ptr<VertexBaseRecord> a = vertex(kind), b = vertex(kind);
    EXPECT_TRUE(a->equals(*b));
    change(*b);
    return !a->equals(*b);
  };
  EXPECT_TRUE(differ([](auto& v) { v.set(v.common.colorNameIndex, std::uint16_t{1}); }));
  EXPECT_TRUE(differ([](auto& v) { v.setHardEdge(true); }));
  EXPECT_TRUE(differ([](auto& v) { v.setPackedColor({1, 2, 3, 4}); }));
  EXPECT_TRUE(differ([](auto& v) { v.resize(44); }));
  // Without a color the index means nothing, and normals and texture coordinates aren't looked at.
  EXPECT_FALSE(differ([](auto& v) { v.set(VertexRecord::fields.colorIndex, 7u); }));
  EXPECT_FALSE(differ([](auto& v) { v.setNormal({1, 0, 0}); }, opcodes::normalVertex));
  EXPECT_FALSE(differ([](auto& v) { v.setUV({1, 0}); }, opcodes::textureVertex));
  const osg::ref_ptr<VertexBaseRecord> plain = vertex(), other = vertex(opcodes::normalVertex);
  EXPECT_FALSE(plain->equals(*other));
  const osg::ref_ptr<VertexBaseRecord> a = vertex(), b = vertex();
  a->setColorIndex(3 * 128);
  b->setColorIndex(3 * 128);
  EXPECT_TRUE(a->equals(*b));
  b->set(VertexRecord::fields.colorIndex, 4u);
  EXPECT_FALSE(a->equals(*b));
}

// ---- lists
// -----------------------------------------------------------------------------------------------------------

class VertexLists : public Vertices {
protected:
  VertexLists()
  {
    face->addChild(list, /*append=*/true);
    for (int i = 0; i < 4; ++i) {
      auto* v = vertex(opcodes::textureVertex);
      v->setPosition({static_cast<double>(i), 0, 0});
      v->setUV({static_cast<float>(i), 1});
      list->addVertex(v);
    }
  }
  std::vector<double> xs() const
  {
    std::vector<double> values;
    for (const auto& position : face->positions())
      values.push_back(position.x());
    return values;
  }
  osg::ref_ptr<FaceRecord> face = file->create<FaceRecord>();
  osg::ref_ptr<VertexListRecord> list = file->create<VertexListRecord>();
};

TEST_F(VertexLists, giveTheirVerticesByPosition)
{
  EXPECT_EQ(face->vertexList(), list);
  EXPECT_EQ(face->vertexCount(), 4);
  EXPECT_EQ(face->vertexAt(3)->position().x(), 3);
  EXPECT_EQ(face->vertexAt(4), nullptr);
  EXPECT_EQ(face->vertexAt(-1), nullptr);
  EXPECT_EQ(face->vertexIndexOf(*face->vertexAt(2)), 2u);
  const osg::ref_ptr<VertexBaseRecord> stranger = vertex();
  EXPECT_EQ(face->vertexIndexOf(*stranger), 0xffffffffu);
}

TEST_F(VertexLists, areMissingFromANewFace)
{
  const osg::ref_ptr<FaceRecord> empty = file->create<FaceRecord>();
  EXPECT_EQ(empty->vertexList(), nullptr);
  EXPECT_EQ(empty->vertexCount(), 0);
  EXPECT_EQ(empty->vertexAt(0), nullptr);
  EXPECT_EQ(empty->vertexIndexOf(*list->vertexAt(0)), 0xffffffffu);
  EXPECT_TRUE(empty->positions().empty());
}

TEST_F(VertexLists, takeVerticesOnly)
{
  const osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
  EXPECT_FALSE(list->addVertex(group));
  EXPECT_FALSE(list->addVertex(nullptr));
  const osg::ref_ptr<VertexBaseRecord> v = vertex();
  EXPECT_FALSE(list->insertVertex(5, v));
  EXPECT_FALSE(list->insertVertex(-1, v));
  const osg::ref_ptr<Record> loose = makeRecord(defaultBuffer(opcodes::vertexList));
  EXPECT_FALSE(static_cast<VertexListRecord&>(*loose).addVertex(v));
  EXPECT_EQ(list->vertexCount(), 4);
}

TEST_F(VertexLists, changeInOrder)
{
  auto* v = vertex();
  v->setPosition({10, 0, 0});
  EXPECT_TRUE(list->insertVertex(1, v));
  EXPECT_THAT(xs(), ElementsAre(0, 10, 1, 2, 3));
  EXPECT_TRUE(list->removeVertex(list->vertexAt(0)));
  EXPECT_THAT(xs(), ElementsAre(10, 1, 2, 3));
  auto* w = vertex();
  w->setPosition({20, 0, 0});
  EXPECT_TRUE(list->replaceVertex(list->vertexAt(3), w));
  EXPECT_THAT(xs(), ElementsAre(10, 1, 2, 20));
  list->reverse();
  EXPECT_THAT(xs(), ElementsAre(20, 2, 1, 10));
  const osg::ref_ptr<VertexBaseRecord> stranger = vertex();
  EXPECT_FALSE(list->removeVertex(stranger));
  EXPECT_FALSE(list->removeVertex(nullptr));
  const osg::ref_ptr<VertexBaseRecord> another = vertex();
  EXPECT_FALSE(list->replaceVertex(stranger, another));
  const osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
  EXPECT_FALSE(list->replaceVertex(list->vertexAt(0), group));
}

TEST_F(VertexLists, areWalkedUntilSomebodyStops)
{
  int met = 0;
  list->forEachVertex([&](VertexBaseRecord&) { return ++met < 3; });
  EXPECT_EQ(met, 3);
}

TEST_F(VertexLists, averageTheirTextureCoordinates)
{
  EXPECT_EQ(list->averageUV(), osg::Vec2f(1.5f, 1));
  list->addVertex(vertex()); // has none
  EXPECT_EQ(list->averageUV(), osg::Vec2f(6 / 5.0f, 4 / 5.0f));
  const osg::ref_ptr<VertexListRecord> empty = file->create<VertexListRecord>();
  EXPECT_EQ(empty->averageUV(), osg::Vec2f());
}

TEST_F(VertexLists, compareTheirVerticesExactly)
{
  const osg::ref_ptr<VertexListRecord> copy = static_cast<VertexListRecord*>(list->clone(nullptr));
  EXPECT_TRUE(list->sameVertices(*copy));
  copy->vertexAt(1)->setUV({1, 1.00001f});
  EXPECT_FALSE(list->sameVertices(*copy));
  copy->vertexAt(1)->setUV({1, 1});
  EXPECT_TRUE(list->sameVertices(*copy));
  copy->removeVertex(copy->vertexAt(3));
  EXPECT_FALSE(list->sameVertices(*copy));
  EXPECT_FALSE(copy->sameVertices(*list));
}

TEST_F(VertexLists, areCopiedWithVerticesOfTheirOwn)
{
  const osg::ref_ptr<FltFile> target = new FltFile;
  const osg::ref_ptr<VertexListRecord> copy = static_cast<VertexListRecord*>(list->clone(target));
  ASSERT_EQ(copy->vertexCount(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_NE(copy->vertexAt(i), list->vertexAt(i));
    EXPECT_EQ(copy->vertexAt(i)->file(), target);
  }
}

// ---- layers of texture coordinates
// -----------------------------------------------------------------------------------

class UVLists : public VertexLists {
protected:
  UVLists()
  {
    auto buffer = allocateBuffer(opcodes::uvList, 8 + 4 * 16);
    std::memset(buffer.get() + 4, 0, 4 + 4 * 16);
    layers = static_cast<UVListRecord*>(file->createRecord(std::move(buffer)));
    layers->set(UVListRecord::fields.mask, 0x80000000u | 0x10000000u); // layers 1 and 4
    list->addChild(layers, /*append=*/true);
    for (int i = 0; i < 4; ++i) {
      layers->setUV(i, 1, {static_cast<float>(i), 0});
      layers->setUV(i, 4, {0, static_cast<float>(i) / 4});
    }
  }
  std::vector<float> us() const
  {
    std::vector<float> values;
    for (int i = 0; i < list->vertexCount(); ++i)
      values.push_back(layers->uv(i, 1).x());
    return values;
  }
  osg::ref_ptr<UVListRecord> layers;
};

TEST_F(UVLists, holdPairsVertexByVertexAndLayerByLayer)
{
  EXPECT_EQ(layerCount(0x90000000u), 2);
  EXPECT_TRUE(layers->hasLayer(4));
  EXPECT_FALSE(layers->hasLayer(2));
  EXPECT_EQ(layers->uv(3, 1), osg::Vec2f(3, 0));
  EXPECT_EQ(layers->uv(3, 4), osg::Vec2f(0, 0.75f));
  for (const auto& [vertex, layer] : {std::pair{4, 1}, {-1, 1}, {0, 0}, {0, 2}, {0, 8}, {0, -1}}) {
    EXPECT_EQ(layers->uv(vertex, layer), osg::Vec2f());
    layers->setUV(vertex, layer, {7, 7});
  }
  EXPECT_THAT(us(), ElementsAre(0, 1, 2, 3));
}

TEST_F(UVLists, followTheVerticesOfTheirPolygon)
{
  list->insertVertex(1, vertex());
  EXPECT_THAT(us(), ElementsAre(0, 0, 1, 2, 3));
  list->removeVertex(list->vertexAt(0));
  EXPECT_THAT(us(), ElementsAre(0, 1, 2, 3));
  list->addVertex(vertex());
  EXPECT_THAT(us(), ElementsAre(0, 1, 2, 3, 0));
  list->reverse();
  EXPECT_THAT(us(), ElementsAre(0, 3, 2, 1, 0));
  list->replaceVertex(list->vertexAt(1), vertex());
  EXPECT_THAT(us(), ElementsAre(0, 3, 2, 1, 0));
  EXPECT_EQ(layers->length(), 8u + 5 * 16);
}

TEST_F(UVLists, thatNeverFittedAreLeftAlone)
{
  layers->resize(8 + 2 * 16);
  list->addVertex(vertex());
  EXPECT_EQ(layers->length(), 8u + 2 * 16);
  list->removeVertex(list->vertexAt(3));
  EXPECT_EQ(layers->length(), 8u + 2 * 16);
}

TEST_F(UVLists, shrinkToNothingWithTheirPolygon)
{
  while (list->vertexCount())
    list->removeVertex(list->vertexAt(0));
  EXPECT_EQ(layers->length(), 8u);
  EXPECT_EQ(layers->uv(0, 1), osg::Vec2f());
}

TEST(MultiTextures, holdAnEntryForEachLayer)
{
  Workbench bench;
  const auto layers =
      flt::record(52, flt::Bytes().u32(0x42000000).i16(7).i16(1).i16(9).i16(-2).i16(17).i16(100).i16(19).i16(0));
  const auto file = bench.load(flt::file(flt::object("o1") + flt::level(flt::face("p1") + layers)));
  const auto* record = first<FaceRecord>(*file)->findChild<MultiTextureRecord>();
  ASSERT_TRUE(record);
  EXPECT_FALSE(record->hasLayer(1));
  ASSERT_TRUE(record->hasLayer(2));
  EXPECT_EQ(record->layer(2).texture, 7);
  EXPECT_EQ(record->layer(2).effect, 1);
  EXPECT_EQ(record->layer(2).mapping, 9);
  EXPECT_EQ(record->layer(2).data, 0xfffe);
  EXPECT_EQ(record->layer(7).texture, 17);
  for (const int layer : {0, 1, 3, 8, -1})
    EXPECT_EQ(record->layer(layer).texture, 0) << layer;
  EXPECT_EQ(flt::recordsOf(bench.save(*file), 52).front().content, layers.substr(4));
}

} // namespace
} // namespace fltapi
