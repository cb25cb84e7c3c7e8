#pragma once

#include "scene/image/GeometryPlaces.h"

#include <osg/Geode>
#include <osg/Group>

#include <map>
#include <vector>

namespace nalt {

/// The numbers of the corners of everything that one viewport shows, counted from 0: those of a polygon or light point
/// in the order of its vertices, those of a mesh in the order of its pool. They aren't part of the document's image.
class VertexNumbers {
public:
  /// Has the numbers where the corners are in the world; those of polygons a little inside, so that neighbours keep
  /// apart.
  osg::Group* group() const { return group_; }
  /// Shows the numbers that `scene` has now in the viewport with these bits. What didn't change since the last call
  /// costs next to nothing.
  void update(osg::Node& scene, std::uint32_t viewportBits);
  void clear();

  static constexpr const char* geodeName = "numbergeode";

private:
  struct Made {
    osg::ref_ptr<osg::Geode> geode;
    unsigned revision;
  };
  using Cache = std::map<osg::ref_ptr<osg::Geometry>, Made>;
  bool isCurrent(const std::vector<GeometryPlaces::Place>& places) const;
  static osg::ref_ptr<osg::Geode> make(const osg::Geometry& geometry, std::uint32_t viewportBits);

  osg::ref_ptr<osg::Group> group_ = new osg::Group;
  Cache made_;
  std::vector<GeometryPlaces::Place> places_; ///< what the group was made from
  std::uint32_t viewportBits_ = 0;
};

} // namespace nalt
