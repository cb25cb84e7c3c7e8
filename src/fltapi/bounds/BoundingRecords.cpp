#include "fltapi/bounds/BoundingRecords.h"

namespace fltapi {

void BoundingConvexHullRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  constexpr std::size_t trianglesStart = 8;
  swapFields(fields, content, scope);
  if (scope.length > trianglesStart) swapRun(content + trianglesStart, 8, (scope.length - trianglesStart) / 8);
}

} // namespace fltapi
