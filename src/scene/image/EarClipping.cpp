#include "scene/image/EarClipping.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace nalt {

namespace {

using Point = osg::Vec2d;

/// Looks at corners that may lie in the way, which take nanoseconds each.
constexpr std::int64_t mostLooks = 100'000'000;

/// Above 0 where c lies left of the line from a to b.
double side(const Point& a, const Point& b, const Point& c)
{
  return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

/// Corners by where they are, each in one cell.
class Cells {
public:
  explicit Cells(std::span<const Point> points) : low_(points.front()), high_(points.front())
  {
    for (const auto& point : points) {
      low_.set(std::min(low_.x(), point.x()), std::min(low_.y(), point.y()));
      high_.set(std::max(high_.x(), point.x()), std::max(high_.y(), point.y()));
    }
    count_ = std::max(1, static_cast<int>(std::sqrt(static_cast<double>(points.size()))));
    cells_.resize(static_cast<std::size_t>(count_) * static_cast<std::size_t>(count_));
  }
  void add(std::uint32_t corner, const Point& at) { cells_[place(column(at.x()), row(at.y()))].push_back(corner); }
  /// Whether `found` says yes to a corner in or near the box; `isKept` to one that must be looked at again later.
  template <class IsKept, class Found>
  bool any(const Point& low, const Point& high, IsKept&& isKept, Found&& found)
  {
    for (int y = row(low.y()); y <= row(high.y()); ++y) {
      for (int x = column(low.x()); x <= column(high.x()); ++x) {
        auto& cell = cells_[place(x, y)];
        for (std::size_t i = 0; i < cell.size();) {
          if (!isKept(cell[i])) {
            cell[i] = cell.back();
            cell.pop_back();
          } else if (found(cell[i++])) {
            return true;
          }
        }
      }
    }
    return false;
  }

private:
  std::size_t place(int x, int y) const
  {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(count_) + static_cast<std::size_t>(x);
  }
  int column(double x) const { return cellOf(x, low_.x(), high_.x()); }
  int row(double y) const { return cellOf(y, low_.y(), high_.y()); }
  int cellOf(double at, double low, double high) const
  {
    const double along = (at - low) / (high - low) * count_;
    return along > 0 ? static_cast<int>(std::min<double>(along, count_ - 1)) : 0; // 0, too, for what is no number
  }

  Point low_;
  Point high_;
  int count_ = 1; ///< in each direction
  std::vector<std::vector<std::uint32_t>> cells_;
};

/// Cuts one corner after the other off, as long as no other corner lies in what is cut off.
class EarClipper {
public:
  explicit EarClipper(std::span<const Point> points)
      : points_(points), before_(points.size()), after_(points.size()), turnsIn_(points.size()), cells_(points)
  {
    const auto count = static_cast<std::uint32_t>(points.size());
    for (std::uint32_t i = 0; i < count; ++i) {
      before_[i] = (i + count - 1) % count;
      after_[i] = (i + 1) % count;
    }
    for (std::uint32_t i = 0; i < count; ++i) {
      turnsIn_[i] = !isConvex(i);
      if (turnsIn_[i]) cells_.add(i, points[i]);
    }
    triangles_.reserve(3 * points.size());
  }

  std::vector<GLuint> take()
  {
    auto left = points_.size();
    std::uint32_t corner = 0;
    for (std::size_t inVain = 0; left > 3; ++inVain) {
      if (++looks_ > mostLooks) return {};
      // Only where edges cross no corner can be cut off; what the smallest one covers is least to see.
      const bool stuck = inVain > left;
      if (stuck) corner = smallest(corner);
      const bool flat = isFlat(corner);
      if (flat || stuck || isEar(corner)) {
        if (!flat) addTriangle(corner);
        corner = cutOff(corner);
        --left;
        inVain = 0;
      }
      corner = after_[corner];
    }
    addTriangle(corner);
    return std::move(triangles_);
  }

private:
  const Point& at(std::uint32_t corner) const { return points_[corner]; }
  double turn(std::uint32_t corner) const { return side(at(before_[corner]), at(corner), at(after_[corner])); }
  bool isConvex(std::uint32_t corner) const { return turn(corner) > 0; }
  bool isFlat(std::uint32_t corner) const { return turn(corner) == 0; }

  void addTriangle(std::uint32_t corner)
  {
    triangles_.insert(triangles_.end(), {before_[corner], corner, after_[corner]});
  }

  /// Of all that are left, `any` being one of them.
  std::uint32_t smallest(std::uint32_t any) const
  {
    auto found = any;
    for (auto corner = after_[any]; corner != any; corner = after_[corner])
      if (std::abs(turn(corner)) < std::abs(turn(found))) found = corner;
    return found;
  }

  /// The corner that follows now.
  std::uint32_t cutOff(std::uint32_t corner)
  {
    const auto from = before_[corner];
    const auto to = after_[corner];
    after_[from] = to;
    before_[to] = from;
    turnsIn_[corner] = false;
    for (const auto neighbour : {from, to})
      if (isConvex(neighbour)) turnsIn_[neighbour] = false; // which it stays from now on
    return to;
  }

  bool isEar(std::uint32_t tip)
  {
    if (!isConvex(tip)) return false;
    const auto from = before_[tip];
    const auto to = after_[tip];
    const auto& a = at(from);
    const auto& b = at(tip);
    const auto& c = at(to);
    const Point low(std::min({a.x(), b.x(), c.x()}), std::min({a.y(), b.y(), c.y()}));
    const Point high(std::max({a.x(), b.x(), c.x()}), std::max({a.y(), b.y(), c.y()}));
    const auto isKept = [&](std::uint32_t other) { return turnsIn_[other]; };
    return !cells_.any(low, high, isKept, [&](std::uint32_t other) {
      ++looks_;
      return other != from && other != to && liesInTheWay(other, a, b, c);
    });
  }

  /// Of the triangle of a, b and c, with b at its tip.
  bool liesInTheWay(std::uint32_t other, const Point& a, const Point& b, const Point& c) const
  {
    const auto& point = at(other);
    if (point == a || point == c) return false; // what goes on into the triangle from there has a corner inside
    if (point == b) return leadsBetween(at(before_[other]), a, b, c) || leadsBetween(at(after_[other]), a, b, c);
    return side(a, b, point) >= 0 && side(b, c, point) >= 0 && side(c, a, point) >= 0;
  }

  /// Whether the way from b to `point` begins inside of the angle at b.
  static bool leadsBetween(const Point& point, const Point& a, const Point& b, const Point& c)
  {
    return side(a, b, point) > 0 && side(b, c, point) > 0;
  }

  std::span<const Point> points_;
  std::vector<std::uint32_t> before_;
  std::vector<std::uint32_t> after_;
  std::vector<bool> turnsIn_; ///< and is still there
  Cells cells_;
  std::int64_t looks_ = 0;
  std::vector<GLuint> triangles_;
};

} // namespace

std::vector<GLuint> clipEars(std::span<const osg::Vec2d> corners)
{
  if (corners.size() < 3) return {};
  return EarClipper(corners).take();
}

} // namespace nalt
