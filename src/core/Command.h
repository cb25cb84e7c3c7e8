#pragma once

#include "fltapi/Record.h"

#include <string>

namespace nalt {

/// One edit of a document, as an object that can take it back, do it again, and print the Lua lines that repeat it.
///
/// A command describes what has happened already: a tool does the edit and hands the finished command to the model's
/// CommandStack. Commands that hold records hold them by counted references, so what an edit took out of the tree lives
/// on.
class Command {
public:
  Command() = default;
  explicit Command(std::string name) : name_(std::move(name)) {}
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  virtual void undo() = 0;
  virtual void redo() = 0;
  /// Another command had to make `newRecord` in the place of `oldRecord`: references to it follow.
  virtual void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) = 0;
  /// Lua statements that repeat the edit, without a line feed at the end.
  virtual std::string scriptText() const { return "-- Script export not implemented for this command: " + name_; }
  /// The lines that document the function that scriptText() calls.
  virtual std::string commentText() const { return "-- No description added for this command: " + name_; }
  /// Exists for the recording alone and changes no document.
  virtual bool isScriptOnly() const { return false; }

  /// What users read behind "Undo".
  const std::string& name() const { return name_; }
  /// Line of the script editor at which the recorded text of this command starts, -1 when it has none.
  int scriptLine() const { return scriptLine_; }
  void setScriptLine(int line) { scriptLine_ = line; }

protected:
  void setName(const std::string& name) { name_ = name; }

private:
  std::string name_ = "Unknown Command";
  int scriptLine_ = -1;
};

} // namespace nalt
