#pragma once

#include "platform/Descriptor.h"

#include <string>

namespace nalt {

/// Keeps other instances of this program out of a folder's shared files for as long as it lives. It never waits.
class FolderLock {
public:
  explicit FolderLock(const std::string& folder);

  /// False when another one has the lock, or the folder can't be opened.
  bool held() const { return held_; }

private:
  Descriptor folder_;
  bool held_ = false;
};

} // namespace nalt
