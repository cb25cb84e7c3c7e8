#include "scene/view/picking/SceneWalk.h"

#include "scene/image/Sync.h"

#include <ranges>

namespace nalt {

SceneWalk::SceneWalk(std::uint32_t bits) : osg::NodeVisitor(TRAVERSE_ACTIVE_CHILDREN)
{
  setTraversalMask(bits);
}

void SceneWalk::apply(osg::Node& node)
{
  if (!stopped_ && mayTouch(node.getBound())) traverse(node);
}

void SceneWalk::apply(osg::Transform& transform)
{
  if (stopped_ || !mayTouch(transform.getBound())) return;
  const auto before = matrix_;
  transform.computeLocalToWorldMatrix(matrix_, this);
  if (matrixChanged()) traverse(transform);
  matrix_ = before;
  matrixChanged();
}

void SceneWalk::apply(osg::Drawable& drawable)
{
  if (!stopped_ && mayTouch(drawable.getBoundingBox())) visit(drawable);
}

fltapi::PrimNodeRecord* SceneWalk::ownerInPath(SelectionMode family) const
{
  for (const auto* node : std::views::reverse(getNodePath())) {
    auto* record = Sync::recordOf(*node);
    if (record && selectionModeOf(record->opcode()) == family) return record;
  }
  return nullptr;
}

} // namespace nalt
