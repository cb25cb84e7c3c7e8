#pragma once

namespace nalt {

class Viewport;

// What is selected, hidden in one viewport or shown there again. A selected corner or edge stands for its polygon.
// Hiding is no edit: it makes no command and no line in a recording.

void hideSelected(Viewport& viewport);
/// Hides all but what is selected; nothing when nothing is.
void isolateSelected(Viewport& viewport);
void unhideSelected(Viewport& viewport);
void unhideAll(Viewport& viewport);

} // namespace nalt
