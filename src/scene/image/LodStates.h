#pragma once

#include "fltapi/nodes/GroupRecords.h"

#include <vector>

namespace nalt {

/// Divides distance from the eye by all switch distances of a model into bands, in each of which the same levels of
/// detail show. A band is called a state: state 0 is the farthest one.
class LodStates {
public:
  LodStates() = default;
  /// Distances that differ by less than a ten-thousandth count as one.
  explicit LodStates(std::vector<double> distances);

  /// 0 for a model without levels of detail.
  int count() const { return limits_.size() < 2 ? 0 : static_cast<int>(limits_.size()) - 1; }
  /// Whether the level shows in the middle of the band. Every level shows in a state that doesn't exist.
  bool shows(const fltapi::LodRecord& lod, int state) const;

private:
  std::vector<double> limits_; ///< ascending
};

/// Gathers the switch distances of all levels of detail that it meets.
class CreateLodStatesVisitor : public fltapi::RecordVisitor {
public:
  using fltapi::RecordVisitor::apply;
  using fltapi::RecordVisitor::RecordVisitor;
  void apply(fltapi::LodRecord& lod) override;
  LodStates states() const { return LodStates(distances_); }

private:
  std::vector<double> distances_;
};

} // namespace nalt
