#pragma once

#include "core/Shell.h"

namespace nalt {

/// The wait cursor for the time of a block.
class WaitCursor {
public:
  WaitCursor() { Shell::get().waitCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { Shell::get().defaultCursor(); }
};

} // namespace nalt
