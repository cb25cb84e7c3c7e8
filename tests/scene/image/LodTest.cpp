#include "tests/scene/image/SyncFixture.h"

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

class Lods : public SyncFixture {
protected:
  LodRecord& lod(PrimNodeRecord& parent, double in, double out)
  {
    auto& record = build.add<LodRecord>(parent);
    record.set(LodRecord::fields.switchIn, in);
    record.set(LodRecord::fields.switchOut, out);
    return record;
  }
  bool shows(const LodRecord& record) { return sync().nodeOf(record)->getNodeMask() != 0; }
};

} // namespace

TEST_F(Lods, AModelWithoutThemHasNoStates)
{
  EXPECT_EQ(sync().stateCount(), 0);
  EXPECT_EQ(sync().lodState(), 0);
  sync().setLodState(5);
  EXPECT_EQ(sync().lodState(), 0);
}

TEST_F(Lods, StatesAreTheBandsBetweenAllDistancesFromFarToNear)
{
  auto& nearest = lod(group, 100, 0);
  auto& middle = lod(group, 500, 100);
  auto& far = lod(group, 1000, 500);
  auto& always = lod(group, 1000, 0);
  ASSERT_EQ(sync().stateCount(), 3);
  EXPECT_EQ(sync().lodState(), 2) << "the nearest one at first";
  const std::vector<std::vector<bool>> shown = {{false, false, true}, {false, true, false}, {true, false, false}};
  for (int state = 0; state < 3; ++state) {
    sync().setLodState(state);
    const auto& wanted = shown[static_cast<std::size_t>(state)];
    EXPECT_EQ(std::vector({shows(nearest), shows(middle), shows(far)}), wanted) << state;
    EXPECT_TRUE(shows(always));
  }
}

TEST_F(Lods, ABandThatNoLevelCoversShowsNone)
{
  auto& nearest = lod(group, 100, 0);
  auto& far = lod(group, 1000, 500);
  ASSERT_EQ(sync().stateCount(), 3);
  sync().setLodState(1);
  EXPECT_FALSE(shows(nearest));
  EXPECT_FALSE(shows(far));
}

TEST_F(Lods, NearlyEqualDistancesMakeNoBand)
{
  lod(group, 100, 0);
  lod(group, 500, 100.00001);
  EXPECT_EQ(sync().stateCount(), 2);
}

TEST_F(Lods, AllCanBeShownAtOnce)
{
  auto& nearest = lod(group, 100, 0);
  auto& far = lod(group, 1000, 100);
  EXPECT_FALSE(shows(far));
  sync().setShowsAllLods(true);
  EXPECT_TRUE(shows(nearest));
  EXPECT_TRUE(shows(far));
  sync().setShowsAllLods(false);
  EXPECT_FALSE(shows(far));
}

TEST_F(Lods, ChangedDistancesAreFollowed)
{
  auto& nearest = lod(group, 100, 0);
  sync();
  auto& far = lod(group, 1000, 100);
  sync().translate(far);
  EXPECT_EQ(sync().stateCount(), 2);
  EXPECT_EQ(sync().lodState(), 1) << "the nearest one stays";
  EXPECT_TRUE(shows(nearest));
  far.set(LodRecord::fields.switchOut, 0.0);
  sync().update(far);
  EXPECT_TRUE(shows(far));
  sync().remove(far);
  EXPECT_EQ(sync().stateCount(), 1);
  EXPECT_EQ(sync().lodState(), 0);
  EXPECT_TRUE(shows(nearest));
}

TEST_F(Lods, TheStateSurvivesATranslationOfTheWhole)
{
  lod(group, 100, 0);
  lod(group, 1000, 100);
  sync().setLodState(0);
  sync().translateAll();
  EXPECT_EQ(sync().lodState(), 0);
  sync().setLodState(1);
  sync().translateAll();
  EXPECT_EQ(sync().lodState(), 1);
}

TEST_F(Lods, DistancesThatAreNoNumbersAreLeftOut)
{
  lod(group, std::numeric_limits<double>::quiet_NaN(), 0);
  lod(group, 100, 0);
  EXPECT_EQ(sync().stateCount(), 1);
}

TEST_F(Lods, TheVisitorGathersThemFromATree)
{
  auto& outer = lod(group, 1000, 0);
  lod(outer, 200, 50);
  CreateLodStatesVisitor visitor;
  build.header().accept(visitor);
  EXPECT_EQ(visitor.states().count(), 3);
}
