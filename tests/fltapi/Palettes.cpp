// Palette records whose layout depends on what they hold.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using Mapping = TextureMappingPaletteRecord;

class Palettes : public testing::Test {
protected:
  osg::ref_ptr<FltFile> with(const std::string& records, int version = 1620)
  {
    return bench.load(flt::header(version) + flt::padded(32, 4228) + records + flt::VertexPool().records() +
                      flt::level(flt::group("g1")));
  }
  Workbench bench;
};

// ---- colors
// ----------------------------------------------------------------------------------------------------------

TEST_F(Palettes, ofColorsAreBlackWhenNew)
{
  const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcodes::colorPalette));
  const auto& palette = static_cast<const ColorPaletteRecord&>(*record);
  EXPECT_EQ(palette.length(), 4228u);
  EXPECT_EQ(palette.entry(0), (PackedColor{0, 0, 0, 0}));
  EXPECT_EQ(palette.entry(1023), (PackedColor{0, 0, 0, 0}));
  EXPECT_EQ(palette.entry(1024), (PackedColor{255, 0, 0, 0}));
  EXPECT_EQ(palette.entry(-1), (PackedColor{255, 0, 0, 0}));
}

TEST_F(Palettes, ofColorsHoldFourBytesForEachEntry)
{
  const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcodes::colorPalette));
  auto& palette = static_cast<ColorPaletteRecord&>(*record);
  palette.setEntry(1, {.a = 255, .b = 10, .g = 20, .r = 30});
  palette.setEntry(1024, {1, 2, 3, 4});
  palette.setEntry(-1, {1, 2, 3, 4});
  EXPECT_EQ(loadAt<std::uint32_t>(palette.data() + 136), 0x1e140affu);
  EXPECT_EQ(palette.entry(1), (PackedColor{.a = 255, .b = 10, .g = 20, .r = 30}));
  EXPECT_EQ(palette.length(), 4228u);
}

TEST_F(Palettes, ofColorsScaleEntriesByTheIntensity)
{
  const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcodes::colorPalette));
  auto& palette = static_cast<ColorPaletteRecord&>(*record);
  palette.setEntry(2, {.a = 200, .b = 255, .g = 127, .r = 1});
  EXPECT_EQ(palette.colorAt(2 * 128 + 127), (PackedColor{.a = 200, .b = 255, .g = 127, .r = 1}));
  EXPECT_EQ(palette.colorAt(2 * 128), (PackedColor{.a = 200, .b = 0, .g = 0, .r = 0}));
  EXPECT_EQ(palette.colorAt(2 * 128 + 64), (PackedColor{.a = 200, .b = 129, .g = 64, .r = 1}));
  EXPECT_EQ(palette.colorAt(0xffffffff), (PackedColor{255, 0, 0, 0}));
}

TEST_F(Palettes, ofColorsKeepTheirNames)
{
  const auto bytes = flt::generatedFile("names-in-palettes");
  const auto file = bench.load(bytes);
  const auto* palette = file->colorPalette()->data();
  EXPECT_EQ(loadAt<std::int32_t>(palette + 4228), 2);
  EXPECT_EQ(loadAt<std::uint16_t>(palette + 4232), 14); // length of the first entry
  EXPECT_EQ(loadAt<std::uint16_t>(palette + 4236), 17); // its color
  EXPECT_EQ(loadAt<std::uint16_t>(palette + 4246 + 4), 900);
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(Palettes, ofNamesAreReadWhateverTheirLengthsCount)
{
  const auto file = bench.load(flt::generatedFile("names-in-palettes"));
  const auto tables = file->header()->findChildren(opcodes::nameTable);
  ASSERT_EQ(tables.size(), 2u);
  for (const auto* table : tables) {
    EXPECT_EQ(table->get(NameTableRecord::fields.count), 2);
    EXPECT_EQ(table->get(NameTableRecord::fields.nextIndex), 9);
    EXPECT_EQ(loadAt<std::uint16_t>(table->data() + 14), 3);
    EXPECT_EQ(loadAt<std::uint16_t>(table->data() + 21 + 4), 4);
  }
  EXPECT_EQ(loadAt<std::uint32_t>(tables[0]->data() + 10), 11u);
  EXPECT_EQ(loadAt<std::uint32_t>(tables[1]->data() + 10), 5u);
}

// ---- textures
// --------------------------------------------------------------------------------------------------------

TEST_F(Palettes, ofTexturesAreWidenedFromBeforeVersion14)
{
  const auto old = flt::record(64, flt::Bytes().text("old.rgb", 80).i32(5).i32(100).i32(-200));
  ASSERT_EQ(old.size(), 96u);
  const auto file = with(old, 13);
  const auto textures = file->palette(opcodes::texturePalette);
  ASSERT_EQ(textures.size(), 1u);
  const auto& fields = TexturePaletteRecord::fields;
  EXPECT_EQ(textures[0]->getName(), "old.rgb");
  EXPECT_EQ(textures[0]->get(fields.index), 5);
  EXPECT_EQ(textures[0]->get(fields.locationX), 100);
  EXPECT_EQ(textures[0]->get(fields.locationY), -200);
  EXPECT_EQ(flt::recordsOf(bench.save(*file), 64).front().length, 216u);
}

// ---- texture mappings
// ------------------------------------------------------------------------------------------------

TEST_F(Palettes, ofTextureMappingsAreAsLongAsTypeWarpAndVersionSay)
{
  struct Lengths {
    int type;
    std::size_t in1570, in1580, in1600;
  };
  for (const auto& [type, in1570, in1580, in1600] : {Lengths{0, 168, 168, 168},
                                                     {1, 392, 392, 400},
                                                     {2, 576, 584, 584},
                                                     {3, 168, 168, 168},
                                                     {4, 208, 208, 208},
                                                     {5, 360, 360, 360},
                                                     {6, 168, 168, 168},
                                                     {99, 168, 168, 168}}) {
    for (const bool warped : {false, true}) {
      const std::size_t warp = warped ? 400 : 0;
      EXPECT_EQ(Mapping::lengthOf(type, warped, 1570), in1570 + warp);
      EXPECT_EQ(Mapping::lengthOf(type, warped, 1580), in1580 + warp);
      EXPECT_EQ(Mapping::lengthOf(type, warped, 1599), in1580 + warp);
      EXPECT_EQ(Mapping::lengthOf(type, warped, 1600), in1600 + warp);
      EXPECT_EQ(Mapping::lengthOf(type, warped, 1620), in1600 + warp);
    }
  }
  EXPECT_EQ(Mapping::lengthOf(1, true, 1600), 800u);
}

TEST_F(Palettes, ofTextureMappingsHoldTheirParametersInHostOrder)
{
  flt::Bytes three;
  three.i32(0).i32(4).text("brick", 20).i32(1).i32(0).zeros(128);
  three.i32(3).i32(2).vector(1, 2, 3).vector(4, 5, 6).i32(1).i32(0).i32(1).i32(0);
  for (int i = 0; i < 6; ++i)
    three.vector(i, 0.5, -i);
  three.i32(1).i32(2).f32(1.5f).f32(2.5f);
  const auto file = with(flt::record(112, three));
  const auto* mapping = file->palette(opcodes::textureMappingPalette).front();
  EXPECT_EQ(mapping->getName(), "brick");
  EXPECT_EQ(mapping->get(Mapping::fields.index), 4);
  EXPECT_EQ(loadAt<std::int32_t>(mapping->data() + 168), 3);
  EXPECT_EQ(loadAt<double>(mapping->data() + 176), 1.0);
  EXPECT_EQ(loadAt<double>(mapping->data() + 240 + 5 * 24 + 16), -5.0);
  EXPECT_EQ(loadAt<float>(mapping->data() + 392), 1.5f);
  EXPECT_EQ(loadAt<float>(mapping->data() + 396), 2.5f);
}

TEST_F(Palettes, ofTextureMappingsKeepTheWarpBehindABlockThatGrew)
{
  for (const auto& [type, before, now] : {std::tuple{1, 392, 400}, {2, 576, 584}}) {
    auto mapping = flt::padded(112, static_cast<std::size_t>(before) + 400,
                               flt::Bytes().i32(0).i32(4).text("warped", 20).i32(type).i32(1));
    const auto warp = static_cast<std::size_t>(before);
    flt::patch(mapping, warp, flt::Bytes().i32(7).i32(8).zeros(8).f64(1.25));
    flt::patch(mapping, warp + 16 + 31 * 8, flt::Bytes().f64(-3.5));
    flt::patch(mapping, warp + 396, "tail");
    const auto file = with(mapping, 1570);
    const auto* record = file->palette(opcodes::textureMappingPalette).front();
    ASSERT_EQ(record->length(), static_cast<std::size_t>(now) + 400);
    const auto* start = record->data() + now;
    EXPECT_EQ(loadAt<std::int32_t>(start), 7);
    EXPECT_EQ(loadAt<double>(start + 16), 1.25);
    EXPECT_EQ(loadAt<double>(start + 16 + 31 * 8), -3.5);
    EXPECT_EQ(loadAt<std::uint64_t>(record->data() + before), 0u); // the new repetitions
    EXPECT_EQ(flt::recordsOf(bench.save(*file, 1570), 112).front().content, mapping.substr(4));
    EXPECT_EQ(flt::recordsOf(bench.save(*file), 112).front().length, static_cast<std::size_t>(now) + 400);
  }
}

TEST_F(Palettes, ofTextureMappingsAreBroughtToTheirLength)
{
  // One that is too short, one that is too long, and one with the shorter warp of other programs.
  const auto head = flt::Bytes().i32(0).i32(4).text("m", 20);
  const auto file = with(flt::padded(112, 168, flt::Bytes(head).i32(4).i32(0)) +
                         flt::padded(112, 500, flt::Bytes(head).i32(0).i32(0)) +
                         flt::padded(112, 672, flt::Bytes(head).i32(1).i32(1)));
  std::vector<std::size_t> lengths;
  for (const auto* mapping : file->palette(opcodes::textureMappingPalette))
    lengths.push_back(mapping->length());
  EXPECT_THAT(lengths, ElementsAre(208, 168, 800));
}

TEST_F(Palettes, ofTextureMappingsAreEqualButForTheirNames)
{
  const auto file = with(flt::sampleRecord(112) + flt::sampleRecord(112));
  const auto mappings = file->palette(opcodes::textureMappingPalette);
  EXPECT_TRUE(mappings[0]->equals(*mappings[1]));
  mappings[1]->setName("another");
  EXPECT_TRUE(mappings[0]->equals(*mappings[1]));
  mappings[1]->set(Mapping::fields.index, 77);
  EXPECT_FALSE(mappings[0]->equals(*mappings[1]));
  const osg::ref_ptr<Record> copy = mappings[0]->clone(nullptr);
  EXPECT_TRUE(copy->equals(*mappings[0]));
  EXPECT_FALSE(mappings[0]->equals(*file->colorPalette()));
}

// ---- shaders, animations, views
// --------------------------------------------------------------------------------------

TEST_F(Palettes, ofShadersAreReadByTheirType)
{
  const auto file = bench.load(flt::generatedFile("shaders"));
  const auto shaders = file->palette(opcodes::shaderPalette);
  ASSERT_EQ(shaders.size(), 3u);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(shaders[0]->data() + 1036)), "a.vert");
  EXPECT_EQ(loadAt<std::int32_t>(shaders[0]->data() + 3084), 6146);
  EXPECT_EQ(loadAt<std::int32_t>(shaders[0]->data() + 3088), 7000);
  EXPECT_EQ(loadAt<std::int32_t>(shaders[1]->data() + 1036), 2);
  EXPECT_EQ(loadAt<std::int32_t>(shaders[1]->data() + 1040), 1);
  EXPECT_EQ(shaders[1]->getName(), "glsl");
}

TEST_F(Palettes, ofAnimationsHoldTheirSequence)
{
  auto bytes = flt::padded(129, 1340 + 3 * 12);
  flt::patch(bytes, 1336, flt::Bytes().i32(3).i32(1).f32(0.5f).u32(0x11223344).i32(2).f32(1.5f).u32(7));
  const auto file = with(bytes);
  const auto* record = file->palette(opcodes::lightPointAnimationPalette).front();
  EXPECT_EQ(record->get(LightPointAnimationPaletteRecord::fields.sequenceLength), 3);
  EXPECT_EQ(loadAt<std::uint32_t>(record->data() + 1340), 1u);
  EXPECT_EQ(loadAt<float>(record->data() + 1344), 0.5f);
  EXPECT_EQ(loadAt<std::uint32_t>(record->data() + 1348), 0x11223344u);
  EXPECT_EQ(loadAt<float>(record->data() + 1356), 1.5f);
  EXPECT_EQ(flt::recordsOf(bench.save(*file), 129).front().content, bytes.substr(4));
}

TEST_F(Palettes, ofViewsAndConstructionPlanesAreSwappedFieldByField)
{
  const auto file = bench.load(flt::generatedFile("trackplanes"));
  const auto* record = first<EyepointTrackplanePaletteRecord>(*file)->data();
  for (int k = 0; k < 10; ++k) {
    const auto* eyepoint = record + 8 + 272 * k;
    EXPECT_EQ(loadAt<double>(eyepoint), k);
    EXPECT_EQ(loadAt<float>(eyepoint + 24), 3.0f);
    EXPECT_EQ(loadAt<std::int32_t>(eyepoint + 212), k);
    const auto* plane = record + 2728 + 128 * k;
    EXPECT_EQ(loadAt<std::int32_t>(plane), k);
    EXPECT_EQ(loadAt<double>(plane + 8), k);
    EXPECT_EQ(loadAt<std::uint32_t>(plane + 80), 0x00020001u); // four single bytes
    EXPECT_EQ(loadAt<float>(plane + 84), 30.0f);
    EXPECT_EQ(loadAt<double>(plane + 96), 20.0);
    EXPECT_EQ(loadAt<std::uint32_t>(plane + 104), 0x00030201u);
    EXPECT_EQ(loadAt<double>(plane + 112), 128.0);
    EXPECT_EQ(loadAt<std::int32_t>(plane + 120), 15);
  }
}

TEST_F(Palettes, areListedByTheirKind)
{
  const auto file = with(flt::sampleRecord(113) + flt::sampleRecord(64) + flt::sampleRecord(113));
  EXPECT_EQ(file->palette(opcodes::materialPalette).size(), 2u);
  EXPECT_EQ(file->palette(opcodes::texturePalette).size(), 1u);
  EXPECT_EQ(file->palette(opcodes::shaderPalette).size(), 0u);
  file->header()->addChild(file->create<MaterialPaletteRecord>(), /*append=*/true);
  EXPECT_EQ(file->palette(opcodes::materialPalette).size(), 3u);
  file->header()->removeChild(file->palette(opcodes::materialPalette).front());
  EXPECT_EQ(file->palette(opcodes::materialPalette).size(), 2u);
}

// ---- records with points or texts behind their fields
// ----------------------------------------------------------------

TEST_F(Palettes, andOtherRecordsSwapTheListsBehindTheirFields)
{
  const auto hull = flt::record(
      107, flt::Bytes().i32(2).vector(1, 2, 3).vector(4, 5, 6).vector(7, 8, 9).vector(1, 0, 0).vector(0, 1, 0).vector(
               0, 0, 1));
  const auto curve =
      flt::record(126, flt::Bytes().text("cv1", 8).i32(0).i32(6).i32(2).zeros(8).vector(1, 2, 3).vector(4, 5, 6));
  const auto text = flt::record(132, flt::Bytes().u32(3).text("third mask", 11));
  const auto bytes = flt::file(flt::group("g1") + hull + text + flt::level(curve));
  const auto file = bench.load(bytes);
  const auto* group = first<GroupRecord>(*file);
  const auto* hullData = group->findChild<BoundingConvexHullRecord>()->data();
  EXPECT_EQ(loadAt<double>(hullData + 8), 1.0);
  EXPECT_EQ(loadAt<double>(hullData + 8 + 17 * 8), 1.0);
  EXPECT_EQ(loadAt<double>(first<CurveRecord>(*file)->data() + 32 + 5 * 8), 6.0);
  auto* string = group->findChild<IndexedStringRecord>();
  EXPECT_EQ(string->get(IndexedStringRecord::fields.index), 3u);
  EXPECT_EQ(string->text(), "third mask");
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
  EXPECT_TRUE(string->setText("a longer name of a mask"));
  EXPECT_EQ(string->text(), "a longer name of a mask");
  EXPECT_EQ(string->get(IndexedStringRecord::fields.index), 3u);
}

} // namespace
} // namespace fltapi
