#pragma once

#include <cstdint>
#include <map>
#include <osg/Program>
#include <osg/ref_ptr>
#include <utility>

namespace fltapi {
class FltFile;
class ShaderPaletteRecord;
} // namespace fltapi

namespace nalt {

/// The GLSL programs of a scene. Programs of other languages aren't drawn.
class Shaders {
public:
  /// Null without such a palette entry, for other languages, and when a source file can't be read. A null file is told
  /// to the log.
  osg::Program* find(const fltapi::FltFile* file, std::int16_t index);
  /// Reads the source files again when they are next asked for.
  void forgetAll() { byEntry_.clear(); }

private:
  std::map<std::uint32_t, osg::ref_ptr<osg::Program>> byEntry_; ///< by serial number of the palette entry
};

} // namespace nalt
