// Light points, in the record itself and by palettes.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using Appearance = LightPointAppearancePaletteRecord;
using Animation = LightPointAnimationPaletteRecord;

class LightPoints : public testing::Test {
protected:
  LightPoints()
  {
    file->initNew();
    appearance->set(Appearance::fields.index, 7);
    animation->set(Animation::fields.index, 2);
    file->header()->addChild(appearance, /*append=*/true);
    file->header()->addChild(animation, /*append=*/true);
  }
  osg::ref_ptr<IndexedLightPointRecord> indexed(int appearanceIndex, int animationIndex)
  {
    osg::ref_ptr<IndexedLightPointRecord> point = file->create<IndexedLightPointRecord>();
    point->set(IndexedLightPointRecord::fields.appearance, appearanceIndex);
    point->set(IndexedLightPointRecord::fields.animation, animationIndex);
    return point;
  }
  osg::ref_ptr<LightPointRecord> converted(int appearanceIndex = 7, int animationIndex = 2)
  {
    return indexed(appearanceIndex, animationIndex)->toLightPoint(LightPointPalettes(*file));
  }

  Workbench bench;
  osg::ref_ptr<FltFile> file = new FltFile;
  Appearance* appearance = file->create<Appearance>();
  Animation* animation = file->create<Animation>();
};

TEST_F(LightPoints, takeEveryFieldOfTheirAppearance)
{
  // Offsets in a light point and in the palette entry.
  auto bytes = flt::sampleRecord(128);
  flt::patch(bytes, 264, flt::Bytes().i32(7));
  for (std::size_t i = 4; i < 412; ++i)
    appearance->data()[i] = static_cast<std::byte>(bytes[i]);
  appearance->set(Appearance::fields.index, 7);
  const auto point = converted(7, -1);
  for (std::size_t offset = 12; offset < 120; offset += 4) {
    const auto expected = offset == 88 ? 0 : loadAt<std::uint32_t>(appearance->data() + offset + 256);
    EXPECT_EQ(loadAt<std::uint32_t>(point->data() + offset), expected) << offset;
  }
  EXPECT_EQ(loadAt<std::uint32_t>(point->data() + 132), loadAt<std::uint32_t>(appearance->data() + 376));
  EXPECT_EQ(point->get(LightPointRecord::fields.animationPeriod), 5.0f);
}

TEST_F(LightPoints, takeTheAnimationOfTheirs)
{
  animation->set(Animation::fields.period, 1.5f);
  animation->set(Animation::fields.phaseDelay, 2.5f);
  animation->set(Animation::fields.enabledPeriod, 3.5f);
  animation->set(Animation::fields.rotationAxis, {1, 2, 3});
  const auto point = converted();
  EXPECT_EQ(point->get(LightPointRecord::fields.animationPeriod), 1.5f);
  EXPECT_EQ(point->get(LightPointRecord::fields.animationPhaseDelay), 2.5f);
  EXPECT_EQ(point->get(LightPointRecord::fields.animationEnabledPeriod), 3.5f);
  EXPECT_EQ(point->get(LightPointRecord::fields.rotationAxis), osg::Vec3f(1, 2, 3));
}

TEST_F(LightPoints, translateTheFlagsByTheirMeaning)
{
  const std::pair<std::uint32_t, std::uint32_t> ofAppearance[] = {
      {0x40000000, 0x40000000}, {0x20000000, 0x10000000}, {0x10000000, 0x08000000}, {0x08000000, 0x04000000},
      {0x04000000, 0x02000000}, {0x02000000, 0x01000000}, {0x01000000, 0x00800000}, {0x00400000, 0x00040000},
      {0x00200000, 0x00020000}, {0x00100000, 0x00010000}, {0x00080000, 0x00008000}, {0x00040000, 0x00004000},
      {0x00800000, 0},          {0x80000000, 0},          {0x00020000, 0},          {0, 0},
      {0xffffffff, 0x5f87c000}};
  animation->set(Animation::fields.flags, 0u);
  for (const auto& [inPalette, inPoint] : ofAppearance) {
    appearance->set(Appearance::fields.flags, inPalette);
    EXPECT_EQ(converted()->get(LightPointRecord::fields.flags), inPoint) << std::hex << inPalette;
  }
  appearance->set(Appearance::fields.flags, 0u);
  for (const auto& [inPalette, inPoint] : {std::pair{0x80000000u, 0x00400000u},
                                           {0x40000000u, 0x00200000u},
                                           {0x20000000u, 0x00100000u},
                                           {0x10000000u, 0u}}) {
    animation->set(Animation::fields.flags, inPalette);
    EXPECT_EQ(converted()->get(LightPointRecord::fields.flags), inPoint) << std::hex << inPalette;
  }
}

TEST_F(LightPoints, withoutAnEntryLookLikeNewOnes)
{
  const auto point = converted(99, 99);
  const osg::ref_ptr<LightPointRecord> fresh = file->create<LightPointRecord>();
  EXPECT_TRUE(point->equals(*fresh));
}

TEST_F(LightPoints, useTheFirstOfSeveralEntriesWithOneIndex)
{
  auto* second = file->create<Appearance>();
  second->set(Appearance::fields.index, 7);
  second->set(Appearance::fields.appearance.intensity, 9.0f);
  file->header()->addChild(second, /*append=*/true);
  EXPECT_EQ(converted()->get(LightPointRecord::fields.appearance.intensity), 1.0f);
}

TEST_F(LightPoints, keepNameDrawOrderAndChildrenInAnOldVersion)
{
  const auto loaded = bench.load(flt::generatedFile("light-points"));
  const auto before = bench.save(*loaded);
  const auto saved = bench.save(*loaded, 1570);
  const auto points = flt::recordsOf(saved, 111);
  ASSERT_EQ(points.size(), 1u); // the other one went with its system
  EXPECT_EQ(points.front().bytes(4, 8), std::string("lp1\0\0\0\0\0", 8));
  EXPECT_EQ(flt::bigEndian(points.front().content, 136 - 4, 4), 5u);
  const auto again = bench.load(saved);
  auto* point = first<LightPointRecord>(*again);
  EXPECT_EQ(point->getComment(), "a light");
  EXPECT_EQ(static_cast<const VertexListRecord*>(point->firstPrimaryChild())->vertexCount(), 2);
  EXPECT_TRUE(sameBytes(bench.save(*loaded), before)); // nothing was replaced in memory
}

TEST_F(LightPoints, useAppearance0AndNoAnimationWhenNew)
{
  const osg::ref_ptr<IndexedLightPointRecord> point = file->create<IndexedLightPointRecord>();
  EXPECT_EQ(point->get(IndexedLightPointRecord::fields.appearance), 0);
  EXPECT_EQ(point->get(IndexedLightPointRecord::fields.animation), -1);
}

TEST_F(LightPoints, holdSubfacesLikeFaces)
{
  EXPECT_TRUE(indexed(0, 0)->holdsSubfaces());
  EXPECT_TRUE(converted()->holdsSubfaces());
  const osg::ref_ptr<MeshRecord> mesh = file->create<MeshRecord>();
  EXPECT_FALSE(mesh->holdsSubfaces());
}

} // namespace
} // namespace fltapi
