#include "fltapi/palettes/ShaderPaletteRecord.h"

namespace fltapi {

void ShaderPaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  const auto word = loadAt<std::uint32_t>(content + fields.type.offset());
  const auto type = static_cast<std::int32_t>(scope.fromFile ? __builtin_bswap32(word) : word);
  swapFields(fields, content, scope);
  const std::size_t pair = type == glsl ? 1036 : 3084; // two counts, or two profiles
  if (scope.length >= pair + 8) swapRun(content + pair, 4, 2);
}

} // namespace fltapi
