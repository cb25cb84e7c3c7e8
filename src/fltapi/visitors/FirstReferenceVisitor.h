#pragma once

#include "fltapi/nodes/InstanceRecords.h"

namespace fltapi {

/// Finds the first reference to an instance in the tree of one file.
class FirstReferenceVisitor : public RecordVisitor {
public:
  explicit FirstReferenceVisitor(int number) : RecordVisitor(TraversalMode::notExternals), number_(number) {}

  using RecordVisitor::apply;
  void apply(Record& record) override
  {
    if (!result_) RecordVisitor::apply(record);
  }
  void apply(InstanceReferenceRecord& reference) override
  {
    if (result_) return;
    if (reference.instanceNumber() == number_) {
      result_ = &reference;
    } else {
      RecordVisitor::apply(reference);
    }
  }
  InstanceReferenceRecord* result() const { return result_; }

private:
  int number_;
  InstanceReferenceRecord* result_ = nullptr;
};

} // namespace fltapi
