#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct MaterialFields : FieldTable {
  Field<std::int32_t> index{*this, 4, "material index", all(-1)};
  Field<Text<12>> name{*this, 8, "name"};
  Field<std::uint32_t> flags{*this, 20, "flags"};
  Field<osg::Vec3f> ambient{*this, 24, "ambient", all(0.5)};
  Field<osg::Vec3f> diffuse{*this, 36, "diffuse", all(0.5)};
  Field<osg::Vec3f> specular{*this, 48, "specular", all(0.5)};
  Field<osg::Vec3f> emissive{*this, 60, "emissive"};
  Field<float> shininess{*this, 72, "shininess", all(10)};
  Field<float> alpha{*this, 76, "alpha", all(1)};
};

class MaterialPaletteRecord
    : public RecordOf<MaterialPaletteRecord, AncillaryRecord, opcodes::materialPalette, MaterialFields> {
public:
  using RecordOf::RecordOf;
  std::string getName() const override { return get(fields.name); }
  bool setName(const std::string& name, bool) override
  {
    set(fields.name, name);
    return true;
  }
};

/// The 64 materials of old files, carried as bytes.
class OldMaterialPaletteRecord
    : public RecordOf<OldMaterialPaletteRecord, AncillaryRecord, opcodes::oldMaterialPalette> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
