#pragma once

#include "scene/image/FaceGeometry.h"
#include "scene/image/Highlight.h"
#include "scene/image/NaltGeode.h"

#include <cstdint>
#include <osg/Group>
#include <set>
#include <span>
#include <unordered_map>
#include <vector>

namespace nalt {

/// Where the polygons of all faces and light points are: finds for each the geode of its parent with its state, and
/// knows each again by its record.
class FaceStore {
public:
  explicit FaceStore(ViewportTable& viewports);

  /// One polygon of those that show a record.
  struct Part {
    FaceState* state;
    const PolygonShape* shape;
  };
  /// Shows `parts` for the record below `holder`. Polygons that keep place, state and number of corners are rewritten
  /// where they are. All parts of one call go under the mask that the record had, or under all viewports.
  void put(fltapi::PrimNodeRecord& record, osg::Group& holder, std::span<const Part> parts);
  /// Null when nothing is shown. The first one of several.
  NaltPolygon* find(const fltapi::PrimNodeRecord& record) const;
  void setMask(const fltapi::PrimNodeRecord& record, std::uint32_t mask);
  void setMarks(const fltapi::PrimNodeRecord& record, std::uint8_t marks, Highlight& highlight);
  /// The polygons show no more; `flush` cuts them out.
  void remove(const fltapi::PrimNodeRecord& record);
  /// Forgets polygons that go away together with the node they hang below.
  void forget(const fltapi::PrimNodeRecord& record);
  /// Does in one pass for each geometry what `remove` put off.
  void flush();
  /// All records that are shown.
  std::vector<fltapi::PrimNodeRecord*> records() const;
  std::size_t size() const { return polygons_.size(); }
  void clear();

private:
  using Polygons = std::vector<NaltPolygon*>;
  Polygons all(const fltapi::PrimNodeRecord& record) const;
  bool rewrite(const Polygons& polygons, const osg::Group& holder, std::span<const Part> parts);
  NaltPolygon* append(fltapi::PrimNodeRecord& record, osg::Group& holder, const Part& part);
  FaceGeometry& geometryFor(osg::Group& holder, const Part& part);
  NaltGeode* addGeode(osg::Group& holder, FaceState& state);
  void openGeodesOf(osg::Group& holder);

  osg::ref_ptr<ViewportTable> viewports_;
  osg::ref_ptr<osg::DrawableCullCallback> cullCallback_;
  std::unordered_map<std::uint32_t, NaltPolygon*> polygons_; ///< by serial number of the record
  /// The polygons behind the first one, of the few records that need more.
  std::unordered_map<std::uint32_t, Polygons> more_;
  std::set<osg::ref_ptr<FaceGeometry>> waiting_; ///< geometries with removed polygons
  /// For the parent that was filled last: the geode of each state that takes more.
  std::unordered_map<const FaceState*, NaltGeode*> openGeodes_;
  osg::ref_ptr<osg::Group> openHolder_;
};

} // namespace nalt
