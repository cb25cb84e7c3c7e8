#include "scene/image/Colors.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <osg/Notify>

namespace nalt {

namespace {

constexpr int firstVersionWithVertexAlpha = 1580;

} // namespace

Colors::Colors(const fltapi::FltFile* file)
{
  if (!file) {
    OSG_WARN << "No FLT file found for retrieving color palette." << std::endl;
    return;
  }
  palette_ = file->colorPalette();
  hasVertexAlpha_ = file->loadedVersion() >= firstVersionWithVertexAlpha;
}

osg::Vec4ub Colors::indexed(std::uint32_t fullIndex) const
{
  return palette_ ? from(palette_->colorAt(fullIndex)) : white();
}

osg::Vec4ub Colors::of(const fltapi::VertexBaseRecord& vertex, const osg::Vec4ub& otherwise) const
{
  if (!vertex.hasColor()) return otherwise;
  if (vertex.hasPackedColor()) {
    const auto color = vertex.packedColor();
    return from(color, hasVertexAlpha_ ? color.a : 255);
  }
  const auto index = vertex.colorIndex();
  return index == fltapi::VertexBaseRecord::noColor ? otherwise : indexed(index);
}

} // namespace nalt
