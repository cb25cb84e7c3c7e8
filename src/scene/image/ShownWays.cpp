#include "scene/image/ShownWays.h"

#include <ranges>
#include <unordered_map>

namespace nalt {

namespace {

struct Count {
  const osg::Node* part; ///< the shared group that it belongs to, or the root
  double ways = 0;       ///< that lead to it
  int nodes = 0;         ///< of a part: how many belong to it
};
using Counts = std::unordered_map<const osg::Node*, Count>;

/// All nodes, each behind everything below it.
std::vector<const osg::Node*> fromBelow(const osg::Group& root, const SharedGroups& shared, Counts& counts)
{
  struct Step {
    const osg::Node* node;
    unsigned nextChild;
  };
  std::vector<const osg::Node*> order;
  counts[&root] = {&root, 1, 1};
  std::vector<Step> way{{&root, 0}};
  while (!way.empty()) {
    auto& [node, next] = way.back();
    const auto* group = node->asGroup();
    if (!group || next == group->getNumChildren()) {
      order.push_back(node);
      way.pop_back();
      continue;
    }
    const osg::Node* child = group->getChild(next++);
    const auto* part = shared.contains(child) ? child : counts.at(node).part;
    if (!counts.try_emplace(child, Count{part}).second) continue;
    ++counts.at(part).nodes;
    way.push_back({child, 0});
  }
  return order;
}

} // namespace

std::vector<const osg::Node*> shownTooOften(const osg::Group& root, const SharedGroups& shared, double limit)
{
  Counts counts;
  const auto order = fromBelow(root, shared, counts);
  std::vector<const osg::Node*> tooOften;
  double steps = 0;
  for (const auto* node : std::views::reverse(order)) {
    const auto& count = counts.at(node);
    if (count.ways == 0) continue; // below what is cut
    const double again = count.ways - 1;
    if (count.part == node && again > 0 && steps + again * count.nodes > limit) {
      tooOften.push_back(node);
      continue;
    }
    steps += again;
    const auto* group = node->asGroup();
    for (unsigned i = 0; group && i < group->getNumChildren(); ++i)
      counts.at(group->getChild(i)).ways += count.ways;
  }
  return tooOften;
}

} // namespace nalt
