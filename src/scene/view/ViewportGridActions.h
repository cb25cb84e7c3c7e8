#pragma once

namespace nalt {

class Viewport;

// What the menu of a viewport does with its grid.

void alignGridToXY(Viewport& viewport);
void alignGridToXZ(Viewport& viewport);
void alignGridToYZ(Viewport& viewport);
void alignGridToPolygon(Viewport& viewport);
void increaseGrid(Viewport& viewport);
void decreaseGrid(Viewport& viewport);
void doubleGrid(Viewport& viewport);
void halveGrid(Viewport& viewport);
// These two ask for a number. Need a display.
void askForGridSpacing(Viewport& viewport);
void askForGridOffset(Viewport& viewport);

} // namespace nalt
