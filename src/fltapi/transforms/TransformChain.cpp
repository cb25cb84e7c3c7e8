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

/// Longer chains don't come from a modeller.
constexpr std::size_t longestChain = 1000;

/// The steps leave the node and come back behind the matrix in the order given.
void reinstate(PrimNodeRecord& node, Record& matrix, const std::vector<TransformRecord*>& steps)
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

/// Whether steps that don't give the matrix are right all the same: some programs compute the rotation about an edge
/// wrongly.
bool trustedOverMatrix(std::span<TransformRecord* const> steps)
{
  return holds(steps, opcodes::rotateAboutEdge) && !holds(steps, opcodes::rotateScaleToPoint) &&
         !holds(steps, opcodes::putTransform);
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
  auto steps = transformChain(node);
  if (!node.file() || steps.empty() || steps.size() > longestChain) return;
  std::vector<TransformRecord*> backwards(steps.rbegin(), steps.rend());
  auto product = composeTransforms(steps);
  auto backwardsProduct = composeTransforms(backwards);

  // Each matrix of the node sees the chain as the one before left it.
  Record* turnedFor = nullptr;
  for (auto* child : node.children()) {
    if (child->opcode() != opcodes::matrix) continue;
    auto& matrix = static_cast<MatrixRecord&>(*child);
    if (agree(product, matrix.matrix())) continue;
    if (!agree(backwardsProduct, matrix.matrix())) {
      if (!trustedOverMatrix(steps)) continue;
      matrix.setMatrix(backwardsProduct);
    }
    std::swap(steps, backwards);
    std::swap(product, backwardsProduct);
    turnedFor = &matrix;
  }
  if (turnedFor) reinstate(node, *turnedFor, steps);
}

} // namespace fltapi
