#pragma once

#include "core/selection/Selection.h"
#include "scene/view/picking/BoxSelectionVisitor.h"

#include <functional>
#include <memory>
#include <optional>

namespace osg {
class Node;
}

namespace nalt {

/// Finds what is under the mouse of one viewport. Window places are in pixels with y upward, positions in the
/// coordinates of the whole model. Nothing is ever found, after a message, through a camera that can't be led back.
class Picker {
public:
  /// @param scene what is searched; null finds nothing
  /// @param bits of the node masks that the viewport draws
  /// @param tolerance pixels by which a search in a region reaches beyond its rectangle
  Picker(osg::Node* scene, const WindowProjection& projection, std::uint32_t bits, int tolerance);

  /// Everything of the mode in the rectangle, at any depth; null when there is nothing. In the modes of polygons and
  /// nodes a rectangle that is a point finds only the nearest surface right under it.
  std::unique_ptr<Selection> pick(SelectionMode mode, const WindowRect& rect) const;
  /// Where the line of sight first meets a surface.
  std::optional<osg::Vec3d> surfaceAt(const osg::Vec2d& window) const;

  /// Whether a corner that the mouse came near to counts. By its polygon or light point, and its place in the vertex
  /// list.
  using CornerTest = std::function<bool(fltapi::PrimNodeRecord& record, std::size_t corner)>;
  /// The corner that is nearest to the mouse, within the tolerance; of several in line the one in front. Without a test
  /// all count.
  std::optional<osg::Vec3d> cornerNear(const osg::Vec2d& window, const CornerTest& counts = {}) const;

  struct Edge {
    osg::Vec3d from;
    osg::Vec3d to;
  };
  /// The edge in the rectangle that is nearest to its middle.
  std::optional<Edge> edgeIn(const WindowRect& rect) const;

private:
  std::unique_ptr<Selection> pickSurface(SelectionMode mode, const osg::Vec2d& window) const;
  std::unique_ptr<Selection> pickRegion(SelectionMode mode, const WindowRect& rect) const;
  bool search(const WindowRect& rect, SelectionMode mode,
              const std::function<bool(const BoxSelectionVisitor&, const BoxSelectionVisitor::Hit&)>& found) const;

  osg::Node* scene_;
  WindowProjection projection_;
  std::uint32_t bits_;
  double margin_;
};

} // namespace nalt
