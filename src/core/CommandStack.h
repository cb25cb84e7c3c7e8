#pragma once

#include "core/Command.h"

#include <memory>
#include <vector>

namespace nalt {

class Model;

/// The edits of one model that can be taken back and those that can be done again. It owns them; it never runs an edit
/// for the first time.
class CommandStack {
public:
  explicit CommandStack(Model& model) : model_(model) {}

  /// Takes a finished command over. While a macro runs it becomes part of that macro.
  void add(std::unique_ptr<Command> command);
  void undo();
  void redo();
  /// Forgets everything.
  void clear();
  /// Drops the oldest commands when the user's limit for their number became smaller.
  void followLimit();
  /// Tells every command of the stack.
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord);

  using Commands = std::vector<std::unique_ptr<Command>>;
  /// The newest command is the last one of each.
  const Commands& undoCommands() const { return undo_; }
  const Commands& redoCommands() const { return redo_; }

private:
  void trim();
  void changed();
  static void record(Command& command);

  Model& model_;
  Commands undo_;
  Commands redo_;
};

} // namespace nalt
