#pragma once

#include "core/Shell.h"

namespace nalt {

/// The wait cursor for the time of a block, and of those that it stands in.
class WaitCursor {
public:
  WaitCursor() : mine_(Shell::get().waitCursor()) {}
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor()
  {
    if (mine_) Shell::get().defaultCursor();
  }

private:
  bool mine_; ///< a block around this one has it on otherwise
};

} // namespace nalt
