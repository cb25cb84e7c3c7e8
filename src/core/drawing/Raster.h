#pragma once

#include "core/drawing/Shape.h"

#include <cstdint>
#include <vector>

namespace nalt {

struct Rgba {
  double r = 0.0; ///< all four from 0 to 1
  double g = 0.0;
  double b = 0.0;
  double a = 1.0;
};

struct GradientStop {
  double offset = 0.0;
  Rgba color;
};

/// One colour, or several along the line from `from` to `to` (in pixels) when there are stops.
struct Paint {
  Rgba color;
  Point2 from;
  Point2 to;
  std::vector<GradientStop> stops;

  Rgba at(Point2 p) const;
};

/// A picture of 8-bit RGBA pixels, rows from the top, that shapes are painted on with smooth edges.
class Raster {
public:
  Raster(int w, int h);

  /// Fills what `shape`, in pixels, encloses by the non-zero rule.
  void fill(const Shape& shape, const Paint& paint);

  int w() const { return w_; }
  int h() const { return h_; }
  /// Not premultiplied, four bytes a pixel.
  std::vector<std::uint8_t> pixels() const;

private:
  void blend(int x, int y, double coverage, const Rgba& color);

  int w_;
  int h_;
  std::vector<Rgba> pixels_; ///< premultiplied
};

} // namespace nalt
