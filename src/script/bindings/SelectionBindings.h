#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// Choosing what the next edit applies to, and asking what is chosen.
std::span<const Binding> selectionBindings();

/// Walking the selection with functions of the script.
std::span<const Binding> traverseBindings();

} // namespace nalt::bindings
