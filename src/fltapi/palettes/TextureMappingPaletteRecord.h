#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct TextureMappingFields : FieldTable {
  Field<std::int32_t> index{*this, 8, "index"};
  Field<Text<20>> name{*this, 12, "name"};
  Field<std::int32_t> type{*this, 32, "type"};
  Field<std::int32_t> warped{*this, 36, "warped"};
  Field<std::array<double, 16>> matrix{*this, 40, "transformation matrix"};
};

/// How texture coordinates of polygons come from their positions. Behind the matrix stand the parameters of the type
/// and, for a warped mapping, the points of the warp.
class TextureMappingPaletteRecord : public RecordOf<TextureMappingPaletteRecord, AncillaryRecord,
                                                    opcodes::textureMappingPalette, TextureMappingFields> {
public:
  using RecordOf::RecordOf;
  enum Type : std::int32_t {
    none = 0,
    threePointPut = 1,
    fourPointPut = 2,
    spherical = 4,
    radial = 5,
    environment = 6
  };

  /// Length of a record of that kind in that format version.
  static std::size_t lengthOf(int type, bool warped, int version);

  std::string getName() const override { return get(fields.name); }
  bool setName(const std::string& name, bool) override
  {
    set(fields.name, name);
    return true;
  }
  std::size_t size(int version) const override;
  /// Everything but the name.
  bool equals(const Record& other) const override;
  /// Brings the length in line with type and warp.
  bool read(RecordReader& reader) override;
  void prepareForFile(std::byte* content, const Output& output) const override;
  void swapContent(std::byte* content, const SwapScope& scope) const override;

private:
  std::size_t currentLength() const;
};

} // namespace fltapi
