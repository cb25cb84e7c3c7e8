#include "core/Tool.h"

#include "core/Model.h"
#include "core/WaitCursor.h"

namespace nalt {

Tool::~Tool()
{
  if (gizmo_) gizmo_->setSelectionSet(nullptr);
  sceneGroup_->removeChildren(0, sceneGroup_->getNumChildren());
}

void Tool::perform()
{
  if (running_ || !wantsRun()) return;
  struct Guard {
    bool& running;
    explicit Guard(bool& flag) : running(flag) { running = true; }
    ~Guard() { running = false; }
  };
  const Guard guard(running_);
  const WaitCursor cursor;
  run();
}

void Tool::selectionChanged()
{
  if (gizmo_) gizmo_->update();
}

void Tool::setModel(Model* model)
{
  model_ = model;
  if (gizmo_) gizmo_->setSelectionSet(selections());
  if (model) attachPanel();
}

void Tool::redraw()
{
  if (model_) model_->redrawViewports();
}

void Tool::setGizmo(Gizmo* gizmo)
{
  if (gizmo_) {
    gizmo_->setSelectionSet(nullptr);
    sceneGroup_->removeChild(gizmo_.get());
  }
  gizmo_ = gizmo;
  if (!gizmo) return;
  sceneGroup_->addChild(gizmo);
  gizmo->setSelectionSet(selections());
}

fltapi::FltFile* Tool::file() const
{
  return model_ ? model_->fltFile() : nullptr;
}

SelectionSet* Tool::selections() const
{
  return model_ ? &model_->selections() : nullptr;
}

} // namespace nalt
