#include "scene/view/SmallFeatureCullingCallback.h"

#include <osgUtil/CullVisitor>

namespace nalt {

void SmallFeatureCullingCallback::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
  osgUtil::CullVisitor* cull = visitor->asCullVisitor();
  if (!cull || cull->getModelViewCullingStack().empty()) {
    traverse(node, visitor);
    return;
  }
  // The set is found anew after the traversal: nested transforms may have moved the stack.
  const osg::CullingSet::Mask before = cull->getCurrentCullingSet().getCullingMask();
  cull->getCurrentCullingSet().setCullingMask(before | osg::CullingSet::SMALL_FEATURE_CULLING);
  traverse(node, visitor);
  cull->getCurrentCullingSet().setCullingMask(before);
}

} // namespace nalt
