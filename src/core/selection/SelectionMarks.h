#pragma once

namespace nalt {

class Selections;
class Sync;

// The marks of records by which the scene highlights what is selected. `sync` is told what changed; null while there is
// no scene.

void markSelected(const Selections& selections, bool selected, Sync* sync);
/// Tells a scene that was made just now.
void showMarks(const Selections& selections, Sync& sync);

} // namespace nalt
