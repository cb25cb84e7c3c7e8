#include "fltapi/palettes/TexturePaletteRecord.h"

namespace fltapi {

void TexturePaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  constexpr int firstVersionWithLongName = 14;
  constexpr std::size_t oldNumbers = 84;
  constexpr std::size_t oldLength = 96;
  constexpr std::size_t numbersSize = oldLength - oldNumbers;
  if (scope.fromFile && scope.version < firstVersionWithLongName && scope.length == oldLength) {
    std::memcpy(content + fields.index.offset(), content + oldNumbers, numbersSize);
    std::memset(content + oldNumbers, 0, numbersSize);
    swapRun(content + fields.index.offset(), 4, 3);
    return;
  }
  swapFields(fields, content, scope);
}

} // namespace fltapi
