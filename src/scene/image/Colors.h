#pragma once

#include "fltapi/Field.h"

#include <cstdint>
#include <osg/Vec4ub>

namespace fltapi {
class ColorPaletteRecord;
class FltFile;
class Record;
class VertexBaseRecord;
} // namespace fltapi

namespace nalt {

/// Colors of one file. To be kept no longer than its palette surely stands.
class Colors {
public:
  /// A null file is told to the log; its colors are white.
  explicit Colors(const fltapi::FltFile* file);

  static osg::Vec4ub white() { return {255, 255, 255, 255}; }
  static osg::Vec4ub from(fltapi::PackedColor color, std::uint8_t alpha = 255)
  {
    return {color.r, color.g, color.b, alpha};
  }
  /// White without a palette.
  osg::Vec4ub indexed(std::uint32_t fullIndex) const;
  /// The color of a corner; `otherwise` when it has none. Alpha is that of a packed color of a file that may hold one.
  osg::Vec4ub of(const fltapi::VertexBaseRecord& vertex, const osg::Vec4ub& otherwise) const;
  /// Whether alpha of packed colors means anything in this file; it does from 15.8 on.
  bool hasVertexAlpha() const { return hasVertexAlpha_; }

private:
  const fltapi::ColorPaletteRecord* palette_ = nullptr;
  bool hasVertexAlpha_ = false;
};

} // namespace nalt
