#pragma once

#include "core/Model.h"
#include "tests/core/RecordingShell.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace nalt {

/// A shell without a window that opens, saves and closes models as far as scripts can tell.
class ScriptShell : public RecordingShell {
public:
  std::set<std::string> files;      ///< what can be opened
  std::vector<std::string> calls;   ///< what was asked for, in order
  std::vector<Answer> closeAnswers; ///< the preset answer at each closing
  std::set<std::string> locked;     ///< models that can't be closed
  bool savesFail = false;
  bool cursorWaits = false;
  int endedScripts = 0;

  bool waitCursor() override { return !std::exchange(cursorWaits, true); }
  void defaultCursor() override { cursorWaits = false; }
  void scriptEnded() override { ++endedScripts; }

  Model* newModel(const std::string& filename) override
  {
    auto model = std::make_unique<Model>(0, 0, 10, 10);
    model->createEmpty();
    model->setPath(filename);
    current = model.get();
    models.push_back(current);
    owned_.push_back(std::move(model));
    return current;
  }

  bool openModel(const std::string& path, bool synchronous) override
  {
    calls.push_back("open " + path + (synchronous ? "" : " later"));
    openAnswer = answer;
    if (files.contains(path)) return newModel(path) != nullptr;
    warning("Couldn't open file " + path, false, MessageId::none);
    return false;
  }

  bool saveModel(int version, bool synchronous) override
  {
    calls.push_back("save " + current->path() + " " + std::to_string(version) + (synchronous ? "" : " later"));
    saveAnswer = answer;
    return !savesFail;
  }

  bool saveModelAs(const std::string& path, int version, bool synchronous) override
  {
    calls.push_back("save as " + path + " " + std::to_string(version) + (synchronous ? "" : " later"));
    saveAnswer = answer;
    if (!savesFail) current->setPath(path);
    return !savesFail;
  }

  bool revertModel(bool synchronous) override
  {
    calls.push_back("revert " + current->path() + (synchronous ? "" : " later"));
    if (!files.contains(current->path())) return false;
    auto old = current;
    auto model = std::make_unique<Model>(0, 0, 10, 10);
    model->createEmpty();
    model->setPath(old->path());
    current = model.get();
    std::ranges::replace(models, old, current);
    std::erase_if(owned_, [old](const auto& owned) { return owned.get() == old; });
    owned_.push_back(std::move(model));
    return true;
  }

  bool closeModel() override
  {
    calls.push_back("close " + current->path());
    closeAnswers.push_back(answer);
    if (locked.contains(current->path())) return false;
    std::erase(models, current);
    std::erase_if(owned_, [this](const auto& model) { return model.get() == current; });
    current = models.empty() ? nullptr : models.back();
    return true;
  }

  /// Models tell their shell when they go, so it must still be installed.
  void dropModels()
  {
    current = nullptr;
    models.clear();
    owned_.clear();
  }

  Answer openAnswer = Answer::cancel;
  Answer saveAnswer = Answer::cancel;

private:
  std::vector<std::unique_ptr<Model>> owned_;
};

} // namespace nalt
