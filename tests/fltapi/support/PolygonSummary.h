#pragma once

#include <string>
#include <vector>

namespace nalt::tests {

/// What OpenSceneGraph's reader finds in a model file: one line for each triangle with its corners in the world,
/// sorted. Empty when it can't read the file.
std::vector<std::string> polygonSummary(const std::string& path);

} // namespace nalt::tests
