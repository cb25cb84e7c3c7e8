#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct VertexPaletteFields : FieldTable {
  Field<std::uint32_t> paletteLength{*this, 4, "palette length", all(8)};
};

/// Stands in front of the vertices of a file. In memory polygons own their vertices and the palette is empty; it is
/// laid out anew whenever a file is written.
class VertexPaletteRecord
    : public RecordOf<VertexPaletteRecord, AncillaryRecord, opcodes::vertexPalette, VertexPaletteFields> {
public:
  using RecordOf::RecordOf;

  /// Takes the vertices that a load left beside the palette out of the tree.
  void clear();

  /// The palette and all vertices of the output; those stand behind the first palette only.
  bool write(Output& output) const override;
  void prepareForFile(std::byte* content, const Output& output) const override;
};

} // namespace fltapi
