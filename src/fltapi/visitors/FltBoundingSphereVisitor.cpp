#include "fltapi/visitors/FltBoundingSphereVisitor.h"

#include "fltapi/FltFile.h"
#include "fltapi/nodes/ExternalRecord.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/nodes/InstanceRecords.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace fltapi {

namespace {

constexpr int mostWalked = 1'000'000; // references and vertices

bool isHidden(const PrimNodeRecord& node)
{
  return node.userData() && node.userData()->hidden();
}

} // namespace

void FltBoundingSphereVisitor::apply(PrimNodeRecord& node)
{
  if (isHidden(node)) return;
  matrices_.push_back(node.localMatrix() * matrices_.back());
  RecordVisitor::apply(node);
  matrices_.pop_back();
}

void FltBoundingSphereVisitor::apply(VertexListRecord& list)
{
  for (const auto& vertex : list.vertices())
    box_.expandBy(vertex->position() * matrices_.back());
  count(list.vertexCount());
  if (references_ > 0 && walked_ < mostWalked) walked_ += list.vertexCount();
}

void FltBoundingSphereVisitor::count(int vertices)
{
  vertexCount_ += std::min(vertices, std::numeric_limits<int>::max() - vertexCount_);
}

void FltBoundingSphereVisitor::apply(SwitchRecord& node)
{
  if (isHidden(node)) return;
  matrices_.push_back(node.localMatrix() * matrices_.back());
  for (int i = 0; i < node.primaryChildCount(); ++i) {
    if (node.shows(i)) node.primaryChildAt(i)->accept(*this);
  }
  matrices_.pop_back();
}

void FltBoundingSphereVisitor::apply(InstanceReferenceRecord& reference)
{
  const auto* definition =
      reference.file() ? reference.file()->instanceDefinition(reference.instanceNumber()) : nullptr;
  if (definition) addShown(reference, *definition, [&] { RecordVisitor::apply(reference); });
}

void FltBoundingSphereVisitor::apply(ExternalRecord& reference)
{
  const auto* header = reference.referencedFile() ? reference.referencedFile()->header() : nullptr;
  if (header) addShown(reference, *header, [&] { reference.traverse(*this); });
}

template <class Walk>
void FltBoundingSphereVisitor::addShown(PrimNodeRecord& reference, const Record& shown, const Walk& walk)
{
  if (isHidden(reference)) return;
  matrices_.push_back(reference.localMatrix() * matrices_.back());
  ++references_;
  if (walked_ < mostWalked) {
    ++walked_;
    walk();
  } else {
    const auto& extent = extentOf(shown, walk);
    count(extent.vertexCount);
    for (unsigned corner = 0; extent.box.valid() && corner < 8; ++corner)
      box_.expandBy(extent.box.corner(corner) * matrices_.back());
  }
  --references_;
  matrices_.pop_back();
}

template <class Walk>
const FltBoundingSphereVisitor::Extent& FltBoundingSphereVisitor::extentOf(const Record& shown, const Walk& walk)
{
  const auto [entry, isNew] = extents_.try_emplace(&shown);
  if (isNew) {
    auto matrices = std::exchange(matrices_, {osg::Matrixd()});
    const auto box = std::exchange(box_, {});
    const int vertices = std::exchange(vertexCount_, 0);
    walk();
    entry->second = {std::exchange(box_, box), std::exchange(vertexCount_, vertices)};
    matrices_ = std::move(matrices);
  }
  return entry->second;
}

} // namespace fltapi
