#pragma once

#include <osg/Node>

#include <string>

namespace nalt::tests {

/// What a scene shows, as a text that is equal for scenes which show the same: kinds of nodes, records, matrices,
/// masks, switch values, and of each polygon its state and its corners. The order of siblings and how polygons are
/// spread over geometries of one state don't count.
std::string textOf(const osg::Node& scene);

} // namespace nalt::tests
