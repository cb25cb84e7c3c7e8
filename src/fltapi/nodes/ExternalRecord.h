#pragma once

#include "fltapi/FltFile.h"
#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct ExternalFields : FieldTable {
  Field<Text<200>> path{*this, 4, "path"};
  Field<std::uint32_t> flags{*this, 208, "flags", {}, 14};
  Field<std::int16_t> viewAsBoundingBox{*this, 212, "view as bounding box"};
};

/// Shows the content of another file. That content hangs below the record in memory and never goes into this file.
class ExternalRecord : public RecordOf<ExternalRecord, PrimNodeRecord, opcodes::external, ExternalFields> {
public:
  using RecordOf::RecordOf;

  static constexpr std::uint32_t paletteBits = 0xff000000;

  /// A set bit means that the content uses its own file's palette, a clear one that the referencing file's counts.
  enum OwnPalette : std::uint32_t {
    ownColors = 0x80000000,
    ownMaterials = 0x40000000,
    ownTextures = 0x20000000,
    ownLineStyles = 0x10000000,
    ownSounds = 0x08000000,
    ownLightSources = 0x04000000,
    ownLightPoints = 0x02000000,
    ownShaders = 0x01000000,
  };

  bool hasId() const override { return false; }
  /// The path as the record holds it.
  std::string getName() const override { return get(fields.path); }
  bool uses(OwnPalette palette) const { return get(fields.flags) & palette; }

  /// The file that is shown, null while it isn't loaded.
  FltFile* referencedFile() const { return referencedFile_.get(); }
  /// The path under which that file was found.
  const std::string& resolvedPath() const { return resolvedPath_; }
  /// Hangs the content of `file` below the record; null takes away what hangs there. References share the content.
  void show(FltFile* file, const std::string& resolvedPath);

protected:
  bool writeChildren(Output&) const override { return true; }

private:
  osg::ref_ptr<FltFile> referencedFile_;
  std::string resolvedPath_;
};

} // namespace fltapi
