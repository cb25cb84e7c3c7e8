#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// Laying the grid of the current model, and asking where it lies.
std::span<const Binding> gridBindings();

} // namespace nalt::bindings
