#include "core/selection/ElementSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

struct Number {
  int value;
  static bool before(const Number& a, const Number& b) { return a.value < b.value; }
};

using Numbers = ElementSet<Number>;

std::vector<int> valuesOf(const Numbers& set)
{
  std::vector<int> values;
  for (const auto& number : set)
    values.push_back(number.value);
  return values;
}

Numbers range(int first, int last, int step = 1)
{
  Numbers set;
  for (int i = first; i < last; i += step)
    set.insert({i});
  return set;
}

TEST(ElementSet, HoldsEachElementOnceInOrder)
{
  Numbers set;
  for (const int value : {5, 1, 9, 5, 1})
    set.insert({value});
  EXPECT_THAT(valuesOf(set), ElementsAre(1, 5, 9));
  EXPECT_FALSE(set.insert({9}));
  EXPECT_TRUE(set.contains({5}));
  EXPECT_FALSE(set.contains({6}));
  EXPECT_FALSE(set.contains({0}));
  EXPECT_TRUE(set.erase({5}));
  EXPECT_FALSE(set.erase({5}));
  EXPECT_EQ(set.size(), 2u);
}

TEST(ElementSet, ACopyIsIndependent)
{
  auto first = range(0, 2000);
  auto second = first;
  second.erase({700});
  second.insert({5000});
  EXPECT_TRUE(first.contains({700}));
  EXPECT_FALSE(first.contains({5000}));
  EXPECT_EQ(first.size(), 2000u);
  EXPECT_FALSE(first == second);
  second.insert({700});
  second.erase({5000});
  EXPECT_TRUE(first == second);
}

TEST(ElementSet, DoesWhatASetDoesInAnyOrder)
{
  std::mt19937 random(7);
  Numbers set;
  std::set<int> expected;
  const auto value = [&] { return std::uniform_int_distribution(0, 5000)(random); };
  for (int i = 0; i < 60'000; ++i) {
    const int one = value();
    if (value() < 2500)
      EXPECT_EQ(set.insert({one}), expected.insert(one).second);
    else
      EXPECT_EQ(set.erase({one}), expected.erase(one) == 1);
    EXPECT_EQ(set.size(), expected.size());
  }
  EXPECT_THAT(valuesOf(set), ElementsAreArray(expected));
}

/// Whether elements are looked up one by one or both sets are walked through depends on the sizes.
class ElementSetOperations : public testing::TestWithParam<int> {};

TEST_P(ElementSetOperations, JoinLeaveAndToggle)
{
  const auto all = range(0, 6000, 2);
  const auto some = range(1000, 1000 + GetParam());
  std::set<int> joined;
  std::set<int> left;
  std::set<int> toggled;
  for (int i = 0; i < 8000; ++i) {
    const bool a = all.contains({i});
    const bool b = some.contains({i});
    if (a || b) joined.insert(i);
    if (a && !b) left.insert(i);
    if (a != b) toggled.insert(i);
  }
  auto set = all;
  set.add(some);
  EXPECT_THAT(valuesOf(set), ElementsAreArray(joined));
  EXPECT_EQ(set.size(), joined.size());
  set = all;
  set.subtract(some);
  EXPECT_THAT(valuesOf(set), ElementsAreArray(left));
  EXPECT_EQ(set.size(), left.size());
  set = all;
  set.toggle(some);
  EXPECT_THAT(valuesOf(set), ElementsAreArray(toggled));
  EXPECT_EQ(set.size(), toggled.size());
}

INSTANTIATE_TEST_SUITE_P(Sizes, ElementSetOperations, testing::Values(0, 1, 50, 1500, 6500));

TEST(ElementSet, ASmallSetMeetsALargeOne)
{
  const auto large = range(0, 6000, 2);
  auto set = range(10, 13);
  set.subtract(large);
  EXPECT_THAT(valuesOf(set), ElementsAre(11));
  set.add(large);
  EXPECT_EQ(set.size(), 3001u);
  set = range(10, 13);
  set.toggle(large);
  EXPECT_EQ(set.size(), 2999u);
  EXPECT_TRUE(set.contains({11}));
  EXPECT_FALSE(set.contains({12}));
}

TEST(ElementSet, ASetLeavesItself)
{
  auto set = range(0, 3000);
  const auto same = set;
  set.subtract(same);
  EXPECT_TRUE(set.empty());
  EXPECT_TRUE(set.begin() == set.end());
}

TEST(ElementSet, DropsWhatATestWants)
{
  auto set = range(0, 3000);
  set.eraseIf([](const Number& number) { return number.value % 1000 != 0; });
  EXPECT_THAT(valuesOf(set), ElementsAre(0, 1000, 2000));
}

} // namespace
} // namespace nalt
