#pragma once

#include "core/Shell.h"

#include <string>
#include <vector>

namespace nalt {

/// A shell for tests: keeps what it is told and answers what the test sets.
class RecordingShell : public Shell {
public:
  std::vector<std::string> messages; ///< "WARNING: ..." and "INFO: ..."
  std::vector<std::string> questions;
  std::vector<std::string> dropped;
  std::vector<Model*> models;
  Model* current = nullptr;
  Answer answer = Answer::yes;
  std::string status;
  bool isQuiet = false;
  bool isBatch = false;
  ScriptRecorder* recorder = nullptr; ///< not owned
  int documentChanges = 0;
  int activeViewportChanges = 0;

  void warning(const std::string& text, bool, MessageId) override { messages.push_back("WARNING: " + text); }
  void info(const std::string& text, bool, MessageId) override { messages.push_back("INFO: " + text); }
  Answer ask(const std::string& text) override
  {
    questions.push_back(text);
    return answer;
  }
  bool waitCursor() override { return true; }
  void defaultCursor() override {}
  void setStatusLine(const std::string& text) override { status = text; }
  bool quiet() const override { return isQuiet; }
  bool batch() const override { return isBatch; }
  void setQuiet(bool quietNow, bool batchNow) override
  {
    isQuiet = quietNow;
    isBatch = batchNow;
  }
  void setPresetAnswer(Answer preset) override { answer = preset; }
  Model* currentModel() const override { return current; }
  void setCurrentModel(Model& model) override { current = &model; }
  int modelCount() const override { return static_cast<int>(models.size()); }
  Model* modelAt(int i) const override { return models.at(static_cast<std::size_t>(i)); }
  Model* newModel(const std::string&) override { return nullptr; }
  bool openModel(const std::string&, bool) override { return false; }
  bool saveModel(int, bool) override { return false; }
  bool saveModelAs(const std::string&, int, bool) override { return false; }
  bool closeModel() override { return false; }
  void documentChanged(Model&) override { ++documentChanges; }
  void activeViewportChanged(Model&) override { ++activeViewportChanges; }
  void openDropped(const std::string& lines) override { dropped.push_back(lines); }
  ScriptRecorder* scriptRecorder() override { return recorder; }
};

} // namespace nalt
