#include "core/CommandStack.h"

#include "core/MacroCommand.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/ScriptRecorder.h"
#include "core/Shell.h"
#include "core/WaitCursor.h"

namespace nalt {

namespace {

bool recording()
{
  const auto* recorder = Shell::get().scriptRecorder();
  return recorder && recorder->recording();
}

} // namespace

/// Appends the command's text to the recording and notes where it starts.
void CommandStack::record(Command& command)
{
  if (!recording()) return;
  auto* recorder = Shell::get().scriptRecorder();
  command.setScriptLine(recorder->lineCount());
  if (const auto comment = command.commentText(); !comment.empty()) recorder->appendComment(comment);
  if (const auto script = command.scriptText(); !script.empty()) recorder->appendScript(script);
}

void CommandStack::add(std::unique_ptr<Command> command)
{
  if (!command) return;
  auto& shell = Shell::get();
  if (shell.openMacros.empty()) record(*command);
  if (command->isScriptOnly() && !recording()) return;
  if (!shell.openMacros.empty()) {
    shell.openMacros.back()->append(std::move(command));
    return;
  }
  undo_.push_back(std::move(command));
  redo_.clear();
  trim();
  changed();
}

void CommandStack::trim()
{
  const auto limit = static_cast<std::size_t>(std::max(0, Preferences::get().maxCommands));
  while (undo_.size() + redo_.size() > limit) {
    auto& oldest = undo_.empty() ? redo_ : undo_;
    oldest.erase(oldest.begin());
  }
}

void CommandStack::changed()
{
  Shell::get().historyChanged(model_);
}

void CommandStack::undo()
{
  if (undo_.empty()) return;
  const WaitCursor cursor;
  auto& command = *undo_.back();
  command.undo();
  if (recording() && command.scriptLine() >= 0) Shell::get().scriptRecorder()->cutBackTo(command.scriptLine());
  redo_.push_back(std::move(undo_.back()));
  undo_.pop_back();
  changed();
  model_.followHistory();
}

void CommandStack::redo()
{
  if (redo_.empty()) return;
  const WaitCursor cursor;
  auto& command = *redo_.back();
  command.redo();
  record(command);
  undo_.push_back(std::move(redo_.back()));
  redo_.pop_back();
  changed();
  model_.followHistory();
}

void CommandStack::clear()
{
  if (undo_.empty() && redo_.empty()) return;
  undo_.clear();
  redo_.clear();
  changed();
}

void CommandStack::followLimit()
{
  trim();
  changed();
}

void CommandStack::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  for (const auto& command : undo_)
    command->replaceRecord(oldRecord, newRecord);
  for (const auto& command : redo_)
    command->replaceRecord(oldRecord, newRecord);
}

} // namespace nalt
