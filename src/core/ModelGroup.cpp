#include "core/ModelGroup.h"

#include "core/Shell.h"

#include <FL/Fl.H>

namespace nalt {

ModelGroup::ModelGroup(int x, int y, int w, int h) : Fl_Group(x, y, w, h) {}

int ModelGroup::handle(int event)
{
  switch (event) {
  case FL_PUSH:
    if (!closeButton_ || !closeButton_->visible() || !Fl::event_inside(closeButton_)) break;
    closePressed_ = true;
    return closeButton_->handle(event);
  case FL_RELEASE:
    if (!closePressed_) break;
    closePressed_ = false;
    return closeButton_->handle(event);
  case FL_PASTE:
    Shell::get().openDropped(Fl::event_text() ? Fl::event_text() : "");
    return 1;
  }
  return Fl_Group::handle(event);
}

void ModelGroup::resize(int newX, int newY, int newW, int newH)
{
  const int fromRight = closeButton_ ? x() + w() - closeButton_->x() : 0;
  const int fromTop = closeButton_ ? closeButton_->y() - y() : 0;
  Fl_Group::resize(newX, newY, newW, newH);
  if (closeButton_) closeButton_->resize(newX + newW - fromRight, newY + fromTop, closeButton_->w(), closeButton_->h());
}

} // namespace nalt
