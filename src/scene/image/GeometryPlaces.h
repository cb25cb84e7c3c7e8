#pragma once

#include <osg/Geometry>
#include <osg/Matrixd>
#include <osg/NodeVisitor>
#include <osg/ref_ptr>

#include <cstdint>
#include <functional>
#include <vector>

namespace fltapi {
class PrimNodeRecord;
}

namespace nalt {

/// Finds where in the world each geometry with polygons stands, as one viewport shows it: what is switched off, hidden
/// there, or of another level of detail is left out. A geometry that is shown in several places is found in each.
class GeometryPlaces : public osg::NodeVisitor {
public:
  struct Place {
    osg::ref_ptr<osg::Geometry> geometry; ///< a FaceGeometry or MeshGeometry
    osg::Matrixd toWorld;
    bool isSelected; ///< with a node above it
  };
  using IsSelected = std::function<bool(const fltapi::PrimNodeRecord&)>;

  /// @param viewportBits node mask bits of the viewport
  /// @param copies whether to enter copies of replicated groups, instances and external references
  explicit GeometryPlaces(std::uint32_t viewportBits, bool copies = true, IsSelected isSelected = {});

  const std::vector<Place>& places() const { return places_; }

  using osg::NodeVisitor::apply;
  void apply(osg::Node& node) override;
  void apply(osg::Transform& transform) override;
  void apply(osg::Drawable& drawable) override;

private:
  bool enters(const osg::Node& node) const;

  bool copies_;
  IsSelected isSelected_;
  osg::Matrixd toWorld_;
  bool inSelection_ = false;
  std::vector<Place> places_;
};

} // namespace nalt
