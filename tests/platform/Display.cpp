#include "platform/Display.h"

#include "tests/support/Scoped.h"

#include <gtest/gtest.h>

namespace nalt {
namespace {

using tests::ScopedEnvironment;

// That a display is found where there is one is shown by tests/gui/test-display.
TEST(Display, isNotAvailableWhenNoneIsNamed)
{
  const ScopedEnvironment scope("DISPLAY", std::nullopt);
  EXPECT_FALSE(displayAvailable());
}

TEST(Display, isNotAvailableWhenNobodyAnswers)
{
  for (const char* dead : {":4711", "", "no display", ":"}) {
    const ScopedEnvironment scope("DISPLAY", dead);
    EXPECT_FALSE(displayAvailable()) << dead;
  }
}

} // namespace
} // namespace nalt
