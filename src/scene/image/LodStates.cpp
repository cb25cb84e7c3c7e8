#include "scene/image/LodStates.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using fltapi::LodRecord;

constexpr double sameDistance = 1e-4;

} // namespace

LodStates::LodStates(std::vector<double> distances)
{
  std::erase_if(distances, [](double distance) { return std::isnan(distance); });
  std::ranges::sort(distances);
  for (const auto distance : distances) {
    if (limits_.empty() || distance - limits_.back() > sameDistance) limits_.push_back(distance);
  }
}

bool LodStates::shows(const LodRecord& lod, int state) const
{
  if (state < 0 || state >= count()) return true;
  const auto nearEnd = static_cast<std::size_t>(count() - 1 - state);
  const double middle = (limits_[nearEnd] + limits_[nearEnd + 1]) / 2;
  return lod.get(LodRecord::fields.switchOut) <= middle && middle < lod.get(LodRecord::fields.switchIn);
}

void CreateLodStatesVisitor::apply(LodRecord& lod)
{
  distances_.push_back(lod.get(LodRecord::fields.switchIn));
  distances_.push_back(lod.get(LodRecord::fields.switchOut));
  fltapi::RecordVisitor::apply(lod);
}

} // namespace nalt
