#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct ShaderPaletteFields : FieldTable {
  Field<std::int32_t> index{*this, 4, "index"};
  Field<std::int32_t> type{*this, 8, "type"};
  Field<Text<1024>> name{*this, 12, "name"};
};

/// Behind the fields: for GLSL the counts and the names of vertex and fragment programs, for Cg two file names, two
/// profiles and two entry points.
class ShaderPaletteRecord
    : public RecordOf<ShaderPaletteRecord, AncillaryRecord, opcodes::shaderPalette, ShaderPaletteFields> {
public:
  using RecordOf::RecordOf;
  enum Type : std::int32_t { cg = 0, cgfx = 1, glsl = 2 };

  std::size_t size(int version) const override { return version < 1600 ? 0 : length(); }
  std::string getName() const override { return get(fields.name); }
  bool setName(const std::string& name, bool = true) override
  {
    set(fields.name, name);
    return true;
  }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

} // namespace fltapi
