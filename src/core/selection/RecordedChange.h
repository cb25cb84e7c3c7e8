#pragma once

#include "core/selection/SelectionSet.h"

#include <string>

namespace nalt {

/// A change that is recorded as the line `script`, which calls the script function `function`.
SelectionChange recordedChange(const std::string& function, const std::string& script, bool undoable);

} // namespace nalt
