#include "scene/view/picking/ToolGesture.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "core/Tool.h"
#include "core/selection/PivotCommand.h"
#include "scene/view/Viewport.h"

namespace nalt {

namespace {

/// Whether a corner belongs to what is selected: itself, an edge that it ends, or a node above it.
bool isSelected(const Selections& selected, fltapi::PrimNodeRecord& record, std::size_t corner)
{
  for (const fltapi::PrimNodeRecord* node = &record; node; node = node->parent())
    if (selected.containsNode(*node)) return true;
  auto* list = record.findChild<fltapi::VertexListRecord>();
  if (!list || static_cast<int>(corner) >= list->vertexCount()) return false;
  const auto& vertices = list->vertices();
  if (selected.containsVertex(*list, *vertices[corner])) return true;
  const auto* edges = static_cast<const EdgeSelection*>(selected.find(SelectionMode::edge));
  if (!edges) return false;
  const auto count = vertices.size();
  const auto isEdge = [&](std::size_t from) {
    return edges->elements().contains({list, vertices[from], vertices[(from + 1) % count]});
  };
  return isEdge(corner) || isEdge((corner + count - 1) % count);
}

} // namespace

Tool* ToolGesture::tool() const
{
  return viewport_.model() ? viewport_.model()->tool() : nullptr;
}

bool ToolGesture::gridWants() const
{
  return viewport_.showsGrid() && viewport_.gridPlacement().waits();
}

// ---- gadgets -------------------------------------------------------------------------------------------------------

Gadget* ToolGesture::gadgetAt(const MouseRay& ray) const
{
  viewport_.model()->selections().settlePivot();
  return tool()->gizmo()->pick(ray);
}

bool ToolGesture::beginGadget(const osg::Vec2d& window)
{
  auto* current = tool();
  if (!current || !current->gizmo()) return false;
  const auto ray = viewport_.projection().rayAt(window);
  if (!ray) {
    warnOfLostProjection();
    return false;
  }
  dragged_ = gadgetAt(*ray);
  if (!dragged_) return false;
  user_ = current;
  current->setReleased(false);
  dragged_->beginDrag(*ray);
  return true;
}

bool ToolGesture::endGadget(const osg::Vec2d& window)
{
  const osg::ref_ptr<Gadget> gadget = dragged_;
  dragged_ = nullptr;
  if (!gadget) return false;
  auto* current = tool();
  const auto ray = viewport_.projection().rayAt(window);
  if (!ray) warnOfLostProjection();
  if (!ray || !current || current != user_) return true;
  current->setReleased(true);
  gadget->endDrag(*ray);
  return true;
}

void ToolGesture::hover(const osg::Vec2d& window)
{
  auto* current = tool();
  auto* gizmo = current ? current->gizmo() : nullptr;
  const auto ray = gizmo ? viewport_.projection().rayAt(window) : std::nullopt;
  highlight(ray ? gadgetAt(*ray) : nullptr);
}

void ToolGesture::leave()
{
  highlight(nullptr);
}

void ToolGesture::highlight(Gadget* gadget)
{
  if (hovered_ == gadget) return;
  if (hovered_ && hoveredBy_ == tool()) hovered_->setHighlighted(false); // one without its tool isn't shown any more
  hovered_ = gadget;
  hoveredBy_ = tool();
  if (gadget) gadget->setHighlighted(true);
  viewport_.redraw();
}

// ---- positions -----------------------------------------------------------------------------------------------------

ToolGesture::Target ToolGesture::targetAt(const osg::Vec2d& window) const
{
  if (const auto* current = tool(); current && current->plantsOnSurface()) {
    const auto surface = viewport_.picker().surfaceAt(window);
    return {.exists = surface.has_value(), .position = surface};
  }
  if (!viewport_.showsGrid()) return {};
  const auto ray = viewport_.projection().rayAt(window);
  if (!ray) warnOfLostProjection();
  return ray ? Target{.position = viewport_.pointOnGrid(ray->nearPoint, ray->farPoint)}
             : Target{.exists = false, .position = {}};
}

/// What is being dragged would always be nearest to the mouse, so the selection itself doesn't count.
std::optional<osg::Vec3d> ToolGesture::cornerForDrag(const osg::Vec2d& window) const
{
  const auto& selected = viewport_.model()->selections().current();
  return viewport_.picker().cornerNear(window, [&](fltapi::PrimNodeRecord& record, std::size_t corner) {
    return !isSelected(selected, record, corner);
  });
}

// ---- the button ----------------------------------------------------------------------------------------------------

void ToolGesture::press(const osg::Vec2d& window, const MouseModifiers& modifiers)
{
  user_ = nullptr;
  hasPosition_ = false;
  corner_.reset();
  dragged_ = nullptr;
  if (!viewport_.model() || modifiers.ctrl) return;
  if (!modifiers.shift && beginGadget(window)) return;
  if (modifiers.shift) {
    corner_ = viewport_.picker().cornerNear(window);
    if (corner_ && !gridWants()) deliver(corner_, window, /*release=*/false);
    return;
  }
  if (gridWants()) return;
  const auto target = targetAt(window);
  if (target.exists) deliver(target.position, window, /*release=*/false);
}

void ToolGesture::drag(const osg::Vec2d& window, const MouseModifiers& modifiers)
{
  auto* current = tool();
  if (!current || current != user_) return;
  if (dragged_) {
    if (const auto ray = viewport_.projection().rayAt(window)) dragged_->drag(*ray);
    return;
  }
  if (modifiers.shift) {
    const auto corner = cornerForDrag(window);
    if (corner) corner_ = corner;
    if (corner) deliverDrag(corner, window);
    return;
  }
  const auto target = targetAt(window);
  if (target.exists) deliverDrag(target.position, window);
}

void ToolGesture::release(const osg::Vec2d& window, const MouseModifiers& modifiers)
{
  if (!viewport_.model() || endGadget(window)) return;
  const bool begun = user_ && user_ == tool();
  if (modifiers.ctrl && !begun) {
    finishOrMovePivot(window, modifiers.shift);
    return;
  }
  auto target = modifiers.shift ? Target{.exists = corner_.has_value(), .position = corner_} : targetAt(window);
  corner_.reset();
  if (gridWants() && !begun) {
    if (target.position) viewport_.gridPoint(*target.position);
    return;
  }
  // What a tool has begun it must be able to end, wherever the mouse is by now and whatever key is held.
  if (target.exists || begun) deliver(target.position, window, /*release=*/true);
}

void ToolGesture::deliver(const std::optional<osg::Vec3d>& position, const osg::Vec2d& window, bool release)
{
  auto* current = tool();
  if (!current) return;
  user_ = release ? nullptr : current;
  const bool isFirst = !release || !hasPosition_;
  hasPosition_ = position.has_value();
  lastWindow_ = window;
  current->setReleased(release);
  if (position) {
    note(*position, isFirst);
    current->firstPick(*position);
  } else if (release) {
    current->drag(osg::Vec3d());
  }
  if (tool() == current) current->firstPick(window); // a tool may end itself
}

void ToolGesture::deliverDrag(const std::optional<osg::Vec3d>& position, const osg::Vec2d& window)
{
  auto* current = tool();
  if (!current) return;
  const auto delta = window - lastWindow_;
  lastWindow_ = window;
  if (position && hasPosition_ && lastPosition_) {
    const auto step = *position - *lastPosition_;
    note(*position, /*isNew=*/false);
    current->drag(step);
  } else if (position) {
    hasPosition_ = true;
    note(*position, /*isNew=*/true);
    current->firstPick(*position);
  }
  if (tool() == current) current->drag(delta);
}

void ToolGesture::note(const osg::Vec3d& position, bool isNew)
{
  lastPosition_ = position;
  if (isNew)
    Shell::get().toolPointGiven(position);
  else
    Shell::get().toolPointMoved(position);
}

void ToolGesture::finishOrMovePivot(const osg::Vec2d& window, bool ofWhatIsHit)
{
  auto* current = tool();
  if (current && current->finish()) return;
  std::optional<osg::Vec3d> place;
  if (ofWhatIsHit) {
    const auto picked = viewport_.pick({window, window});
    const auto box = picked ? picked->boundingBox() : osg::BoundingBoxd();
    if (box.valid()) place = box.center();
  } else {
    place = targetAt(window).position;
  }
  auto& model = *viewport_.model();
  if (place && !model.selections().empty()) changePivot(model, *place, /*undoable=*/true);
  if (tool())
    tool()->redraw();
  else
    model.redrawViewports();
}

} // namespace nalt
