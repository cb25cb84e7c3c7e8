#include "app/dialogs/Dialogs.h"

#include "app/Gui.h"
#include "app/dialogs/AnimationPreviewDialog.h"
#include "app/dialogs/CommandListDialog.h"
#include "app/dialogs/DofPreviewDialog.h"
#include "app/dialogs/ExternalReferencesDialog.h"
#include "app/dialogs/HelpServer.h"
#include "app/dialogs/HelpWindow.h"
#include "app/dialogs/PreferencesDialog.h"
#include "app/dialogs/SelectByNameDialog.h"
#include "app/dialogs/SelectByVerticesDialog.h"
#include "app/dialogs/SensitivityDialog.h"
#include "app/dialogs/ViewportPreferencesDialog.h"
#include "core/Preferences.h"
#include "platform/Paths.h"
#include "scene/view/ViewportActions.h"

namespace nalt {

namespace {

/// The dialog, made when there is none yet; never as a child of whatever group is current.
template <class Dialog>
Dialog& made(std::unique_ptr<Dialog>& dialog, Gui& gui)
{
  if (!dialog) {
    Fl_Group::current(nullptr);
    dialog = std::make_unique<Dialog>(gui);
    Fl_Group::current(nullptr);
  }
  return *dialog;
}

} // namespace

Dialogs::Dialogs(Gui& gui) : gui_(gui)
{
  if (!gui.headless()) viewportPreferencesEditor() = [this](Viewport& viewport) { openViewportPreferences(&viewport); };
}

Dialogs::~Dialogs()
{
  viewportPreferencesEditor() = nullptr;
  if (helpServer_) helpServer_->shutDown();
}

void Dialogs::openPreferences()
{
  made(preferences_, gui_).open();
}

void Dialogs::openViewportPreferences(Viewport* viewport)
{
  made(viewportPreferences_, gui_).openFor(viewport);
}

void Dialogs::openSensitivity()
{
  made(sensitivity_, gui_).open();
}

void Dialogs::openCommandList()
{
  made(commandList_, gui_).open();
}

void Dialogs::openSelectByName()
{
  made(selectByName_, gui_).open();
}

void Dialogs::openSelectByVertices()
{
  made(selectByVertices_, gui_).open();
}

void Dialogs::openExternalReferences()
{
  made(externalReferences_, gui_).open();
}

void Dialogs::openDofPreview()
{
  made(dofPreview_, gui_).open();
}

void Dialogs::openAnimationPreview()
{
  made(animationPreview_, gui_).open();
}

/// The help system in Java where it is installed, else the manual that comes with the program.
void Dialogs::openHelp()
{
  if (!helpServer_) helpServer_ = std::make_unique<HelpServer>(HelpServer::ownPlace());
  const std::string manual = manualFolder(executableFolder());
  if (helpServer_->isInstalled() || manual.empty()) {
    if (const std::string trouble = helpServer_->display(); !trouble.empty()) gui_.warning(trouble);
    return;
  }
  if (!help_) {
    Fl_Group::current(nullptr);
    help_ = std::make_unique<HelpWindow>(manualChapters(manual));
    Fl_Group::current(nullptr);
  }
  help_->open();
}

void Dialogs::modelChanged()
{
  if (commandList_) commandList_->follow();
  if (externalReferences_) externalReferences_->follow();
  if (dofPreview_) dofPreview_->follow();
  if (animationPreview_) animationPreview_->follow();
  if (viewportPreferences_) viewportPreferences_->follow();
}

void Dialogs::preferencesChanged()
{
  if (preferences_ && preferences_->shown()) preferences_->follow();
  if (sensitivity_ && sensitivity_->shown()) sensitivity_->follow();
  if (viewportPreferences_) viewportPreferences_->follow();
}

void Dialogs::fileOperationChanged()
{
  if (externalReferences_) externalReferences_->follow();
}

void Dialogs::hideAll()
{
  if (preferences_) preferences_->hide();
  if (viewportPreferences_) viewportPreferences_->hide();
  if (sensitivity_) sensitivity_->hide();
  if (commandList_) commandList_->hide();
  if (selectByName_) selectByName_->hide();
  if (selectByVertices_) selectByVertices_->hide();
  if (externalReferences_) externalReferences_->hide();
  if (dofPreview_) dofPreview_->hide();
  if (animationPreview_) animationPreview_->hide();
  if (help_) help_->hide();
}

} // namespace nalt
