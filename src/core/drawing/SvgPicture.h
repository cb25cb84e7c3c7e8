#pragma once

#include "core/drawing/Raster.h"

#include <optional>
#include <string_view>

namespace nalt {

/// Draws a picture in the part of SVG that the program's own pictures use: svg with viewBox, g, path, rect, circle,
/// ellipse, line, polyline, polygon; fill, stroke, stroke-width, opacity, transform; linearGradient in user space.
/// Lines have round ends and corners. Null when `svg` isn't a picture.
std::optional<Raster> drawSvg(std::string_view svg, int width, int height);

} // namespace nalt
