#pragma once

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <osg/Vec3d>
#include <osg/ref_ptr>

#include <string>
#include <vector>

namespace nalt::tests {

/// Makes small documents for tests, all in one file.
class TreeBuilder {
public:
  TreeBuilder();

  fltapi::FltFile& file() { return *file_; }
  fltapi::HeaderRecord& header() { return *file_->header(); }

  /// A new record below `parent`, behind its other children.
  template <class T>
  T& add(fltapi::PrimNodeRecord& parent)
  {
    auto* record = file_->create<T>();
    parent.addChild(record, /*append=*/true);
    return *record;
  }
  /// A face with plain vertices and packed color.
  fltapi::FaceRecord& face(fltapi::PrimNodeRecord& parent, const std::vector<osg::Vec3d>& corners,
                           fltapi::PackedColor color = {});
  /// A square with sides of 1 and this lower left corner in the plane of x and y, seen from above.
  fltapi::FaceRecord& square(fltapi::PrimNodeRecord& parent, double x, double y, fltapi::PackedColor color = {});
  fltapi::VertexBaseRecord& vertex(fltapi::PrimNodeRecord& polygon, const osg::Vec3d& position);
  /// A matrix of `node` that moves it.
  fltapi::MatrixRecord& translation(fltapi::PrimNodeRecord& node, const osg::Vec3d& by);
  /// A texture palette entry.
  fltapi::TexturePaletteRecord& texture(int index, const std::string& path);
  /// An instance definition with one square at the origin, which belongs to the file.
  fltapi::InstanceDefinitionRecord& definition(int number);
  fltapi::InstanceReferenceRecord& reference(fltapi::PrimNodeRecord& parent, int number);

private:
  osg::ref_ptr<fltapi::FltFile> file_ = new fltapi::FltFile;
};

inline constexpr fltapi::PackedColor red{.a = 255, .b = 0, .g = 0, .r = 255};
inline constexpr fltapi::PackedColor green{.a = 255, .b = 0, .g = 255, .r = 0};
inline constexpr fltapi::PackedColor blue{.a = 255, .b = 255, .g = 0, .r = 0};

} // namespace nalt::tests
