#pragma once

#include <osg/Vec3d>
#include <osg/Vec4f>

#include <optional>

namespace nalt {

/// A plane to draw, snap and slice by: ruled with lines at equal distances around an origin. Three points define it, as
/// they were given: the origin, a point on the first axis, and a third one anywhere else in the plane. Distances in
/// model units.
///
/// The three points always define a plane: what would bring them onto one line is ignored.
class Grid {
public:
  struct Points {
    osg::Vec3d origin;
    osg::Vec3d onAxis{1, 0, 0};
    osg::Vec3d third{0, 1, 0};
  };
  /// Unit vectors: two in the plane, and across it.
  struct Axes {
    osg::Vec3d first;
    osg::Vec3d second;
    osg::Vec3d normal;
  };

  const Points& points() const { return points_; }
  // These are false, and leave the grid as it was, when the three points would lie on one line.
  bool setPoints(const Points& points);
  bool setPointOnAxis(const osg::Vec3d& point) { return setPoints({points_.origin, point, points_.third}); }
  bool setThirdPoint(const osg::Vec3d& point) { return setPoints({points_.origin, points_.onAxis, point}); }
  /// The whole grid moves along.
  bool setOrigin(const osg::Vec3d& origin);
  /// Moves the grid along its normal.
  bool addOffset(double offset);
  Axes axes() const;

  double spacing() const { return spacing_; }
  /// False, and the former spacing kept, for what isn't a finite number above 0.
  bool setSpacing(double spacing);
  /// Every n-th line is a thick one; never 0.
  int thickLineNumber() const { return thickLineNumber_; }
  /// False, and the former number kept, for 0: lines are counted by it.
  bool setThickLineNumber(int number);

  /// Number of lines on each side of the origin, at least 1.
  int halfSize() const { return halfSize_; }
  void increase() { setHalfSize(halfSize_ + 1.0); }
  void decrease() { setHalfSize(halfSize_ - 1.0); }
  void halve() { setHalfSize(halfSize_ / 2); }
  /// Does nothing when the grid is large already, both as such and beside a model of that radius.
  void redouble(double modelRadius);

  /// Largest distance from a crossing of lines, in spacings and along each axis, at which a point snaps to it.
  double snapTolerance() const { return snapTolerance_; }
  void setSnapTolerance(double tolerance) { snapTolerance_ = tolerance; }
  bool isVisible() const { return visible_; }
  void setVisible(bool visible) { visible_ = visible; }
  const osg::Vec4f& color() const { return color_; }
  /// Of the two lines through the origin.
  const osg::Vec4f& axisColor() const { return axisColor_; }
  void setColors(const osg::Vec4f& color, const osg::Vec4f& axisColor);

  /// Where the line through `nearPoint` and `farPoint` meets the plane; none when it runs along it.
  std::optional<osg::Vec3d> intersection(const osg::Vec3d& nearPoint, const osg::Vec3d& farPoint) const;
  /// The crossing of lines next to a point of the plane, if it is near enough.
  std::optional<osg::Vec3d> snapped(const osg::Vec3d& point) const;

private:
  void setHalfSize(double lines);

  Points points_;
  double spacing_ = 1.0;
  int halfSize_ = 20;
  int thickLineNumber_ = 10;
  double snapTolerance_ = 0.5;
  bool visible_ = false;
  osg::Vec4f color_{0.3F, 0.3F, 0.3F, 1.0F};
  osg::Vec4f axisColor_{0.8F, 0.8F, 0.8F, 1.0F};
};

} // namespace nalt
