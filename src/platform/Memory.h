#pragma once

namespace nalt {

/// Gives freed memory back to the system. Worth its time only after something very large was freed.
void giveBackFreedMemory();

} // namespace nalt
