#pragma once

#include "fltapi/nodes/ExternalRecord.h"

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

private:
  FltFile* file_;
};

} // namespace fltapi
