#include "fltapi/palettes/LightPointPaletteRecords.h"

#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"

namespace fltapi {

void LightPointAnimationPaletteRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  constexpr std::size_t sequenceStart = 1340;
  swapFields(fields, content, scope);
  if (scope.length > sequenceStart) swapRun(content + sequenceStart, 4, (scope.length - sequenceStart) / 4);
}

// Gathered without the caches of the tree: a file is written while others may look at it.
LightPointPalettes::LightPointPalettes(const FltFile& file)
{
  if (!file.header()) return;
  for (const auto* child : file.header()->children()) {
    if (child->opcode() == opcodes::lightPointAppearancePalette) {
      const auto* entry = static_cast<const LightPointAppearancePaletteRecord*>(child);
      appearances_.emplace(entry->get(entry->fields.index), entry);
    } else if (child->opcode() == opcodes::lightPointAnimationPalette) {
      const auto* entry = static_cast<const LightPointAnimationPaletteRecord*>(child);
      animations_.emplace(entry->get(entry->fields.index), entry);
    }
  }
}

const LightPointAppearancePaletteRecord* LightPointPalettes::appearance(int index) const
{
  const auto found = appearances_.find(index);
  return found == appearances_.end() ? nullptr : found->second;
}

const LightPointAnimationPaletteRecord* LightPointPalettes::animation(int index) const
{
  const auto found = animations_.find(index);
  return found == animations_.end() ? nullptr : found->second;
}

} // namespace fltapi
