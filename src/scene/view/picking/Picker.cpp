#include "scene/view/picking/Picker.h"

#include "fltapi/ancillary/OtherAncillaries.h"
#include "scene/view/picking/RayPickVisitor.h"

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using Hit = BoxSelectionVisitor::Hit;

/// A search without tolerance still has the pixel under the mouse.
constexpr double halfPixel = 0.5;

/// Without a surface there is no point of it under the mouse; and corners and edges are too thin to be hit.
bool isRegionMode(SelectionMode mode)
{
  switch (mode) {
  case SelectionMode::vertex:
  case SelectionMode::edge:
  case SelectionMode::lightPoint:
  case SelectionMode::lightPointSystem:
    return true;
  default:
    return false;
  }
}

fltapi::VertexListRecord* listOf(const Hit& hit)
{
  auto* list = hit.record->findChild<fltapi::VertexListRecord>();
  const auto last = static_cast<int>(std::max(hit.corner, hit.nextCorner));
  return list && last < list->vertexCount() ? list : nullptr;
}

void insert(const Hit& hit, Selection& selection)
{
  switch (selection.mode()) {
  case SelectionMode::vertex:
    if (auto* list = listOf(hit)) static_cast<VertexSelection&>(selection).insert({list, list->vertices()[hit.corner]});
    break;
  case SelectionMode::edge:
    if (auto* list = listOf(hit)) {
      const auto& vertices = list->vertices();
      static_cast<EdgeSelection&>(selection).insert({list, vertices[hit.corner], vertices[hit.nextCorner]});
    }
    break;
  default:
    static_cast<NodeSelection&>(selection).insert({hit.record});
  }
}

/// A corner as the record has it: with all its digits, and where it is while polygons are drawn shrunk. Only the copies
/// of a replicated polygon really are where the scene shows them.
osg::Vec3d exactPosition(const Hit& hit, std::size_t corner, const osg::Vec3& shown)
{
  const auto* list = listOf(hit);
  if (!list) return {shown};
  const auto stored = list->vertices()[corner]->position();
  const bool isCopy = osg::Vec3(stored) != shown && hit.record->findChild<fltapi::ReplicateRecord>();
  return isCopy ? osg::Vec3d(shown) : stored;
}

/// How near something comes to the mouse, and what is in front where this is the same.
struct Nearness {
  double pixels;
  double depth;
  bool operator<(const Nearness& other) const
  {
    constexpr double samePlace = 1e-3; // pixels
    if (std::abs(pixels - other.pixels) > samePlace) return pixels < other.pixels;
    return depth < other.depth;
  }
};

double pixelsToLine(const osg::Vec2d& place, const osg::Vec2d& from, const osg::Vec2d& to)
{
  const auto way = to - from;
  const double square = way.length2();
  const double share = square > 0.0 ? std::clamp((place - from) * way / square, 0.0, 1.0) : 0.0;
  return (from + way * share - place).length();
}

} // namespace

Picker::Picker(osg::Node* scene, const WindowProjection& projection, std::uint32_t bits, int tolerance)
    : scene_(scene), projection_(projection), bits_(bits), margin_(std::max<double>(tolerance, halfPixel))
{}

std::unique_ptr<Selection> Picker::pick(SelectionMode mode, const WindowRect& rect) const
{
  if (rect.isPoint() && !isRegionMode(mode)) return pickSurface(mode, rect.first);
  return pickRegion(mode, rect);
}

std::unique_ptr<Selection> Picker::pickSurface(SelectionMode mode, const osg::Vec2d& window) const
{
  const auto ray = projection_.rayAt(window);
  if (!ray) warnOfLostProjection();
  if (!ray || !scene_) return nullptr;
  RayPickVisitor visitor(*ray, bits_, mode);
  scene_->accept(visitor);
  const auto& hit = visitor.nearest();
  if (!hit || !hit->owner) return nullptr;
  auto selection = Selection::make(mode);
  static_cast<NodeSelection&>(*selection).insert({hit->owner});
  return selection;
}

std::optional<osg::Vec3d> Picker::surfaceAt(const osg::Vec2d& window) const
{
  const auto ray = projection_.rayAt(window);
  if (!ray) warnOfLostProjection();
  if (!ray || !scene_) return std::nullopt;
  RayPickVisitor visitor(*ray, bits_, SelectionMode::polygon);
  scene_->accept(visitor);
  const auto& hit = visitor.nearest();
  if (!hit) return std::nullopt;
  return ray->nearPoint + (ray->farPoint - ray->nearPoint) * hit->place;
}

bool Picker::search(const WindowRect& rect, SelectionMode mode,
                    const std::function<bool(const BoxSelectionVisitor&, const Hit&)>& found) const
{
  const auto frustum = PickFrustum::through(rect.grownBy(margin_), projection_);
  if (!frustum) warnOfLostProjection();
  if (!frustum || !scene_) return false;
  const BoxSelectionVisitor* self = nullptr;
  BoxSelectionVisitor visitor(*frustum, bits_, mode, [&](const Hit& hit) { return found(*self, hit); });
  self = &visitor;
  scene_->accept(visitor);
  return true;
}

std::unique_ptr<Selection> Picker::pickRegion(SelectionMode mode, const WindowRect& rect) const
{
  auto selection = Selection::make(mode);
  search(rect, mode, [&](const BoxSelectionVisitor&, const Hit& hit) {
    insert(hit, *selection);
    return true;
  });
  return selection->empty() ? nullptr : std::move(selection);
}

std::optional<osg::Vec3d> Picker::cornerNear(const osg::Vec2d& window, const CornerTest& counts) const
{
  std::optional<osg::Vec3d> nearest;
  Nearness best{};
  search({window, window}, SelectionMode::vertex, [&](const BoxSelectionVisitor& visitor, const Hit& hit) {
    if (counts && !counts(*hit.record, hit.corner)) return true;
    const auto shown = osg::Vec3d(hit.position) * visitor.matrix();
    const auto place = projection_.toWindow(shown);
    const auto ray = projection_.rayAt(window);
    if (!place || !ray) return true;
    const Nearness nearness{(*place - window).length(), (shown - ray->nearPoint).length2()};
    if (nearest && !(nearness < best)) return true;
    nearest = exactPosition(hit, hit.corner, hit.position) * visitor.matrix();
    best = nearness;
    return true;
  });
  return nearest;
}

std::optional<Picker::Edge> Picker::edgeIn(const WindowRect& rect) const
{
  std::optional<Edge> nearest;
  Nearness best{};
  search(rect, SelectionMode::edge, [&](const BoxSelectionVisitor& visitor, const Hit& hit) {
    const Edge shown{osg::Vec3d(hit.position) * visitor.matrix(), osg::Vec3d(hit.nextPosition) * visitor.matrix()};
    const auto from = projection_.toWindow(shown.from);
    const auto to = projection_.toWindow(shown.to);
    const auto ray = projection_.rayAt(rect.centre());
    if (!ray) return true;
    // An end behind the eye has no place in the window; such an edge counts when no other does.
    const double pixels =
        from && to ? pixelsToLine(rect.centre(), *from, *to) : projection_.width() + projection_.height();
    const Nearness nearness{pixels, ((shown.from + shown.to) * 0.5 - ray->nearPoint).length2()};
    if (nearest && !(nearness < best)) return true;
    nearest = Edge{exactPosition(hit, hit.corner, hit.position) * visitor.matrix(),
                   exactPosition(hit, hit.nextCorner, hit.nextPosition) * visitor.matrix()};
    best = nearness;
    return true;
  });
  return nearest;
}

} // namespace nalt
