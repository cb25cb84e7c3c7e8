#include "fltapi/visitors/FltBoundingSphereVisitor.h"

#include "fltapi/nodes/InstanceRecords.h"

namespace fltapi {

void FltBoundingSphereVisitor::apply(PrimNodeRecord& node)
{
  if (node.userData() && node.userData()->hidden()) return;
  matrices_.push_back(node.localMatrix() * matrices_.back());
  RecordVisitor::apply(node);
  matrices_.pop_back();
}

void FltBoundingSphereVisitor::apply(VertexListRecord& list)
{
  for (const auto& vertex : list.vertices())
    box_.expandBy(vertex->position() * matrices_.back());
  vertexCount_ += list.vertexCount();
}

void FltBoundingSphereVisitor::apply(SwitchRecord& node)
{
  if (node.userData() && node.userData()->hidden()) return;
  matrices_.push_back(node.localMatrix() * matrices_.back());
  for (int i = 0; i < node.primaryChildCount(); ++i) {
    if (node.shows(i)) node.primaryChildAt(i)->accept(*this);
  }
  matrices_.pop_back();
}

void FltBoundingSphereVisitor::apply(InstanceReferenceRecord& reference)
{
  matrices_.push_back(reference.localMatrix() * matrices_.back());
  RecordVisitor::apply(reference);
  matrices_.pop_back();
}

} // namespace fltapi
