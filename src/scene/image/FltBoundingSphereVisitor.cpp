#include "scene/image/FltBoundingSphereVisitor.h"

#include "fltapi/AllRecords.h"

#include <utility>

namespace nalt {

namespace {

using namespace fltapi;

/// The record's own movement, as the scene shows it.
osg::Matrixd movementOf(const PrimNodeRecord& record)
{
  const auto matrix = record.localMatrix();
  return record.opcode() == opcodes::dof ? static_cast<const DofRecord&>(record).matrix() * matrix : matrix;
}

osg::Matrixd replicationStep(const PrimNodeRecord& record)
{
  osg::Matrixd step;
  for (const auto* child : record.findChildren(opcodes::matrix))
    step = step * static_cast<const MatrixRecord*>(child)->matrix();
  return step;
}

} // namespace

template <class Walk>
void FltBoundingSphereVisitor::within(PrimNodeRecord& record, const Walk& walk)
{
  if (record.userData() && record.userData()->hidden()) return;
  const auto before = matrix_;
  if (std::exchange(started_, true)) matrix_ = movementOf(record) * matrix_;
  walk();
  matrix_ = before;
}

void FltBoundingSphereVisitor::apply(PrimNodeRecord& record)
{
  within(record, [&] {
    auto* replicate = record.opcode() == opcodes::group ? record.findChild<ReplicateRecord>() : nullptr;
    if (!replicate) {
      RecordVisitor::apply(static_cast<Record&>(record));
      return;
    }
    FltBoundingSphereVisitor content;
    content.started_ = true;
    record.traverse(content);
    if (!content.box_.valid()) return;
    const auto step = replicationStep(record);
    auto matrix = matrix_;
    for (int copy = 0; copy <= replicate->count(); ++copy, matrix = step * matrix) {
      for (unsigned corner = 0; corner < 8; ++corner)
        box_.expandBy(content.box_.corner(corner) * matrix);
    }
  });
}

void FltBoundingSphereVisitor::apply(SwitchRecord& record)
{
  within(record, [&] {
    int index = 0;
    for (auto* child : record.primaryChildren()) {
      if (record.shows(index++)) child->accept(*this);
    }
  });
}

void FltBoundingSphereVisitor::apply(MeshRecord& record)
{
  within(record, [&] {
    const auto* pool = record.findChild<LocalVertexPoolRecord>();
    for (int i = 0; pool && i < pool->vertexCount(); ++i) {
      const auto at = pool->offsetOf(i, LocalVertexPoolRecord::position);
      if (at == 0) return;
      box_.expandBy(FieldTraits<osg::Vec3d>::load(pool->data() + at) * matrix_);
    }
  });
}

void FltBoundingSphereVisitor::apply(VertexListRecord& record)
{
  for (const auto& vertex : record.vertices())
    box_.expandBy(vertex->position() * matrix_);
}

void FltBoundingSphereVisitor::apply(InstanceReferenceRecord& record)
{
  within(record, [&] { RecordVisitor::apply(record); });
}

} // namespace nalt
