#include "fltapi/palettes/LightPointPaletteRecords.h"

namespace fltapi {

void LightPointAnimationPaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  constexpr std::size_t sequenceStart = 1340;
  swapFields(fields, content, scope);
  if (scope.length > sequenceStart) swapRun(content + sequenceStart, 4, (scope.length - sequenceStart) / 4);
}

} // namespace fltapi
