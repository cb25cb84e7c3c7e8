#include "fltapi/nodes/OtherNodes.h"

namespace fltapi {

void CurveRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  constexpr std::size_t pointsStart = 32;
  swapFields(fields, content, scope);
  if (scope.length > pointsStart) swapRun(content + pointsStart, 8, (scope.length - pointsStart) / 8);
}

} // namespace fltapi
