#include "scene/image/FaceCullCallback.h"

#include "scene/image/FaceGeometry.h"

#include <osg/NodeVisitor>
#include <osg/RenderInfo>
#include <osg/State>

namespace nalt {

bool FaceCullCallback::cull(osg::NodeVisitor* visitor, osg::Drawable* drawable, osg::RenderInfo* info) const
{
  const auto bits = visitor ? visitor->getTraversalMask() : ViewportTable::allBits;
  if (info && info->getState()) viewports_->setBits(info->getState()->getContextID(), bits);
  const auto* geometry = dynamic_cast<const FaceGeometry*>(drawable);
  return geometry && !(geometry->visibleMask() & bits);
}

} // namespace nalt
