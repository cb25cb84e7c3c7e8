#pragma once

namespace nalt {

/// Prints the length of each kind of record, one line for each opcode, behind a line of titles.
void printStructSizes();

} // namespace nalt
