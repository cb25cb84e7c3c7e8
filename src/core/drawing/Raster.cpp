#include "core/drawing/Raster.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

constexpr int linesPerRow = 8;

struct Crossing {
  double x;
  int winding;
};

/// Where the horizontal line at `y` crosses the outlines, from left to right.
std::vector<Crossing> crossingsAt(const Shape& shape, double y)
{
  std::vector<Crossing> crossings;
  for (const Outline& outline : shape) {
    for (std::size_t i = 0; i < outline.points.size(); ++i) {
      const Point2 a = outline.points[i];
      const Point2 b = outline.points[(i + 1) % outline.points.size()];
      if ((a.y <= y) == (b.y <= y)) continue;
      crossings.push_back({a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), a.y < b.y ? 1 : -1});
    }
  }
  std::sort(crossings.begin(), crossings.end(), [](const Crossing& l, const Crossing& r) { return l.x < r.x; });
  return crossings;
}

/// Adds to each pixel the share of it that lies between `x0` and `x1`.
void addSpan(std::vector<double>& row, double x0, double x1, double weight)
{
  x0 = std::clamp(x0, 0.0, static_cast<double>(row.size()));
  x1 = std::clamp(x1, 0.0, static_cast<double>(row.size()));
  for (auto x = static_cast<std::size_t>(x0); x < row.size() && static_cast<double>(x) < x1; ++x) {
    const double left = std::max(x0, static_cast<double>(x));
    const double right = std::min(x1, static_cast<double>(x) + 1.0);
    row[x] += (right - left) * weight;
  }
}

Rgba mix(const Rgba& a, const Rgba& b, double t)
{
  const auto between = [t](double from, double to) { return from + (to - from) * t; };
  return {between(a.r, b.r), between(a.g, b.g), between(a.b, b.b), between(a.a, b.a)};
}

} // namespace

Rgba Paint::at(Point2 p) const
{
  if (stops.empty()) return color;
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double length2 = dx * dx + dy * dy;
  const double t = length2 > 0.0 ? ((p.x - from.x) * dx + (p.y - from.y) * dy) / length2 : 0.0;
  if (t <= stops.front().offset) return stops.front().color;
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double width = stops[i].offset - stops[i - 1].offset;
    if (t < stops[i].offset && width > 0.0)
      return mix(stops[i - 1].color, stops[i].color, (t - stops[i - 1].offset) / width);
  }
  return stops.back().color;
}

Raster::Raster(int w, int h)
    : w_(std::max(w, 0)),
      h_(std::max(h, 0)),
      pixels_(static_cast<std::size_t>(w_) * static_cast<std::size_t>(h_), Rgba{0, 0, 0, 0})
{}

void Raster::fill(const Shape& shape, const Paint& paint)
{
  double top = h_;
  double bottom = 0.0;
  for (const Outline& outline : shape) {
    for (const Point2& p : outline.points) {
      top = std::min(top, p.y);
      bottom = std::max(bottom, p.y);
    }
  }
  std::vector<double> row(static_cast<std::size_t>(w_));
  const int last = std::min(h_, static_cast<int>(std::ceil(bottom)));
  for (int y = std::max(0, static_cast<int>(std::floor(top))); y < last; ++y) {
    std::fill(row.begin(), row.end(), 0.0);
    for (int line = 0; line < linesPerRow; ++line) {
      const std::vector<Crossing> crossings = crossingsAt(shape, y + (line + 0.5) / linesPerRow);
      int winding = 0;
      for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        winding += crossings[i].winding;
        if (winding != 0) addSpan(row, crossings[i].x, crossings[i + 1].x, 1.0 / linesPerRow);
      }
    }
    for (int x = 0; x < w_; ++x) {
      const double coverage = std::min(1.0, row[static_cast<std::size_t>(x)]);
      if (coverage > 0.0) blend(x, y, coverage, paint.at({x + 0.5, y + 0.5}));
    }
  }
}

void Raster::blend(int x, int y, double coverage, const Rgba& color)
{
  Rgba& pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(w_) + static_cast<std::size_t>(x)];
  const double alpha = color.a * coverage;
  pixel.r = color.r * alpha + pixel.r * (1.0 - alpha);
  pixel.g = color.g * alpha + pixel.g * (1.0 - alpha);
  pixel.b = color.b * alpha + pixel.b * (1.0 - alpha);
  pixel.a = alpha + pixel.a * (1.0 - alpha);
}

std::vector<std::uint8_t> Raster::pixels() const
{
  const auto byte = [](double value) { return static_cast<std::uint8_t>(std::clamp(value, 0.0, 1.0) * 255.0 + 0.5); };
  std::vector<std::uint8_t> bytes;
  bytes.reserve(pixels_.size() * 4);
  for (const Rgba& pixel : pixels_) {
    const double scale = pixel.a > 0.0 ? 1.0 / pixel.a : 0.0;
    for (const double value : {pixel.r * scale, pixel.g * scale, pixel.b * scale, pixel.a})
      bytes.push_back(byte(value));
  }
  return bytes;
}

} // namespace nalt
