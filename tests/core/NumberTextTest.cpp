#include "core/NumberText.h"

#include <gtest/gtest.h>

namespace nalt {

TEST(NumberText, TheWholeTextMustBeANumber)
{
  EXPECT_EQ(numberFromText("2.5"), 2.5);
  EXPECT_EQ(numberFromText(" -1e3 "), -1000.0);
  EXPECT_EQ(numberFromText("+4"), 4.0);
  for (const char* text : {"", " ", "2.5m", "1 2", "1,5", "abc", "--1", "+-1", "inf", "nan", "1e999"})
    EXPECT_FALSE(numberFromText(text)) << text;
}

TEST(NumberText, WholeNumbersHaveNoFraction)
{
  EXPECT_EQ(wholeNumberFromText("12"), 12);
  EXPECT_EQ(wholeNumberFromText("-7 "), -7);
  for (const char* text : {"", "1.5", "1e3", "99999999999"})
    EXPECT_FALSE(wholeNumberFromText(text)) << text;
}

TEST(NumberText, ANumberComesBackFromItsShortestText)
{
  EXPECT_EQ(textOfNumber(0.0001), "0.0001");
  EXPECT_EQ(textOfNumber(100000.0), "100000");
  EXPECT_EQ(textOfNumber(0.1F), "0.1");
  EXPECT_EQ(numberFromText(textOfNumber(1.0 / 3.0)), 1.0 / 3.0);
}

} // namespace nalt
