#pragma once

namespace nalt {

/// From here on, writing to a pipe that nobody reads, or beyond the largest file allowed, is a write that fails, not
/// the end of the program. To be called once, at the start of the program.
void makeFailedWritesErrors();

} // namespace nalt
