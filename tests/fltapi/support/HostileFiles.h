#pragma once

#include "tests/fltapi/support/GeneratedFiles.h"

#include <optional>

namespace nalt::tests::flt {

/// A file that no sound program writes, and what has to become of it.
struct HostileFile {
  std::string name;
  std::string bytes;
  /// Whether it loads; without a value either answer will do.
  std::optional<bool> loads;
  /// Part of the message when it doesn't load.
  std::string message;
};

std::vector<HostileFile> hostileFiles();
/// For each kind of records a file with `many` heads of it without content at the header, and one with them in a level.
std::vector<HostileFile> headsOfRecords(int many);

} // namespace nalt::tests::flt
