#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// Taking nodes out of the tree, and where new ones go.
std::span<const Binding> hierarchyBindings();

} // namespace nalt::bindings
