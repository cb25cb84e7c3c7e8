#pragma once

#include "fltapi/nodes/InstanceRecords.h"

#include <algorithm>
#include <vector>

namespace fltapi {

/// Collects every record with one of the opcodes, in order of traversal, and goes on below it.
class FindDescendantsVisitor : public RecordVisitor {
public:
  FindDescendantsVisitor(std::vector<int> opcodes, bool followInstances)
      : opcodes_(std::move(opcodes)), followInstances_(followInstances)
  {}

  using RecordVisitor::apply;
  void apply(Record& record) override
  {
    note(record);
    RecordVisitor::apply(record);
  }
  void apply(InstanceReferenceRecord& reference) override
  {
    note(reference);
    if (followInstances_) RecordVisitor::apply(reference);
  }

  std::vector<Record*> result;

private:
  void note(Record& record)
  {
    if (std::find(opcodes_.begin(), opcodes_.end(), record.opcode()) != opcodes_.end()) result.push_back(&record);
  }

  std::vector<int> opcodes_;
  bool followInstances_;
};

} // namespace fltapi
