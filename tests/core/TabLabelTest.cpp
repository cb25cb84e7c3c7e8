#include "core/TabLabel.h"

#include <gtest/gtest.h>

namespace nalt {

TEST(TabLabel, AFreeNameGetsNoNumber)
{
  EXPECT_EQ(tabLabel("a.flt", {}), "a.flt");
  EXPECT_EQ(tabLabel("a.flt", {"b.flt", "b.flt <2>", "aa.flt"}), "a.flt");
}

TEST(TabLabel, ASecondOneOfANameIsNumberTwo)
{
  EXPECT_EQ(tabLabel("a.flt", {"a.flt"}), "a.flt <2>");
}

TEST(TabLabel, TheNumberIsOneAboveTheHighestInUse)
{
  EXPECT_EQ(tabLabel("a.flt", {"a.flt <2>"}), "a.flt <3>");
  EXPECT_EQ(tabLabel("a.flt", {"a.flt <2>", "a.flt <7>", "a.flt"}), "a.flt <8>");
}

TEST(TabLabel, UnsavedMarksDontMatter)
{
  EXPECT_EQ(tabLabel("a.flt", {"a.flt*"}), "a.flt <2>");
  EXPECT_EQ(tabLabel("a.flt", {"a.flt <2>*"}), "a.flt <3>");
}

TEST(TabLabel, WhatOnlyLooksLikeANumberBelongsToTheName)
{
  EXPECT_EQ(tabLabel("a <x>", {"a <x>"}), "a <x> <2>");
  EXPECT_EQ(tabLabel("a", {"a <x>", "a <2"}), "a");
}

TEST(TabLabel, TheMarkStandsOnceAndGoesAway)
{
  EXPECT_EQ(markedLabel("a.flt", true), "a.flt*");
  EXPECT_EQ(markedLabel("a.flt*", true), "a.flt*");
  EXPECT_EQ(markedLabel("a.flt*", false), "a.flt");
  EXPECT_EQ(markedLabel("", true), "*");
}

} // namespace nalt
