#include "app/Gui.h"

#include "app/GuiWidgets.h"
#include "app/ProgressWindow.h"
#include "app/Session.h"
#include "app/Splash.h"
#include "app/dialogs/Dialogs.h"
#include "core/Clipboard.h"
#include "core/LuaText.h"
#include "core/Model.h"
#include "platform/Paths.h"

#include <FL/Fl_Double_Window.H>

// How models and the program are closed, and what is asked before.

namespace nalt {

/// Copies can't outlive their document. A script's answers are about saving, so it isn't asked about the clipboard.
bool Gui::mayEmptyClipboard(const Model& model)
{
  Clipboard& clipboard = Clipboard::get();
  if (!clipboard.holdsFrom(model.fltFile())) return true;
  if (!quiet_ && ask("Clipboard contents from " + fileNamePart(model.path()) +
                     " will be removed.\nDo you still want to close the file?") != Answer::yes)
    return false;
  clipboard.clear();
  return true;
}

bool Gui::saveAndWait(Model& model)
{
  const bool canAsk = !quiet_ && !headless_;
  if (files_.loading()) {
    const std::string path = canAsk && model.isNew() ? files_.chooseSavePath(model) : model.path();
    return !path.empty() && files_.saveBeside(model, path, saveVersionOf(model));
  }
  if (canAsk && (model.isNew() || model.path() == untitled))
    saveAs();
  else
    saveModel(saveVersionOf(model), /*synchronous=*/false);
  files_.waitUntilIdle();
  return !model.isDirty();
}

/// Asks about changes that nobody saved. False when the model is to stay.
bool Gui::mayClose(Model& model)
{
  if (!model.isDirty()) return true;
  showModel(&model);
  switch (askOrCancel("Save file " + model.path() + "?")) {
  case Answer::yes:
    return saveAndWait(model);
  case Answer::no:
    return true;
  case Answer::cancel:
    break;
  }
  return false;
}

bool Gui::closeModel()
{
  files_.waitUntilIdle();
  if (!current_ || closing_) return false;
  closing_ = true;
  Model& model = *current_;
  const bool closes = mayEmptyClipboard(model) && mayClose(model);
  if (closes) {
    record("closeModel", luaCall("closeModel"));
    removeModel(model);
  }
  closing_ = false;
  updateWidgets();
  return closes;
}

void Gui::closeAllModels()
{
  files_.waitUntilIdle();
  while (current_ && closeModel()) {
  }
}

void Gui::exitProgram()
{
  if (closing_) return;
  if (Fl_Window* editor = GuiWidgets::get().scriptEditor; editor && editor->shown()) {
    info("Please close the script window before exiting.");
    return;
  }
  files_.dropWaiting();
  if (files_.loading()) {
    if (exitWhileLoading()) tearDown();
    return;
  }
  closeAllModels();
  if (modelCount() == 0) tearDown();
}

/// What is being loaded isn't waited for: a file on a dead network would keep the program for ever. The models stay as
/// they are, since the worker may look at what they share. False when the user wants to go on.
bool Gui::exitWhileLoading()
{
  closing_ = true;
  bool leaves = true;
  for (int i = 0; i < modelCount() && leaves; ++i)
    leaves = mayClose(*modelAt(i));
  closing_ = false;
  return leaves;
}

void Gui::tearDown()
{
  if (!headless_) saveSession(*this);
  splash_.reset();
  abandonedWork_ = files_.loading();
  files_.letGo();
  progress_.reset();
  dialogs_->hideAll();
  if (Fl_Double_Window* window = GuiWidgets::get().mainWindow) window->hide();
}

} // namespace nalt
