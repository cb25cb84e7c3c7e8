#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct TexturePaletteFields : FieldTable {
  Field<Text<200>> fileName{*this, 4, "file name"};
  Field<std::int32_t> index{*this, 204, "pattern index"};
  Field<std::int32_t> locationX{*this, 208, "x location"};
  Field<std::int32_t> locationY{*this, 212, "y location"};
};

class TexturePaletteRecord
    : public RecordOf<TexturePaletteRecord, AncillaryRecord, opcodes::texturePalette, TexturePaletteFields> {
public:
  using RecordOf::RecordOf;
  std::string getName() const override { return get(fields.fileName); }
  std::size_t size(int version) const override { return version < 14 ? 96 : 216; }
  /// Files before version 14 have a shorter name and the numbers directly behind it.
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

} // namespace fltapi
