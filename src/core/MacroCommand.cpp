#include "core/MacroCommand.h"

#include "core/ApiReference.h"
#include "core/LuaText.h"
#include "core/Shell.h"
#include "core/WaitCursor.h"

#include <ranges>

namespace nalt {

namespace {

/// Keeps dialogs and redraws away while the steps of a macro run one after the other.
class QuietBlock {
public:
  QuietBlock() : wasQuiet_(Shell::get().quiet()), wasBatch_(Shell::get().batch())
  {
    Shell::get().setQuiet(true, wasBatch_);
  }
  QuietBlock(const QuietBlock&) = delete;
  QuietBlock& operator=(const QuietBlock&) = delete;
  ~QuietBlock() { Shell::get().setQuiet(wasQuiet_, wasBatch_); }

private:
  bool wasQuiet_;
  bool wasBatch_;
};

std::string valueText(const MacroParameter& parameter)
{
  switch (parameter.type) {
  case MacroParameter::Type::boolean:
    return luaText(parameter.booleanValue);
  case MacroParameter::Type::number:
    return luaText(parameter.numberValue);
  case MacroParameter::Type::file:
    return luaText(parameter.fileValue);
  case MacroParameter::Type::folder:
    return luaText(parameter.folderValue);
  default:
    return luaText(parameter.stringValue);
  }
}

} // namespace

MacroCommand::MacroCommand(const std::string& path, std::vector<MacroParameter> parameters)
    : Command("MacroCommand: " + path), path_(path), parameters_(std::move(parameters))
{}

void MacroCommand::undo()
{
  const WaitCursor cursor;
  const QuietBlock quiet;
  for (const auto& child : children_ | std::views::reverse)
    child->undo();
}

void MacroCommand::redo()
{
  const WaitCursor cursor;
  const QuietBlock quiet;
  for (const auto& child : children_)
    child->redo();
}

void MacroCommand::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  for (const auto& child : children_)
    child->replaceRecord(oldRecord, newRecord);
}

std::string MacroCommand::scriptText() const
{
  std::string text = "nalt.executeMacro(" + luaText(path_);
  for (const auto& parameter : parameters_)
    text += ", " + luaText(parameter.name) + ", " + valueText(parameter);
  return text + ")";
}

std::string MacroCommand::commentText() const
{
  return ApiReference::commentText("executeMacro");
}

} // namespace nalt
