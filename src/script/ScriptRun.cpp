#include "script/ScriptRun.h"

#include "core/Clipboard.h"
#include "core/Model.h"
#include "core/Shell.h"
#include "core/Tool.h"
#include "platform/Environment.h"

#include <fstream>
#include <iostream>
#include <utility>

namespace nalt {

namespace {

/// Closes the shell's current model without saving. What was copied from it goes first, or the shell would ask about it
/// and take the "no" for keeping the model.
bool closeInShell(const Model& model)
{
  auto& clipboard = Clipboard::get();
  if (clipboard.holdsFrom(model.fltFile())) clipboard.clear();
  Shell::get().setPresetAnswer(Answer::no);
  return Shell::get().closeModel();
}

std::function<void(const std::string&)>& outputPane()
{
  static std::function<void(const std::string&)> pane;
  return pane;
}

} // namespace

ScriptRun* ScriptRun::active_ = nullptr;

ScriptRun::Activation::Activation(ScriptRun& run) : run_(run), before_(active_)
{
  if (before_) run.depth_ = before_->depth_ + 1;
  active_ = &run;
}

ScriptRun::Activation::~Activation()
{
  active_ = before_;
  if (!before_) return;
  before_->takeOpenModels();
  before_->switchedModels_ |= run_.switchedModels_;
}

ScriptRun::ScriptRun(bool batch)
    : logFile_(environment("NALT_LOG").value_or("")),
      batch_(batch),
      wasQuiet_(Shell::get().quiet()),
      wasBatch_(Shell::get().batch()),
      noLineFeed_(environmentEquals("NALT_NO_LINE_FEED", "ON"))
{
  auto& shell = Shell::get();
  shell.waitCursor();
  shell.setQuiet(true, wasBatch_ || batch);
  if (auto* model = shell.currentModel()) model->setTool(nullptr);
  if (!batch) takeOpenModels();
}

ScriptRun::~ScriptRun()
{
  auto& shell = Shell::get();
  if (batch_) closeAll();
  if (wasQuiet_) return;
  shell.setQuiet(false, false);
  shell.defaultCursor();
  if (!batch_) shell.scriptEnded();
}

void ScriptRun::takeOpenModels()
{
  auto& shell = Shell::get();
  models_.clear();
  for (int i = 0; i < shell.modelCount(); ++i) {
    auto* model = shell.modelAt(i);
    if (model->fltFile()) models_[model->path()] = model;
  }
  currentModel_ = shell.currentModel();
  currentFilename_ = currentModel_ ? currentModel_->path() : std::string{};
}

bool ScriptRun::records() const
{
  return !Shell::get().batch();
}

Model* ScriptRun::modelNamed(const std::string& filename) const
{
  const auto found = models_.find(filename);
  return found == models_.end() ? nullptr : found->second;
}

void ScriptRun::enter(Model& model)
{
  models_[model.path()] = &model;
  setCurrent(model);
}

void ScriptRun::setCurrent(Model& model)
{
  switchedModels_ |= currentModel_ != &model;
  currentModel_ = &model;
  currentFilename_ = model.path();
  Shell::get().setCurrentModel(model);
}

void ScriptRun::rename()
{
  if (!currentModel_) return;
  models_.erase(currentFilename_);
  currentFilename_ = currentModel_->path();
  models_[currentFilename_] = currentModel_;
}

void ScriptRun::replaceCurrent()
{
  switchedModels_ = true;
  currentModel_ = Shell::get().currentModel();
  if (currentModel_) models_[currentFilename_] = currentModel_;
}

bool ScriptRun::closeCurrent()
{
  if (!currentModel_ || !closeInShell(*currentModel_)) return false;
  switchedModels_ = true;
  models_.erase(currentFilename_);
  currentModel_ = Shell::get().currentModel();
  currentFilename_ = currentModel_ ? currentModel_->path() : std::string{};
  return true;
}

void ScriptRun::closeAll()
{
  auto& shell = Shell::get();
  switchedModels_ |= !models_.empty();
  std::map<std::string, Model*> kept; // a shell may refuse to close a model, which is then still there
  for (const auto& [filename, model] : models_) {
    shell.setCurrentModel(*model);
    if (!closeInShell(*model)) kept[filename] = model;
  }
  models_ = std::move(kept);
  currentModel_ = nullptr;
  currentFilename_.clear();
}

void ScriptRun::log(const std::string& text) const
{
  if (logFile_.empty()) return;
  std::ofstream file(logFile_, std::ios::app | std::ios::binary);
  file << text;
  if (!noLineFeed_) file << '\n';
}

bool ScriptRun::showsInPane() const
{
  return !batch_ && outputPane();
}

void ScriptRun::output(const std::string& text) const
{
  if (showsInPane()) {
    outputPane()(text);
  } else {
    std::cout << text;
    if (!noLineFeed_) std::cout << '\n';
    std::cout.flush();
  }
  log(text);
}

void scriptOutput(const ScriptRun* run, const std::string& text)
{
  if (run) {
    run->output(text);
  } else {
    std::cout << text << std::endl;
  }
}

void scriptMessage(const std::string& line)
{
  const auto* run = ScriptRun::active();
  const bool framed = run && !run->showsInPane();
  scriptOutput(run, framed ? '\n' + line + '\n' : line);
}

void setOutputPane(std::function<void(const std::string&)> pane)
{
  outputPane() = std::move(pane);
}

} // namespace nalt
