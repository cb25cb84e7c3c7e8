#include "fltapi/visitors/FltBoundingSphereVisitor.h"

#include "fltapi/FltFile.h"
#include "fltapi/nodes/InstanceRecords.h"

#include <algorithm>
#include <limits>
#include <utility>

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
  count(list.vertexCount());
}

void FltBoundingSphereVisitor::count(int vertices)
{
  vertexCount_ += std::min(vertices, std::numeric_limits<int>::max() - vertexCount_);
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
  constexpr int mostWalked = 100'000;
  matrices_.push_back(reference.localMatrix() * matrices_.back());
  if (instancesWalked_ < mostWalked) {
    ++instancesWalked_;
    RecordVisitor::apply(reference);
  } else {
    addAsWhole(reference);
  }
  matrices_.pop_back();
}

void FltBoundingSphereVisitor::addAsWhole(InstanceReferenceRecord& reference)
{
  const auto* definition =
      reference.file() ? reference.file()->instanceDefinition(reference.instanceNumber()) : nullptr;
  if (!definition) return;
  const auto [entry, isNew] = extents_.try_emplace(definition);
  if (isNew) {
    auto matrices = std::exchange(matrices_, {osg::Matrixd()});
    const auto box = std::exchange(box_, {});
    const int vertices = std::exchange(vertexCount_, 0);
    RecordVisitor::apply(reference);
    entry->second = {std::exchange(box_, box), std::exchange(vertexCount_, vertices)};
    matrices_ = std::move(matrices);
  }
  const auto& extent = entry->second;
  count(extent.vertexCount);
  if (!extent.box.valid()) return;
  for (unsigned corner = 0; corner < 8; ++corner)
    box_.expandBy(extent.box.corner(corner) * matrices_.back());
}

} // namespace fltapi
