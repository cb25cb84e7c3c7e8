#include "core/WaitCursor.h"
#include "tests/core/RecordingShell.h"

#include <gtest/gtest.h>

#include <utility>

namespace nalt {

TEST(WaitCursor, IsOnUntilTheOutermostBlockEnds)
{
  class CursorShell : public RecordingShell {
  public:
    bool waitCursor() override { return !std::exchange(isOn, true); }
    void defaultCursor() override { isOn = false; }
    bool isOn = false;
  };
  CursorShell shell;
  Shell* const before = Shell::install(&shell);
  {
    const WaitCursor outer;
    EXPECT_TRUE(shell.isOn);
    {
      const WaitCursor inner;
    }
    EXPECT_TRUE(shell.isOn);
  }
  EXPECT_FALSE(shell.isOn);
  Shell::install(before);
}

} // namespace nalt
