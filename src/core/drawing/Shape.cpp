#include "core/drawing/Shape.h"

#include "core/drawing/NumberReader.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <numbers>

namespace nalt {

namespace {

constexpr int curvePieces = 16;
constexpr int circlePieces = 48;

Point2 operator+(Point2 a, Point2 b)
{
  return {a.x + b.x, a.y + b.y};
}

Point2 operator-(Point2 a, Point2 b)
{
  return {a.x - b.x, a.y - b.y};
}

Point2 operator*(Point2 a, double f)
{
  return {a.x * f, a.y * f};
}

/// Walks along the `d` attribute of a path.
class PathReader {
public:
  explicit PathReader(std::string_view data) : numbers_(data) {}

  Shape read()
  {
    char command = 0;
    while (const auto next = numbers_.command(command)) {
      command = *next;
      if (!step(command)) break;
    }
    return shape_;
  }

private:
  bool step(char command)
  {
    const bool relative = std::islower(static_cast<unsigned char>(command)) != 0;
    const Point2 origin = relative ? here_ : Point2();
    Point2 a, b, c;
    switch (std::toupper(static_cast<unsigned char>(command))) {
    case 'M':
      if (!point(a)) return false;
      start(origin + a);
      return true;
    case 'L':
      if (!point(a)) return false;
      lineTo(origin + a);
      return true;
    case 'H':
      if (!numbers_.number(a.x)) return false;
      lineTo({origin.x + a.x, here_.y});
      return true;
    case 'V':
      if (!numbers_.number(a.y)) return false;
      lineTo({here_.x, origin.y + a.y});
      return true;
    case 'C':
      if (!point(a) || !point(b) || !point(c)) return false;
      curveTo(origin + a, origin + b, origin + c);
      return true;
    case 'S':
      if (!point(b) || !point(c)) return false;
      curveTo(here_ * 2.0 - lastControl_, origin + b, origin + c);
      return true;
    case 'Q':
      if (!point(b) || !point(c)) return false;
      b = origin + b;
      c = origin + c;
      curveTo(here_ + (b - here_) * (2.0 / 3.0), c + (b - c) * (2.0 / 3.0), c);
      return true;
    case 'Z':
      if (shape_.empty()) return false;
      shape_.back().closed = true;
      here_ = lastControl_ = shape_.back().points.front();
      return true;
    default:
      return false;
    }
  }

  bool point(Point2& p) { return numbers_.number(p.x) && numbers_.number(p.y); }

  void start(Point2 p)
  {
    shape_.push_back({{p}, false});
    here_ = lastControl_ = p;
  }

  void lineTo(Point2 p)
  {
    if (shape_.empty() || shape_.back().closed) start(here_);
    shape_.back().points.push_back(p);
    here_ = lastControl_ = p;
  }

  void curveTo(Point2 b, Point2 c, Point2 end)
  {
    const Point2 begin = here_;
    for (int i = 1; i <= curvePieces; ++i) {
      const double t = static_cast<double>(i) / curvePieces;
      const double u = 1.0 - t;
      lineTo(begin * (u * u * u) + b * (3.0 * u * u * t) + c * (3.0 * u * t * t) + end * (t * t * t));
    }
    lastControl_ = c;
  }

  NumberReader numbers_;
  Shape shape_;
  Point2 here_;
  Point2 lastControl_;
};

double signedArea(const Outline& outline)
{
  double area = 0.0;
  for (std::size_t i = 0; i < outline.points.size(); ++i) {
    const Point2 a = outline.points[i];
    const Point2 b = outline.points[(i + 1) % outline.points.size()];
    area += a.x * b.y - b.x * a.y;
  }
  return area;
}

void addOriented(Shape& shape, Outline outline)
{
  if (signedArea(outline) < 0.0) std::reverse(outline.points.begin(), outline.points.end());
  shape.push_back(std::move(outline));
}

void addPiece(Shape& shape, Point2 a, Point2 b, double half)
{
  const Point2 along = b - a;
  const double length = std::hypot(along.x, along.y);
  if (length == 0.0) return;
  const Point2 side = {-along.y / length * half, along.x / length * half};
  addOriented(shape, {{a + side, b + side, b - side, a - side}, true});
}

} // namespace

Shape shapeOfPath(std::string_view data)
{
  return PathReader(data).read();
}

Shape ellipse(Point2 centre, double radiusX, double radiusY)
{
  Outline outline{{}, true};
  for (int i = 0; i < circlePieces; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / circlePieces;
    outline.points.push_back({centre.x + radiusX * std::cos(angle), centre.y + radiusY * std::sin(angle)});
  }
  return {outline};
}

Shape roundedRectangle(double x, double y, double w, double h, double radius)
{
  radius = std::min({radius, w / 2.0, h / 2.0});
  if (radius <= 0.0) return {{{{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}}, true}};
  Outline outline{{}, true};
  const Point2 centres[] = {{x + w - radius, y + h - radius},
                            {x + radius, y + h - radius},
                            {x + radius, y + radius},
                            {x + w - radius, y + radius}};
  for (int corner = 0; corner < 4; ++corner) {
    for (int i = 0; i <= circlePieces / 4; ++i) {
      const double angle = 2.0 * std::numbers::pi * (corner * (circlePieces / 4) + i) / circlePieces;
      outline.points.push_back(centres[corner] + Point2{radius * std::cos(angle), radius * std::sin(angle)});
    }
  }
  return {outline};
}

Shape polygon(std::string_view points, bool closed)
{
  NumberReader numbers(points);
  Outline outline{{}, closed};
  for (Point2 p; numbers.number(p.x) && numbers.number(p.y);)
    outline.points.push_back(p);
  if (outline.points.empty()) return {};
  return {outline};
}

Shape stroked(const Shape& shape, double width)
{
  const double half = width / 2.0;
  Shape result;
  for (const Outline& outline : shape) {
    const std::size_t count = outline.points.size();
    for (std::size_t i = 0; i + 1 < count; ++i)
      addPiece(result, outline.points[i], outline.points[i + 1], half);
    if (outline.closed && count > 1) addPiece(result, outline.points.back(), outline.points.front(), half);
    for (const Point2& p : outline.points)
      addOriented(result, ellipse(p, half, half).front());
  }
  return result;
}

} // namespace nalt
