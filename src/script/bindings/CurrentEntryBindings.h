#pragma once

#include "script/Bindings.h"

#include <span>

namespace nalt::bindings {

/// The palette entries that tools work with: one of each palette, and the color.
std::span<const Binding> currentEntryBindings();

} // namespace nalt::bindings
