#pragma once

#include "fltapi/RecordVisitor.h"

namespace nalt {

class Sync;

/// Makes the scene nodes of records, or brings those that are there up to date; with traversal mode `none` those of the
/// visited record alone.
class TranslateVisitor : public fltapi::RecordVisitor {
public:
  TranslateVisitor(Sync& sync, fltapi::TraversalMode mode) : fltapi::RecordVisitor(mode), sync_(sync) {}

  using fltapi::RecordVisitor::apply;
  /// Nodes without a look of their own, such as road constructions, become plain groups.
  void apply(fltapi::PrimNodeRecord& record) override;
  void apply(fltapi::HeaderRecord& record) override;
  void apply(fltapi::LodRecord& record) override;
  void apply(fltapi::SwitchRecord& record) override;
  void apply(fltapi::ObjectRecord& record) override;
  void apply(fltapi::FaceRecord& record) override;
  void apply(fltapi::MeshRecord& record) override;
  void apply(fltapi::LightPointRecord& record) override;
  void apply(fltapi::IndexedLightPointRecord& record) override;
  void apply(fltapi::LightPointSystemRecord& record) override;
  void apply(fltapi::ExternalRecord& record) override;
  void apply(fltapi::InstanceReferenceRecord& record) override;
  void apply(fltapi::InstanceDefinitionRecord& record) override;
  // What belongs to a node and is translated with it.
  void apply(fltapi::VertexListRecord&) override {}
  void apply(fltapi::MorphVertexListRecord&) override {}
  void apply(fltapi::LocalVertexPoolRecord&) override {}
  void apply(fltapi::MeshPrimitiveRecord&) override {}
  void apply(fltapi::OldVertexRecord&) override {}
  void apply(fltapi::OldVertexColorRecord&) override {}
  void apply(fltapi::OldVertexColorNormalRecord&) override {}

private:
  /// False when there is nothing above the record to hang it below.
  bool translateNode(fltapi::PrimNodeRecord& record);
  void goOn(fltapi::PrimNodeRecord& record);
  void maskPolygon(const fltapi::PrimNodeRecord& record);
  void translateLightPoint(fltapi::PrimNodeRecord& record);
  void retranslateFaces(fltapi::PrimNodeRecord& parent);

  Sync& sync_;
};

} // namespace nalt
