#pragma once

#include "fltapi/transforms/TransformRecords.h"

#include <span>

namespace fltapi {

class PrimNodeRecord;

/// The steps of a node, in child order.
std::vector<TransformRecord*> transformChain(const PrimNodeRecord& node);
/// All steps in one matrix: each one is multiplied in from the left, so the last of the list acts first.
osg::Matrixd composeTransforms(std::span<TransformRecord* const> steps);

/// For a node that was just read: when the steps don't give the node's matrix but do so in reverse order, they are
/// turned round; when they don't and hold a rotation about an edge, whose matrix some programs compute wrongly, the
/// matrix takes their value. Both count as a change of the document and are told to the user.
void repairTransforms(PrimNodeRecord& node);

} // namespace fltapi
