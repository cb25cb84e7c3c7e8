#pragma once

#include <osg/Group>

#include <unordered_set>
#include <vector>

namespace nalt {

/// Groups of a scene that several places show.
using SharedGroups = std::unordered_set<const osg::Node*>;

/// Which of `shared` must not be shown anywhere, so that a walk through all that `root` shows, once for each way that
/// leads there, comes again to nodes that it has met at most `limit` times. Parts that show further ones twice would
/// soon be met more often than anybody can count. What is nearer to the root is kept before what is behind it.
std::vector<const osg::Node*> shownTooOften(const osg::Group& root, const SharedGroups& shared, double limit);

} // namespace nalt
