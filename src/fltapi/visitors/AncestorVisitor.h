#pragma once

#include "fltapi/Record.h"
#include "fltapi/RecordVisitor.h"

namespace fltapi {

/// Finds out whether `target` is reached from where the visitor starts, instances included.
class AncestorVisitor : public RecordVisitor {
public:
  explicit AncestorVisitor(const Record& target) : target_(&target) {}

  using RecordVisitor::apply;
  void apply(Record& record) override
  {
    if (found_) return;
    found_ = &record == target_;
    if (!found_) RecordVisitor::apply(record);
  }
  bool found() const { return found_; }

private:
  const Record* target_;
  bool found_ = false;
};

} // namespace fltapi
