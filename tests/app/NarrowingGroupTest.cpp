#include "app/NarrowingGroup.h"

#include <FL/Fl_Box.H>
#include <gtest/gtest.h>

namespace nalt {

namespace {

/// Two boxes of 100 by 20 with a gap of 50 between them, in a group that has room to spare.
class NarrowingGroupTest : public testing::Test {
protected:
  NarrowingGroupTest()
  {
    group.end();
    group.add(left);
    group.add(right);
    group.keepPlaces();
  }

  NarrowingGroup group{10, 5, 400, 30};
  Fl_Box& left = *new Fl_Box(10, 10, 100, 20);
  Fl_Box& right = *new Fl_Box(160, 10, 100, 20);
};

} // namespace

TEST_F(NarrowingGroupTest, WithEnoughRoomWidgetsOnlyMoveAlong)
{
  group.resize(30, 100, 250, 30);
  EXPECT_EQ(left.x(), 30);
  EXPECT_EQ(left.y(), 105);
  EXPECT_EQ(right.x(), 180);
  EXPECT_EQ(right.w(), 100);
  group.resize(10, 5, 1000, 30);
  EXPECT_EQ(right.x(), 160);
  EXPECT_EQ(right.w(), 100);
}

TEST_F(NarrowingGroupTest, WithTooLittleRoomAllGrowNarrower)
{
  group.resize(10, 5, 125, 30);
  EXPECT_EQ(left.w(), 50);
  EXPECT_EQ(right.x(), 85);
  EXPECT_EQ(right.x() + right.w(), 135);
  EXPECT_EQ(right.h(), 20);
}

TEST_F(NarrowingGroupTest, WhatWasNarrowIsWideAgain)
{
  group.resize(10, 5, 33, 30);
  group.resize(10, 5, 1, 30);
  group.resize(10, 5, 400, 30);
  EXPECT_EQ(left.w(), 100);
  EXPECT_EQ(right.x(), 160);
  EXPECT_EQ(right.w(), 100);
}

} // namespace nalt
