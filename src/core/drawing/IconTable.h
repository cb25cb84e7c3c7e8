#pragma once

#include <span>

namespace nalt {

struct IconSource {
  const char* name; ///< the file's name in data/icons without its ending
  const char* svg;
};

/// The program's own pictures, built in; sorted by name.
std::span<const IconSource> iconTable();

} // namespace nalt
