#pragma once

#include "fltapi/PrimNodeRecord.h"
#include "scene/image/HighlightGeometry.h"

#include <cstdint>
#include <osg/Group>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace nalt {

class FaceGeometry;
class Sync;

/// Shows what is selected, over the model: lines in two colors, one dashed over the other, and points for corners. It
/// hangs beside the model and shares the model's arrays and nodes, so that it moves with them and no selection is too
/// large to be shown.
///
/// Whatever changes is only noted, and brought up to date when the next frame is culled.
class Highlight : public osg::Group {
public:
  explicit Highlight(Sync& sync);

  static constexpr const char* blackGroupName = "blackgroup";
  static constexpr const char* whiteGroupName = "whitegroup";
  static constexpr const char* transformName = "SelectionTransform";

  /// The marks of a node, or of vertices of a polygon or light point, changed.
  void markChanged(fltapi::PrimNodeRecord& node);
  /// The marks that count for a record: those of external files are shared with other documents.
  std::uint8_t marksOf(const fltapi::PrimNodeRecord& polygon) const;
  /// A geometry of the model got its first mark or lost its last one.
  void geometryChanged(FaceGeometry& geometry);
  /// Nodes of the model came, went, or moved.
  void placesChanged() { stale_ = true; }
  /// The model is gone.
  void detach();

  /// Does what is noted.
  void update();
  void traverse(osg::NodeVisitor& visitor) override;

protected:
  ~Highlight() override = default;

private:
  /// What is highlighted below one group of the model, once for each way that leads to the group.
  struct Place {
    osg::ref_ptr<osg::Group> content = new osg::Group;
    std::vector<osg::ref_ptr<osg::Group>> ways;
  };
  void rebuild();
  void hang(HighlightGeometry& geometry);
  void hangLink(std::uint32_t serial, fltapi::PrimNodeRecord& record);
  void addBelow(osg::Group& holder, osg::Node& item);
  void takeOut(osg::Node& item);

  Sync* sync_;
  osg::ref_ptr<osg::Group> places_ = new osg::Group; ///< below both colors
  std::unordered_map<const osg::Group*, Place> placeOf_;
  std::set<osg::ref_ptr<HighlightGeometry>> geometries_;
  std::vector<osg::ref_ptr<HighlightGeometry>> waitingGeometries_;
  /// Nodes other than polygons.
  std::unordered_map<std::uint32_t, osg::ref_ptr<fltapi::PrimNodeRecord>> nodes_;
  std::unordered_map<std::uint32_t, osg::ref_ptr<osg::Node>> links_;
  std::vector<osg::ref_ptr<fltapi::PrimNodeRecord>> waitingNodes_;
  /// Content of external files that is highlighted here.
  std::unordered_set<std::uint32_t> foreign_;
  bool stale_ = false;
};

} // namespace nalt
