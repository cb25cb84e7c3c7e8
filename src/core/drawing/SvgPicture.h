#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace nalt {

/// Draws an SVG picture as large as it fits into `width` by `height` pixels, in their middle. Four bytes a pixel: red,
/// green, blue (not premultiplied) and how much covers, rows from the top. Empty when `svg` isn't a picture. Needs no
/// display.
std::vector<std::uint8_t> drawSvg(std::string_view svg, int width, int height);

} // namespace nalt
