#pragma once

#include <osg/Vec3d>

namespace nalt {

class Model;

/// Lays a model's grid by points that the user gives one after the other. The status line says which one is next,
/// unless a script runs.
class GridPlacement {
public:
  /// Whether the next point is the grid's.
  bool waits() const { return step_ > 0 || translates_; }
  /// 1 to 3: the point that comes next; 0 when the grid isn't being aligned.
  int step() const { return step_; }
  bool translates() const { return translates_; }

  /// Starts with origin, point on axis and third point; stops when that is going on already.
  void toggleAligning();
  /// The next point becomes the origin.
  void startTranslating();
  /// False when no point was waited for. A point that can't be the one of its step, as it would lie on a line with the
  /// others, is asked for again.
  bool take(Model& model, const osg::Vec3d& point);

private:
  void showStatus() const;

  int step_ = 0;
  bool translates_ = false;
};

} // namespace nalt
