#include "scene/view/picking/SelectionGesture.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "core/Tool.h"
#include "scene/view/Viewport.h"

#include <utility>

namespace nalt {

void SelectionGesture::press(const osg::Vec2d& window)
{
  band_ = WindowRect{window, window};
}

void SelectionGesture::drag(const osg::Vec2d& window)
{
  if (!band_) return;
  band_->second = window;
  viewport_.setRubberBand(RubberBand{band_->first, band_->second});
}

void SelectionGesture::release(const osg::Vec2d& window, const MouseModifiers& modifiers, bool doubleClick)
{
  if (!band_) return;
  const WindowRect rect{band_->first, window};
  cancel();
  if (!viewport_.model()) return;
  if (std::exchange(picksAxis_, false))
    giveAxis(rect);
  else
    select(rect, modifiers, doubleClick);
}

void SelectionGesture::cancel()
{
  if (!band_) return;
  band_.reset();
  viewport_.setRubberBand(std::nullopt);
}

void SelectionGesture::giveAxis(const WindowRect& rect)
{
  auto* tool = viewport_.model()->tool();
  if (!tool) return;
  if (const auto edge = viewport_.picker().edgeIn(rect)) tool->axisPicked(edge->from - edge->to);
}

void SelectionGesture::select(const WindowRect& rect, const MouseModifiers& modifiers, bool doubleClick)
{
  const auto projection = viewport_.projection();
  if (!projection.rayAt(rect.first) || !projection.rayAt(rect.second)) {
    warnOfLostProjection(); // nothing was found, but nothing was looked at either: the selection stays
    return;
  }
  const auto picked = viewport_.pick(rect);
  auto& model = *viewport_.model();
  auto& selections = model.selections();
  SelectionChange change;
  change.byHand = true;
  if (modifiers.shift) {
    if (picked) selections.add(*picked, change);
  } else if (modifiers.alt) {
    if (picked) selections.remove(*picked, change);
  } else if (modifiers.ctrl) {
    if (picked) selections.toggle(*picked, change);
  } else if (picked) {
    selections.select(picked->clone(), change);
  } else {
    selections.clear(change);
  }
  if (doubleClick && picked) Shell::get().showAttributes(model, *picked);
}

} // namespace nalt
