#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/visitors/VertexVisitors.h"

#include <set>

namespace fltapi {

osg::Matrixd PrimNodeRecord::localMatrix() const
{
  osg::Matrixd product;
  if (holdsSubfaces()) return product;
  if (opcode() == opcodes::group && findChild<ReplicateRecord>()) return product;
  for (const auto* child : children_) {
    if (child->opcode() == opcodes::matrix) product = product * static_cast<const MatrixRecord*>(child)->matrix();
  }
  return product;
}

osg::Matrixd PrimNodeRecord::worldMatrix() const
{
  osg::Matrixd product;
  std::set<const PrimNodeRecord*> definitions;
  for (const auto* node = this; node;) {
    product = product * node->localMatrix();
    const PrimNodeRecord* up = node->parent();
    if (!up && node->opcode() == opcodes::instanceDefinition && node->file() && definitions.insert(node).second) {
      // The body of an instance stands where it is first referred to.
      up = node->file()->firstReferenceTo(static_cast<const InstanceDefinitionRecord*>(node)->instanceNumber());
    }
    node = up;
  }
  return product;
}

osg::Vec3d PrimNodeRecord::center()
{
  CalculatePivotVisitor visitor;
  accept(visitor);
  return visitor.mean();
}

void PrimNodeRecord::transformVertices(const osg::Matrixd& matrix)
{
  TransformVerticesVisitor visitor(matrix);
  accept(visitor);
}

} // namespace fltapi
