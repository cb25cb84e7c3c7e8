#pragma once

namespace fltapi {

/// Whether a node of opcode `parent` may have nodes of opcode `child` below it. What a file holds is taken as it is;
/// this is for edits: creating, pasting, moving.
bool canContain(int parent, int child);

} // namespace fltapi
