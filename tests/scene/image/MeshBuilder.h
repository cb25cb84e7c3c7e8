#pragma once

#include "tests/scene/image/TreeBuilder.h"

#include <cstdint>
#include <vector>

namespace nalt::tests {

/// Gives `mesh` a pool with positions and packed colors.
void setPool(TreeBuilder& build, fltapi::MeshRecord& mesh, const std::vector<osg::Vec3d>& positions,
             fltapi::PackedColor color = red);
/// Adds a primitive with four bytes to the index.
void addPrimitive(TreeBuilder& build, fltapi::MeshRecord& mesh, int type, const std::vector<std::uint32_t>& indices);

} // namespace nalt::tests
