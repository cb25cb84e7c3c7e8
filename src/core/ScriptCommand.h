#pragma once

#include "core/Command.h"

namespace nalt {

/// An act that changes no document, such as opening a file, and is kept only so that it reaches the recording.
class ScriptCommand : public Command {
public:
  /// @param title what the act is called, "Open Model" say
  ScriptCommand(const std::string& title, std::string script, std::string comment)
      : Command("Script Command: " + title), script_(std::move(script)), comment_(std::move(comment))
  {}

  void undo() override {}
  void redo() override {}
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
  std::string scriptText() const override { return script_; }
  std::string commentText() const override { return comment_; }
  bool isScriptOnly() const override { return true; }

private:
  std::string script_;
  std::string comment_;
};

} // namespace nalt
