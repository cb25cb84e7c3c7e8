#include "fltapi/transforms/TransformChain.h"

#include "fltapi/FltFile.h"
#include "fltapi/Host.h"
#include "fltapi/PrimNodeRecord.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fltapi {

namespace {

constexpr std::array stepOpcodes = {opcodes::rotateAboutEdge,  opcodes::translate,          opcodes::scale,
                                    opcodes::rotateAboutPoint, opcodes::rotateScaleToPoint, opcodes::putTransform,
                                    opcodes::generalMatrix};

bool agree(const osg::Matrixd& a, const osg::Matrixd& b)
{
  return std::equal(a.ptr(), a.ptr() + 16, b.ptr(), [](double x, double y) {
    return std::abs(static_cast<double>(static_cast<float>(x)) - y) <= fileTolerance;
  });
}

bool holds(std::span<TransformRecord* const> steps, int opcode)
{
  return std::ranges::any_of(steps, [&](const auto* step) { return step->opcode() == opcode; });
}

/// The steps leave the node and come back behind the matrix in the order given.
void reinstate(PrimNodeRecord& node, MatrixRecord& matrix, const std::vector<TransformRecord*>& steps)
{
  const std::vector<osg::ref_ptr<Record>> held(steps.begin(), steps.end());
  node.removeChildren(held);
  Record* last = &matrix;
  for (const auto& step : held) {
    node.insertChildAfter(step, last);
    last = step;
  }
  node.file()->noteRepair("At least one transformation was corrected.");
}

void repair(PrimNodeRecord& node, MatrixRecord& matrix)
{
  auto steps = transformChain(node);
  if (steps.empty()) return;
  if (agree(composeTransforms(steps), matrix.matrix())) return;
  std::reverse(steps.begin(), steps.end());
  const auto reversed = composeTransforms(steps);
  if (agree(reversed, matrix.matrix())) {
    reinstate(node, matrix, steps);
  } else if (holds(steps, opcodes::rotateAboutEdge) && !holds(steps, opcodes::rotateScaleToPoint) &&
             !holds(steps, opcodes::putTransform)) {
    matrix.setMatrix(reversed);
    reinstate(node, matrix, steps);
  }
}

} // namespace

std::vector<TransformRecord*> transformChain(const PrimNodeRecord& node)
{
  std::vector<TransformRecord*> steps;
  for (auto* child : node.children()) {
    if (std::ranges::find(stepOpcodes, child->opcode()) != stepOpcodes.end()) {
      steps.push_back(static_cast<TransformRecord*>(child));
    }
  }
  return steps;
}

osg::Matrixd composeTransforms(std::span<TransformRecord* const> steps)
{
  osg::Matrixd product;
  for (const auto* step : steps)
    product.preMult(step->matrix());
  return product;
}

void repairTransforms(PrimNodeRecord& node)
{
  if (!node.file()) return;
  for (auto* record : node.findChildren(opcodes::matrix))
    repair(node, static_cast<MatrixRecord&>(*record));
}

} // namespace fltapi
