#pragma once

#include "fltapi/RecordVisitor.h"

namespace nalt {

class Sync;

/// Takes records with all below them out of the scene.
class RemoveVisitor : public fltapi::RecordVisitor {
public:
  explicit RemoveVisitor(Sync& sync) : sync_(sync) {}

  using fltapi::RecordVisitor::apply;
  void apply(fltapi::PrimNodeRecord& record) override;
  void apply(fltapi::FaceRecord& record) override;
  void apply(fltapi::LightPointRecord& record) override;
  void apply(fltapi::IndexedLightPointRecord& record) override;
  void apply(fltapi::ExternalRecord& record) override;
  void apply(fltapi::InstanceReferenceRecord& record) override;
  void apply(fltapi::InstanceDefinitionRecord& record) override;

private:
  /// For polygons: their geometry stays, so they are cut out of it.
  void removePolygon(fltapi::PrimNodeRecord& record);
  void removeNode(fltapi::PrimNodeRecord& record);

  Sync& sync_;
};

/// Forgets which nodes stand for a record and for all below it, without touching the nodes: they go away together.
class UnassociateChildVisitor : public fltapi::RecordVisitor {
public:
  explicit UnassociateChildVisitor(Sync& sync) : sync_(sync) {}

  using fltapi::RecordVisitor::apply;
  void apply(fltapi::PrimNodeRecord& record) override;
  void apply(fltapi::VertexListRecord&) override {}
  void apply(fltapi::ExternalRecord& record) override;
  void apply(fltapi::InstanceReferenceRecord& record) override;
  void apply(fltapi::InstanceDefinitionRecord& record) override;

private:
  void forget(fltapi::PrimNodeRecord& record);

  Sync& sync_;
};

} // namespace nalt
