#include "app/Gui.h"

#include "app/GuiWidgets.h"
#include "app/ProgressWindow.h"
#include "app/Splash.h"
#include "core/Model.h"
#include "scene/view/Viewport.h"

#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Output.H>

#include <cstdio>

namespace nalt {

void Gui::warning(const std::string& text, bool append, MessageId id)
{
  message(MessageKind::warning, text, append, id);
}

void Gui::info(const std::string& text, bool append, MessageId id)
{
  message(MessageKind::info, text, append, id);
}

void Gui::error(const std::string& text)
{
  if (onMainThread())
    warning(text, /*append=*/true);
  else if (FileJob* job = FileJob::current())
    job->fail(text);
}

void Gui::message(MessageKind kind, const std::string& text, bool append, MessageId id)
{
  if (!onMainThread()) {
    if (FileJob* job = FileJob::current()) FileJob::queue(job->warnings, {kind, text, id}, append);
    return;
  }
  if (silenced_.contains(id)) return;
  if (!quiet_ && !headless_) {
    if (showMessage(kind, text, id != MessageId::none)) silenced_.insert(id);
    return;
  }
  const std::string line = (kind == MessageKind::warning ? "WARNING: " : "INFO: ") + text;
  if (scriptOutput_) {
    scriptOutput_(line);
    return;
  }
  std::puts(line.c_str());
  std::fflush(stdout);
}

Answer Gui::ask(const std::string& text)
{
  return quiet_ || headless_ ? presetAnswer_ : showQuestion(text, /*withCancel=*/false);
}

Answer Gui::askOrCancel(const std::string& text)
{
  return quiet_ || headless_ ? presetAnswer_ : showQuestion(text, /*withCancel=*/true);
}

void Gui::setQuiet(bool quiet, bool batch)
{
  quiet_ = quiet;
  batch_ = batch;
}

bool Gui::waitCursor()
{
  Fl_Double_Window* window = GuiWidgets::get().mainWindow;
  if (waiting_ || quiet_ || headless_ || !window->shown()) return false;
  waiting_ = true;
  window->cursor(FL_CURSOR_WAIT);
  if (current_ && current_->activeViewport())
    if (Fl_Window* view = current_->activeViewport()->widget().as_window(); view && view->shown())
      view->cursor(FL_CURSOR_WAIT);
  return true;
}

void Gui::defaultCursor()
{
  if (!waiting_ || quiet_) return;
  waiting_ = false;
  GuiWidgets::get().mainWindow->cursor(FL_CURSOR_DEFAULT);
  for (int i = 0; i < modelCount(); ++i)
    for (VPBase* viewport : modelAt(i)->viewports())
      if (Fl_Window* view = viewport->widget().as_window(); view && view->shown()) view->cursor(FL_CURSOR_DEFAULT);
}

void Gui::setStatusLine(const std::string& text)
{
  if (Fl_Output* line = GuiWidgets::get().statusLine) line->value(text.c_str());
}

void Gui::beginProgress(const std::string& text)
{
  if (quiet_ || headless_) return;
  if (!progress_) progress_ = std::make_unique<ProgressWindow>();
  progress_->begin(text);
  if (splash_) splash_->raise();
}

void Gui::showProgress(double percent)
{
  if (progress_ && progress_->shown()) progress_->setProgress(percent);
}

void Gui::endProgress()
{
  if (progress_) progress_->end();
}

} // namespace nalt
