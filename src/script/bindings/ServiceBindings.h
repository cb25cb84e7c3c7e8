#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// What scripts need of the program itself.
std::span<const Binding> serviceBindings();

} // namespace nalt::bindings
