#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// The point that transformations turn and scale about.
std::span<const Binding> pivotBindings();

} // namespace nalt::bindings
