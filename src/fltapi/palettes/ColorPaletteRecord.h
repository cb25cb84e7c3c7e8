#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

/// 1024 colors; a longer record also holds names of colors.
class ColorPaletteRecord : public RecordOf<ColorPaletteRecord, AncillaryRecord, opcodes::colorPalette> {
public:
  using RecordOf::RecordOf;

  static constexpr int colorCount = 1024;
  /// Intensities of a full index (color entry times 128 plus intensity); the entry itself is the color at 127.
  static constexpr int intensityCount = 128;

  /// The entry as it stands; opaque black when `entry` is out of range.
  PackedColor entry(int entry) const;
  void setEntry(int entry, PackedColor color);
  /// The color of a full index: the entry's, each component scaled by intensity / 127 and rounded to the nearest.
  PackedColor colorAt(std::uint32_t fullIndex) const;

  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

} // namespace fltapi
