#include "core/dialogs/FormTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {

namespace {

enum class Side { left, right };

struct Inner {
  int count = 3;
};

struct Values {
  Inner inner;
  double size = 0.5;
  float pixels = 1.5F;
  bool on = true;
  Side side = Side::right;
};

using Rows = RowsFor<Values>;

} // namespace

TEST(FormTable, ARowLeadsToItsMember)
{
  Values values;
  const auto row = Rows::number<&Values::inner, &Inner::count>("Count:", nullptr, {0, 9});
  EXPECT_TRUE(setFromText(row.value(values), row.limits, "7"));
  EXPECT_EQ(values.inner.count, 7);
  EXPECT_EQ(textOf(row.value(values)), "7");
}

TEST(FormTable, WhatIsNoNumberOrOutOfRangeKeepsTheFormerValue)
{
  Values values;
  const auto count = Rows::number<&Values::inner, &Inner::count>("Count:", nullptr, {0, 9});
  for (const char* text : {"", "x", "-1", "10", "1.5"})
    EXPECT_FALSE(setFromText(count.value(values), count.limits, text)) << text;
  EXPECT_EQ(values.inner.count, 3);
  const auto size = Rows::number<&Values::size>("Size:", nullptr, {.least = 0, .leastExcluded = true});
  EXPECT_FALSE(setFromText(size.value(values), size.limits, "0"));
  EXPECT_TRUE(setFromText(size.value(values), size.limits, "1e-9"));
}

TEST(FormTable, AComplaintNamesTheValueAndItsRange)
{
  Values values;
  const auto complaint = [&](const FormRowOf<Values>& row) { return complaintAbout(row, row.value(values)); };
  EXPECT_EQ(complaint(Rows::number<&Values::inner, &Inner::count>("Count:", nullptr, {0, 9})),
            "Invalid value for \"Count\".\nIt must be a whole number from 0 to 9.");
  EXPECT_EQ(complaint(Rows::number<&Values::size>("Size:", nullptr, {.least = 0, .leastExcluded = true})),
            "Invalid value for \"Size\".\nIt must be a number greater than 0.");
  EXPECT_EQ(complaint(Rows::number<&Values::pixels>("x", nullptr, {.least = 1}).onSameLine("Height")),
            "Invalid value for \"Height\".\nIt must be a number of at least 1.");
}

TEST(FormTable, AChoiceStandsForAnEnumeration)
{
  Values values;
  const auto row = Rows::choice<&Values::side>("Side:", nullptr, 0, {"Left", "Right"});
  const auto choice = std::get<ChoiceValue>(row.value(values));
  EXPECT_EQ(choice.get(choice.target), 1);
  choice.set(choice.target, 0);
  EXPECT_EQ(values.side, Side::left);
}

TEST(FormTable, ATableFallsApartIntoItsGroups)
{
  const FormTable<Values> rows = {Rows::group("A"), Rows::check<&Values::on>("On", nullptr),
                                  Rows::number<&Values::size>("Size:", nullptr, {}), Rows::group("B"),
                                  Rows::number<&Values::pixels>("Pixels:", nullptr, {})};
  const auto groups = groupsOf<Values>(rows);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].size(), 3U);
  EXPECT_STREQ(groups[1][0].label, "B");
}

} // namespace nalt
