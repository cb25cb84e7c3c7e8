#include "script/ScriptRun.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "platform/Environment.h"

#include <fstream>
#include <iostream>

namespace nalt {

ScriptRun* ScriptRun::active_ = nullptr;

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
  if (batch) return;
  for (int i = 0; i < shell.modelCount(); ++i) {
    auto* model = shell.modelAt(i);
    if (model->fltFile()) models_[model->path()] = model;
  }
  currentModel_ = shell.currentModel();
  if (currentModel_) currentFilename_ = currentModel_->path();
}

ScriptRun::~ScriptRun()
{
  auto& shell = Shell::get();
  if (batch_) {
    for (const auto& [filename, model] : models_) {
      shell.setCurrentModel(*model);
      shell.setPresetAnswer(Answer::no);
      shell.closeModel();
    }
  }
  if (wasQuiet_) return;
  shell.setQuiet(false, wasBatch_);
  shell.defaultCursor();
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

void ScriptRun::dropCurrent()
{
  models_.erase(currentFilename_);
  currentModel_ = Shell::get().currentModel();
  currentFilename_ = currentModel_ ? currentModel_->path() : std::string{};
}

void ScriptRun::log(const std::string& text) const
{
  if (logFile_.empty()) return;
  std::ofstream file(logFile_, std::ios::app | std::ios::binary);
  file << text;
  if (!noLineFeed_) file << '\n';
}

void ScriptRun::output(const std::string& text) const
{
  std::cout << text;
  if (!noLineFeed_) std::cout << '\n';
  std::cout.flush();
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

} // namespace nalt
