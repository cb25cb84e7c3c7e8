#include "scene/image/AnimationPreview.h"
#include "scene/image/DofPreview.h"
#include "scene/image/ModUserData.h"
#include "tests/scene/image/SyncFixture.h"

#include <gmock/gmock.h>
#include <osg/MatrixTransform>

#include <string>

namespace nalt {

namespace {

using fltapi::DofRecord;
using fltapi::GroupRecord;
using testing::ElementsAre;

constexpr std::uint32_t forward = 0x40000000;
constexpr std::uint32_t swing = 0x20000000;
constexpr std::uint32_t backward = 0x02000000;

std::string bytesOf(const fltapi::Record& record)
{
  return {reinterpret_cast<const char*>(record.data()), record.length()};
}

class DofPreviewTest : public tests::SyncFixture {
protected:
  osg::Matrixd shown() { return dynamic_cast<osg::MatrixTransform&>(*sync().nodeOf(dof)).getMatrix(); }

  DofRecord& dof = build.add<DofRecord>(group);
};

class AnimationPreviewTest : public tests::SyncFixture {
protected:
  AnimationPreviewTest()
  {
    for (int i = 0; i < 3; ++i)
      frames.push_back(&build.add<fltapi::ObjectRecord>(animated));
    for (auto* frame : frames)
      build.square(*frame, 0, 0);
    animated.set(GroupRecord::fields.flags, forward);
    animated.set(GroupRecord::fields.loopDuration, 3.0F);
  }

  /// One letter for each child: what is on is "1".
  std::string shown()
  {
    std::string text;
    for (const auto* frame : frames)
      text += sync().nodeOf(*frame)->getNodeMask() ? '1' : '0';
    return text;
  }

  GroupRecord& animated = build.add<GroupRecord>(group);
  std::vector<fltapi::ObjectRecord*> frames;
};

/// The children that are on at the middle of each of the first steps.
std::vector<int> courseOf(const AnimationCourse& course, int steps, double stepLength)
{
  std::vector<int> shown;
  for (int i = 0; i < steps; ++i)
    shown.push_back(course.childAt((i + 0.5) * stepLength));
  return shown;
}

} // namespace

TEST_F(DofPreviewTest, MovesTheSceneAndNeverTheRecord)
{
  sync();
  const std::string before = bytesOf(dof);
  DofPreview preview(sync());
  DofValues values = currentDofValues(dof);
  values[0] = 5;  // along x
  values[5] = 90; // about z
  preview.move(dof, values);
  EXPECT_EQ(shown().getTrans(), osg::Vec3d(5, 0, 0));
  EXPECT_LT((osg::Vec3d(1, 0, 0) * shown() - osg::Vec3d(5, 1, 0)).length(), 1e-9);
  EXPECT_EQ(bytesOf(dof), before);
  EXPECT_EQ(preview.valuesOf(dof), values);
}

TEST_F(DofPreviewTest, PutsEverythingBackWhenItIsOver)
{
  dof.set(DofRecord::fields.x.current, 2.0);
  const osg::Matrixd before = shown();
  {
    DofPreview preview(sync());
    DofValues values = currentDofValues(dof);
    values[1] = 7;
    preview.move(dof, values);
    EXPECT_NE(shown(), before);
    preview.restore(dof);
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(preview.valuesOf(dof), currentDofValues(dof));
    preview.move(dof, values);
  }
  EXPECT_EQ(shown(), before);
  expectLikeFresh();
}

TEST_F(DofPreviewTest, KeepsWithinTheLimitsThatTheRecordSets)
{
  dof.set(DofRecord::fields.yaw.minimum, -30.0);
  dof.set(DofRecord::fields.yaw.maximum, 45.0);
  const DofChannel& yaw = dofChannels()[5];
  EXPECT_EQ(previewBounds(dof, yaw, 10).least, -180);
  dof.set(DofRecord::fields.flags, 0x04000000);
  EXPECT_EQ(previewBounds(dof, yaw, 10).least, -30);
  EXPECT_EQ(previewBounds(dof, yaw, 10).most, 45);
}

TEST_F(DofPreviewTest, WithoutLimitsTheRangeHoldsTheCurrentValue)
{
  dof.set(DofRecord::fields.x.current, 25.0);
  EXPECT_EQ(previewBounds(dof, dofChannels()[0], 10).least, -10);
  EXPECT_EQ(previewBounds(dof, dofChannels()[0], 10).most, 25);
  EXPECT_EQ(previewBounds(dof, dofChannels()[6], 10).least, 0);
  EXPECT_EQ(previewBounds(dof, dofChannels()[6], 10).most, 2);
}

TEST(AnimationCourse, GoesForwardAndBackwardAndSwings)
{
  AnimationCourse course{.duration = 4, .children = 4};
  EXPECT_THAT(courseOf(course, 6, 1), ElementsAre(0, 1, 2, 3, 0, 1));
  course.direction = AnimationCourse::Direction::backward;
  EXPECT_THAT(courseOf(course, 6, 1), ElementsAre(3, 2, 1, 0, 3, 2));
  course = {.swing = true, .duration = 6, .children = 4};
  EXPECT_THAT(courseOf(course, 8, 1), ElementsAre(0, 1, 2, 3, 2, 1, 0, 1));
}

TEST(AnimationCourse, EndsAfterItsLoopsAndHoldsTheLastChild)
{
  const AnimationCourse course{.loops = 2, .duration = 3, .lastDuration = 5, .children = 3};
  EXPECT_EQ(course.childAt(5.5), 2);
  EXPECT_EQ(course.childAt(100), 2);
  EXPECT_EQ(course.end(), 11.0);
  EXPECT_EQ(AnimationCourse{.children = 3}.end(), std::nullopt);
}

TEST(AnimationCourse, WithoutADurationEachChildIsShownForATenthOfASecond)
{
  const AnimationCourse course{.children = 5};
  EXPECT_THAT(courseOf(course, 6, 0.1), ElementsAre(0, 1, 2, 3, 4, 0));
}

TEST_F(AnimationPreviewTest, OnlyAnimatedGroupsAreFound)
{
  auto& single = build.add<GroupRecord>(group);
  single.set(GroupRecord::fields.flags, forward);
  build.add<fltapi::ObjectRecord>(single);
  EXPECT_THAT(animatedGroups(build.file()), ElementsAre(&animated));
  animated.set(GroupRecord::fields.flags, 0U);
  EXPECT_TRUE(animatedGroups(build.file()).empty());
}

TEST_F(AnimationPreviewTest, TheFlagsSayWhichWay)
{
  animated.set(GroupRecord::fields.flags, backward | swing);
  EXPECT_EQ(animationOf(animated)->inWords(), "backward, swing");
  animated.set(GroupRecord::fields.flags, swing);
  EXPECT_EQ(animationOf(animated)->inWords(), "forward, swing");
  animated.set(GroupRecord::fields.loopCount, 3);
  EXPECT_EQ(animationOf(animated)->inWords(), "forward, swing, 3 loops");
}

TEST_F(AnimationPreviewTest, ShowsOneChildAfterTheOtherAndThenAllAsBefore)
{
  EXPECT_EQ(shown(), "111");
  {
    AnimationPreview preview(sync(), {&animated});
    EXPECT_TRUE(preview.show(0.0));
    EXPECT_EQ(shown(), "100");
    EXPECT_FALSE(preview.show(0.5));
    EXPECT_TRUE(preview.show(1.5));
    EXPECT_EQ(shown(), "010");
    EXPECT_TRUE(preview.show(2.5));
    EXPECT_EQ(shown(), "001");
    EXPECT_FALSE(preview.isOver(1000));
  }
  EXPECT_EQ(shown(), "111");
  expectLikeFresh();
}

TEST_F(AnimationPreviewTest, WhatIsHiddenStaysHidden)
{
  sync();
  ModUserData::of(*frames[1]).setVisible(false, ~0U, sync(), /*traverse=*/false);
  EXPECT_EQ(shown(), "101");
  {
    AnimationPreview preview(sync(), {&animated});
    preview.show(1.5);
    EXPECT_EQ(shown(), "000");
  }
  EXPECT_EQ(shown(), "101");
}

} // namespace nalt
