#include "scene/image/AnimationPreview.h"

#include "fltapi/AllRecords.h"
#include "scene/image/ModUserData.h"
#include "scene/image/Sync.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using fltapi::GroupRecord;

// Flags of a group.
constexpr std::uint32_t forwardBit = 0x40000000;
constexpr std::uint32_t swingBit = 0x20000000;
constexpr std::uint32_t backwardBit = 0x02000000;

constexpr double defaultStep = 0.1; ///< seconds for each child where the group asks for "as fast as possible"

/// Steps of one loop. A swing doesn't show the two ends twice.
int stepsOf(const AnimationCourse& course)
{
  return course.swing ? 2 * course.children - 2 : course.children;
}

double durationOf(const AnimationCourse& course)
{
  return course.duration > 0 ? course.duration : defaultStep * stepsOf(course);
}

} // namespace

int AnimationCourse::childAt(double seconds) const
{
  const int steps = stepsOf(*this);
  const double loop = durationOf(*this);
  const bool over = loops > 0 && seconds >= loop * loops;
  const double inLoop = over ? loop : std::fmod(std::max(seconds, 0.0), loop);
  const int step = std::min(static_cast<int>(inLoop / loop * steps), steps - 1);
  const int place = step < children ? step : steps - step;
  return direction == Direction::forward ? place : children - 1 - place;
}

std::optional<double> AnimationCourse::end() const
{
  if (loops <= 0) return std::nullopt;
  return durationOf(*this) * loops + std::max(lastDuration, 0.0);
}

std::string AnimationCourse::inWords() const
{
  std::string text = direction == Direction::forward ? "forward" : "backward";
  if (swing) text += ", swing";
  if (loops > 0) text += loops == 1 ? ", once" : ", " + std::to_string(loops) + " loops";
  return text;
}

std::optional<AnimationCourse> animationOf(const GroupRecord& group)
{
  const std::uint32_t flags = group.get(GroupRecord::fields.flags);
  AnimationCourse course;
  course.children = group.primaryChildCount();
  course.swing = flags & swingBit;
  // Files of older versions have no more than the bit for swinging.
  if (!(flags & (forwardBit | backwardBit | swingBit)) || course.children < 2) return std::nullopt;
  if (flags & backwardBit && !(flags & forwardBit)) course.direction = AnimationCourse::Direction::backward;
  course.loops = group.get(GroupRecord::fields.loopCount);
  course.duration = group.get(GroupRecord::fields.loopDuration);
  course.lastDuration = group.get(GroupRecord::fields.lastFrameDuration);
  return course;
}

std::vector<GroupRecord*> animatedGroups(const fltapi::FltFile& file)
{
  std::vector<GroupRecord*> groups;
  if (!file.header()) return groups;
  for (auto* record : file.header()->findDescendants(GroupRecord::code, /*followInstances=*/true)) {
    auto* group = static_cast<GroupRecord*>(record);
    if (animationOf(*group) && std::ranges::find(groups, group) == groups.end()) groups.push_back(group);
  }
  return groups;
}

AnimationPreview::AnimationPreview(Sync& scene, const std::vector<GroupRecord*>& groups) : scene_(scene)
{
  for (GroupRecord* group : groups)
    if (const auto course = animationOf(*group)) turns_.push_back({group, *course});
}

AnimationPreview::~AnimationPreview()
{
  for (const Turn& turn : turns_)
    showAll(*turn.group);
}

bool AnimationPreview::show(double seconds)
{
  bool changed = false;
  for (Turn& turn : turns_) {
    const int wanted = turn.course.childAt(seconds);
    if (wanted == turn.shown) continue;
    turn.shown = wanted;
    changed = true;
    int place = 0;
    for (const auto* child : turn.group->primaryChildren())
      scene_.setNodeMask(*child, place++ == wanted ? ModUserData::nodeMaskOf(*child) : 0);
  }
  return changed;
}

bool AnimationPreview::isOver(double seconds) const
{
  return std::ranges::all_of(turns_, [seconds](const Turn& turn) {
    const auto end = turn.course.end();
    return end && seconds >= *end;
  });
}

void AnimationPreview::showAll(const GroupRecord& group)
{
  for (const auto* child : group.primaryChildren())
    scene_.setNodeMask(*child, ModUserData::nodeMaskOf(*child));
}

} // namespace nalt
