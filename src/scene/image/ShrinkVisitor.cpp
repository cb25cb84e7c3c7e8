#include "scene/image/ShrinkVisitor.h"

#include <osg/Drawable>

namespace nalt {

ShrinkVisitor::ShrinkVisitor(bool shrunk) : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), shrunk_(shrunk)
{
  setNodeMaskOverride(~0U); // what is hidden now may be shown later
}

void ShrinkVisitor::apply(osg::Node& node)
{
  if (visited_.insert(&node).second) traverse(node);
}

void ShrinkVisitor::apply(osg::Drawable& drawable)
{
  auto* shrinkable = dynamic_cast<Shrinkable*>(&drawable);
  if (shrinkable && visited_.insert(&drawable).second) shrinkable->prepareShrunk(shrunk_);
}

} // namespace nalt
