#include "scene/image/RemoveVisitor.h"

#include "fltapi/AllRecords.h"
#include "scene/image/Sync.h"

#include <osg/Notify>

namespace nalt {

namespace {

using namespace fltapi;

} // namespace

void RemoveVisitor::apply(PrimNodeRecord& record)
{
  removeNode(record);
}

void RemoveVisitor::removeNode(PrimNodeRecord& record)
{
  const auto* node = sync_.find(record);
  if (!node) return;
  const auto top = node->top;
  sync_.highlight_->placesChanged();
  UnassociateChildVisitor unassociate(sync_);
  record.accept(unassociate);
  OSG_INFO << "After removing associations" << std::endl;
  const auto parents = top->getParents();
  for (auto* parent : parents)
    parent->removeChild(top);
  OSG_INFO << "After removing node" << std::endl;
}

void RemoveVisitor::removePolygon(PrimNodeRecord& record)
{
  sync_.faces_.remove(record);
  for (auto* child : record.primaryChildren())
    child->accept(*this);
}

void RemoveVisitor::apply(FaceRecord& record)
{
  removePolygon(record);
}

void RemoveVisitor::apply(LightPointRecord& record)
{
  removePolygon(record);
  removeNode(record);
}

void RemoveVisitor::apply(IndexedLightPointRecord& record)
{
  removePolygon(record);
  removeNode(record);
}

void RemoveVisitor::apply(ExternalRecord& record)
{
  removeNode(record);
}

void RemoveVisitor::apply(InstanceReferenceRecord& record)
{
  removeNode(record);
}

/// What is shown of it goes with the references.
void RemoveVisitor::apply(InstanceDefinitionRecord& record)
{
  for (auto* reference : sync_.referencesTo(record)) {
    if (auto* node = sync_.find(*reference)) sync_.unlink(*node);
  }
}

void UnassociateChildVisitor::forget(PrimNodeRecord& record)
{
  const auto serial = record.serial();
  sync_.faces_.forget(record);
  sync_.lodsChanged_ = sync_.lods_.erase(serial) || sync_.lodsChanged_;
  sync_.waitingSwitches_.erase(serial);
  if (auto* node = sync_.find(record)) sync_.unlink(*node);
  sync_.nodes_.erase(serial);
}

void UnassociateChildVisitor::apply(PrimNodeRecord& record)
{
  forget(record);
  RecordVisitor::apply(static_cast<Record&>(record));
}

// What these show isn't theirs alone; it goes when nobody else shows it.
void UnassociateChildVisitor::apply(ExternalRecord& record)
{
  forget(record);
}

void UnassociateChildVisitor::apply(InstanceReferenceRecord& record)
{
  forget(record);
}

void UnassociateChildVisitor::apply(InstanceDefinitionRecord& record)
{
  apply(static_cast<PrimNodeRecord&>(record));
}

} // namespace nalt
