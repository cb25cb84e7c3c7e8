#pragma once

namespace fltapi {
class ColorPaletteRecord;
}

namespace nalt {

/// Fills the palette of a new document, so that a new polygon can be seen: white first, a ramp of greys, then rows of
/// hues from dark to pale.
void fillDefaultColors(fltapi::ColorPaletteRecord& palette);

} // namespace nalt
