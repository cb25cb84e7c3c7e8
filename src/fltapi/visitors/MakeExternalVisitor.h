#pragma once

#include "fltapi/nodes/ExternalRecord.h"
#include "fltapi/nodes/InstanceRecords.h"

namespace fltapi {

/// Marks a subtree as content of an external file. Content of an external inside it stays marked with its own file.
class MakeExternalVisitor : public RecordVisitor {
public:
  explicit MakeExternalVisitor(FltFile* file) : file_(file) {}

  using RecordVisitor::apply;
  void apply(PrimNodeRecord& node) override
  {
    node.setExternalFile(file_);
    if (node.opcode() != ExternalRecord::code) RecordVisitor::apply(node);
  }
  // What stands in a definition is marked where it stands, all of it and once.
  void apply(InstanceReferenceRecord& reference) override { apply(static_cast<PrimNodeRecord&>(reference)); }
  void apply(InstanceDefinitionRecord& definition) override { apply(static_cast<PrimNodeRecord&>(definition)); }

private:
  FltFile* file_;
};

} // namespace fltapi
