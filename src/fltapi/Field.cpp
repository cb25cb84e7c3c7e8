#include "fltapi/Field.h"

namespace fltapi {

void swapFields(const FieldTable& table, std::byte* content, const SwapScope& scope)
{
  for (const auto& row : table.rows()) {
    if (row.width == 1 || row.end() > scope.length) continue;
    if (scope.fromFile && scope.version < row.firstVersion) continue;
    swapRun(content + row.offset, row.width, row.count);
  }
}

namespace {

void storeNumber(std::byte* p, const FieldInfo& row, double value)
{
  if (row.kind == FieldKind::real) {
    if (row.width == 4) {
      storeAt(p, static_cast<float>(value));
    } else {
      storeAt(p, value);
    }
    return;
  }
  const auto bits = static_cast<std::int64_t>(value);
  std::memcpy(p, &bits, row.width);
}

} // namespace

void fillDefaults(const FieldTable& table, std::byte* content, std::size_t length)
{
  for (const auto& row : table.rows()) {
    if (row.kind == FieldKind::text || row.end() > length) continue;
    for (std::size_t i = 0; i < row.count; ++i) {
      const auto value = row.initial[i < row.initial.size() ? i : 0];
      if (value != 0) storeNumber(content + row.offset + i * row.width, row, value);
    }
  }
}

} // namespace fltapi
