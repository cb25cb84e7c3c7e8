#pragma once

#include "fltapi/PrimNodeRecord.h"
#include "scene/image/NaltGeode.h"

#include <cstdint>
#include <osg/Group>
#include <osg/ref_ptr>
#include <vector>

namespace nalt {

/// Hangs on each scene node that stands for a record: leads back to the record, and knows which of the node's children
/// hold polygons.
class FaceGeodeParentUserData : public osg::Referenced {
public:
  explicit FaceGeodeParentUserData(fltapi::PrimNodeRecord* record) : record_(record) {}

  fltapi::PrimNodeRecord* record() const { return record_; }
  int faceGeodeCount() const { return static_cast<int>(geodes_.size()); }
  const std::vector<NaltGeode*>& faceGeodes() const { return geodes_; }
  void add(NaltGeode* geode) { geodes_.push_back(geode); }
  void remove(const NaltGeode* geode) { std::erase(geodes_, geode); }

  /// Null for nodes that stand for no record.
  static FaceGeodeParentUserData* of(const osg::Node& node);

protected:
  ~FaceGeodeParentUserData() override = default;

private:
  fltapi::PrimNodeRecord* record_;
  std::vector<NaltGeode*> geodes_;
};

/// What stands for one record in the scene. Mostly a single node; a replicated group and a switch with a matrix need
/// two.
struct SceneNode {
  enum class Shape : std::uint8_t { group, transform, switchNode, switchInTransform, replicated, leaf };

  /// Name of the nodes that show a replicated group again.
  static constexpr const char* replicationName = "replication";

  osg::ref_ptr<fltapi::PrimNodeRecord> record;
  osg::ref_ptr<osg::Group> top;     ///< hangs below the parent's content
  osg::ref_ptr<osg::Group> content; ///< takes the children
  Shape shape = Shape::group;
  /// Serial number of what it shows besides its children: the header of an external file, the definition of an
  /// instance. 0 for none.
  std::uint32_t link = 0;

  /// A node with the shape that its record asks for, matrices and copies included.
  static SceneNode make(fltapi::PrimNodeRecord& record);
  /// A node without children of its own kind: a mesh, or the numbers of a light point.
  static SceneNode makeLeaf(fltapi::PrimNodeRecord& record, osg::Geode* geode);
  /// Brings shape, matrix and copies in line with the record. Children and parents stay.
  void update();

private:
  void build(Shape shape);
  void setMatrices();
};

/// Whether `node` is `below` or somewhere above it.
bool isAbove(const osg::Node& node, const osg::Node& below);

} // namespace nalt
