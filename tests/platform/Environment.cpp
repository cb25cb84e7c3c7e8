#include "platform/Environment.h"

#include "platform/LetterCase.h"
#include "tests/support/Scoped.h"

#include <gtest/gtest.h>

namespace nalt {
namespace {

using tests::ScopedEnvironment;

TEST(Environment, tellsUnsetFromEmpty)
{
  {
    const ScopedEnvironment scope("NALT_TEST_VARIABLE", std::nullopt);
    EXPECT_EQ(environment("NALT_TEST_VARIABLE"), std::nullopt);
  }
  const ScopedEnvironment scope("NALT_TEST_VARIABLE", "");
  EXPECT_EQ(environment("NALT_TEST_VARIABLE"), "");
}

TEST(Environment, givesTheValueAsItIs)
{
  const ScopedEnvironment scope("NALT_TEST_VARIABLE", "On b=c");
  EXPECT_EQ(environment("NALT_TEST_VARIABLE"), "On b=c");
}

TEST(Environment, comparesInUpperCase)
{
  for (const char* value : {"ON", "on", "oN"}) {
    const ScopedEnvironment scope("NALT_TEST_VARIABLE", value);
    EXPECT_TRUE(environmentEquals("NALT_TEST_VARIABLE", "ON")) << value;
  }
  for (const char* value : {"1", "", "ON ", "yes"}) {
    const ScopedEnvironment scope("NALT_TEST_VARIABLE", value);
    EXPECT_FALSE(environmentEquals("NALT_TEST_VARIABLE", "ON")) << value;
  }
  const ScopedEnvironment scope("NALT_TEST_VARIABLE", std::nullopt);
  EXPECT_FALSE(environmentEquals("NALT_TEST_VARIABLE", "ON"));
  EXPECT_FALSE(environmentEquals("NALT_TEST_VARIABLE", ""));
}

TEST(LetterCase, toUpperChangesTheLettersOfAsciiOnly)
{
  EXPECT_EQ(toUpper("az@[`{09 AZ"), "AZ@[`{09 AZ");
  EXPECT_EQ(toUpper("\xC3\xA4"), "\xC3\xA4");
}

TEST(LetterCase, equalsIgnoringCaseComparesToTheEnd)
{
  EXPECT_TRUE(equalsIgnoringCase("", ""));
  EXPECT_TRUE(equalsIgnoringCase("a.FLT", "A.flt"));
  EXPECT_FALSE(equalsIgnoringCase("a", ""));
  EXPECT_FALSE(equalsIgnoringCase("ab", "a"));
  EXPECT_FALSE(equalsIgnoringCase("a", "b"));
  EXPECT_FALSE(equalsIgnoringCase("\xC3", "\xC3\xA4"));
}

} // namespace
} // namespace nalt
