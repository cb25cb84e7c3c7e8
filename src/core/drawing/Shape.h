#pragma once

#include <string_view>
#include <vector>

namespace nalt {

struct Point2 {
  double x = 0.0;
  double y = 0.0;
};

/// One run of straight pieces; curves are cut into them.
struct Outline {
  std::vector<Point2> points;
  bool closed = false;
};

/// What a path, a circle or a line of a picture consists of.
using Shape = std::vector<Outline>;

/// Reads the `d` attribute of a path: M L H V C S Q Z, absolute and relative. Stops at what it doesn't know, keeping
/// what came before it.
Shape shapeOfPath(std::string_view data);
Shape ellipse(Point2 centre, double radiusX, double radiusY);
Shape roundedRectangle(double x, double y, double w, double h, double radius);
/// A list of coordinates, as in `points` of a polygon.
Shape polygon(std::string_view points, bool closed);

/// The area that a pen of `width` covers along `shape`, with round ends and corners, as outlines of one orientation.
Shape stroked(const Shape& shape, double width);

} // namespace nalt
