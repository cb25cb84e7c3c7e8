#include "core/LuaText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace nalt {
namespace {

using namespace std::string_literals;

TEST(LuaText, TextsStandInQuotesWithTheirBackslashesDoubled)
{
  EXPECT_EQ(luaText("p1"), R"("p1")");
  EXPECT_EQ(luaText(R"(C:\a\b.flt)"), R"("C:\\a\\b.flt")");
}

TEST(LuaText, TextsStayOneTextOnOneLineWhateverTheyHold)
{
  EXPECT_EQ(luaText("say \"a\""s), R"("say \"a\"")");
  EXPECT_EQ(luaText("two\nlines\r"s), R"("two\nlines\r")");
  EXPECT_EQ(luaText("a\0b"s), R"("a\000b")");
  EXPECT_EQ(luaText("\xfc\xff"s), "\"\xfc\xff\"") << "no encoding is asked for";
}

TEST(LuaText, NumbersAreSuchAsLuaReads)
{
  EXPECT_EQ(luaText(2.5), "2.5");
  EXPECT_EQ(luaText(-1e300), "-1e+300");
  EXPECT_EQ(luaText(7), "7");
  EXPECT_EQ(luaText(std::nan("")), "0/0");
  EXPECT_EQ(luaText(std::numeric_limits<double>::infinity()), "math.huge");
  EXPECT_EQ(luaText(-std::numeric_limits<double>::infinity()), "-math.huge");
}

TEST(LuaText, FlagsAreLuasOwn)
{
  EXPECT_EQ(luaText(true), "true");
  EXPECT_EQ(luaText(false), "false");
}

} // namespace
} // namespace nalt
