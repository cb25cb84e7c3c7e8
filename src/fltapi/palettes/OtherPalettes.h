#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct LightSourcePaletteFields : FieldTable {
  Field<std::int32_t> index{*this, 4, "index"};
  Field<Text<20>> name{*this, 16, "name"};
  Field<osg::Vec4f> ambient{*this, 40, "ambient"};
  Field<osg::Vec4f> diffuse{*this, 56, "diffuse"};
  Field<osg::Vec4f> specular{*this, 72, "specular"};
  Field<std::int32_t> type{*this, 88, "type"};
  Field<float> spotExponent{*this, 132, "spot exponent"};
  Field<float> spotCutoff{*this, 136, "spot cutoff"};
  Field<float> yaw{*this, 140, "yaw"};
  Field<float> pitch{*this, 144, "pitch"};
  Field<float> constantAttenuation{*this, 148, "constant attenuation"};
  Field<float> linearAttenuation{*this, 152, "linear attenuation"};
  Field<float> quadraticAttenuation{*this, 156, "quadratic attenuation"};
  Field<std::int32_t> modelingFlag{*this, 160, "modeling flag"};
};

class LightSourcePaletteRecord : public RecordOf<LightSourcePaletteRecord, AncillaryRecord, opcodes::lightSourcePalette,
                                                 LightSourcePaletteFields> {
public:
  using RecordOf::RecordOf;
  std::string getName() const override { return get(fields.name); }
};

struct LineStyleFields : FieldTable {
  Field<std::int16_t> index{*this, 4, "index"};
  Field<std::uint16_t> pattern{*this, 6, "pattern mask", all(65535)};
  Field<std::int32_t> width{*this, 8, "line width"};
};

class LineStylePaletteRecord
    : public RecordOf<LineStylePaletteRecord, AncillaryRecord, opcodes::lineStylePalette, LineStyleFields> {
public:
  using RecordOf::RecordOf;
};

/// A key table of sound files, or a piece of its data; carried as bytes.
class SoundPaletteRecord : public RecordOf<SoundPaletteRecord, AncillaryRecord, opcodes::soundPalette> {
public:
  using RecordOf::RecordOf;
};

/// A key table of links, or a piece of its data; carried as bytes.
class LinkagePaletteRecord : public RecordOf<LinkagePaletteRecord, AncillaryRecord, opcodes::linkagePalette> {
public:
  using RecordOf::RecordOf;
};

struct NameTableFields : FieldTable {
  Field<std::int32_t> count{*this, 4, "number of names"};
  Field<std::uint16_t> nextIndex{*this, 8, "next index"};
};

/// Behind the fields: for each name a length, an index and the text.
class NameTableRecord : public RecordOf<NameTableRecord, AncillaryRecord, opcodes::nameTable, NameTableFields> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

/// Ten stored views and ten stored construction planes.
class EyepointTrackplanePaletteRecord
    : public RecordOf<EyepointTrackplanePaletteRecord, AncillaryRecord, opcodes::eyepointTrackplanePalette> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

} // namespace fltapi
