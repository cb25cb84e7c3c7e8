#pragma once

#include "fltapi/nodes/GroupRecords.h"

#include <optional>
#include <osg/ref_ptr>
#include <string>
#include <vector>

namespace nalt {

class Sync;

/// How the children of a group take turns.
struct AnimationCourse {
  enum class Direction { forward, backward };

  Direction direction = Direction::forward;
  bool swing = false;      ///< to the other end and back again
  int loops = 0;           ///< 0: without end
  double duration = 0;     ///< of one loop in seconds
  double lastDuration = 0; ///< seconds that the last child of the last loop stays on longer
  int children = 0;

  /// The child that is shown after `seconds`, from 0.
  int childAt(double seconds) const;
  /// Seconds until nothing changes any more; none for one without end.
  std::optional<double> end() const;
  /// "forward, swing", as users read it.
  std::string inWords() const;
};

/// None for a group that isn't animated, or has fewer than two children to take turns.
std::optional<AnimationCourse> animationOf(const fltapi::GroupRecord& group);

/// The animated groups of `file`, in the order of the tree.
std::vector<fltapi::GroupRecord*> animatedGroups(const fltapi::FltFile& file);

/// Shows one child of each of some groups in turn, in the scene only. All children are shown as before when this object
/// goes, so it must go before the scene.
class AnimationPreview {
public:
  AnimationPreview(Sync& scene, const std::vector<fltapi::GroupRecord*>& groups);
  AnimationPreview(const AnimationPreview&) = delete;
  AnimationPreview& operator=(const AnimationPreview&) = delete;
  ~AnimationPreview();

  /// Shows what is on after `seconds`. True when that differs from what was shown before.
  bool show(double seconds);
  /// The scene is gone already: nothing goes back.
  void abandon() { turns_.clear(); }
  /// Nothing will change any more after `seconds`.
  bool isOver(double seconds) const;

private:
  struct Turn {
    osg::ref_ptr<fltapi::GroupRecord> group;
    AnimationCourse course;
    int shown = -1;
  };

  void showAll(const fltapi::GroupRecord& group);

  Sync& scene_;
  std::vector<Turn> turns_;
};

} // namespace nalt
