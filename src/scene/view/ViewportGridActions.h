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

} // namespace nalt
