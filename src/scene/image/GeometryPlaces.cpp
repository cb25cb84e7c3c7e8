#include "scene/image/GeometryPlaces.h"

#include "fltapi/Opcodes.h"
#include "scene/image/FaceGeometry.h"
#include "scene/image/MeshGeometry.h"
#include "scene/image/SceneNode.h"
#include "scene/image/Sync.h"

#include <osg/Transform>

namespace nalt {

GeometryPlaces::GeometryPlaces(std::uint32_t viewportBits, bool copies, IsSelected isSelected)
    : osg::NodeVisitor(TRAVERSE_ACTIVE_CHILDREN), copies_(copies), isSelected_(std::move(isSelected))
{
  setTraversalMask(viewportBits);
}

bool GeometryPlaces::enters(const osg::Node& node) const
{
  if (copies_) return true;
  if (node.getName() == SceneNode::replicationName) return false;
  const auto* record = Sync::recordOf(node);
  if (!record) return true;
  return record->opcode() != fltapi::opcodes::instanceReference && record->opcode() != fltapi::opcodes::external;
}

void GeometryPlaces::apply(osg::Node& node)
{
  if (!enters(node)) return;
  const auto wasInSelection = inSelection_;
  if (isSelected_ && !inSelection_) {
    const auto* record = Sync::recordOf(node);
    inSelection_ = record && isSelected_(*record);
  }
  traverse(node);
  inSelection_ = wasInSelection;
}

void GeometryPlaces::apply(osg::Transform& transform)
{
  const auto outer = toWorld_;
  transform.computeLocalToWorldMatrix(toWorld_, this);
  apply(static_cast<osg::Node&>(transform));
  toWorld_ = outer;
}

void GeometryPlaces::apply(osg::Drawable& drawable)
{
  if (dynamic_cast<FaceGeometry*>(&drawable) || dynamic_cast<MeshGeometry*>(&drawable))
    places_.push_back({drawable.asGeometry(), toWorld_, inSelection_});
}

} // namespace nalt
