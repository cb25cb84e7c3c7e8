#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// Opening, saving, closing and choosing models.
std::span<const Binding> modelBindings();

} // namespace nalt::bindings
