#pragma once

#include "scene/image/GeometryPlaces.h"

#include <osg/Geode>
#include <osg/Vec4f>

#include <functional>
#include <vector>

namespace fltapi {
class Record;
}

namespace nalt {

class FaceGeometry;
class MeshGeometry;

/// Lines that show the normals at the corners of everything that one viewport shows: those of the vertices, or where
/// they have none that of the polygon. They aren't part of the document's image.
class NormalLines {
public:
  struct Settings {
    double length = 1;                ///< in units of the model
    osg::Vec4f color{0.85F, 0, 0, 1}; ///< red, green, blue, opacity, each 0 to 1
    bool copies = false;              ///< for copies of replicated groups, instances and external references too
    bool onlySelection = false;       ///< for what `isSelected` says yes to, and all below it
    friend bool operator==(const Settings&, const Settings&) = default;
  };
  /// Asked for nodes, polygons and vertices.
  using IsSelected = std::function<bool(const fltapi::Record&)>;

  NormalLines();
  /// Has its lines in world coordinates.
  osg::Geode* geode() const { return geode_; }
  /// Shows the normals that `scene` has now in the viewport with these bits. What didn't change since the last call
  /// costs next to nothing. Where the selection counts, that holds only for the same selection as at the last call.
  void update(osg::Node& scene, std::uint32_t viewportBits, const Settings& settings, const IsSelected& isSelected = {},
              bool sameSelection = false);
  void clear();

private:
  /// What the drawable at the same place of the geode was made from.
  struct Made {
    GeometryPlaces::Place place;
    unsigned revision;
  };
  bool isCurrent(std::size_t i, const GeometryPlaces::Place& place) const;
  osg::ref_ptr<osg::Geometry> make(const GeometryPlaces::Place& place) const;

  osg::ref_ptr<osg::Geode> geode_ = new osg::Geode;
  osg::ref_ptr<osg::Vec4Array> color_ = new osg::Vec4Array(1);
  Settings settings_;
  std::uint32_t viewportBits_ = 0;
  bool sameSelection_ = false;
  IsSelected isSelected_; ///< only during a call
  std::vector<Made> made_;
};

} // namespace nalt
