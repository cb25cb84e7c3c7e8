#include "app/dialogs/CommandListText.h"

#include "core/CommandStack.h"

#include <ranges>

namespace nalt {

namespace {

constexpr const char* italics = "@i";
constexpr const char* bold = "@b";

int sizeOf(const CommandStack::Commands& commands)
{
  return static_cast<int>(commands.size());
}

} // namespace

std::vector<std::string> commandListLines(const CommandStack& stack)
{
  std::vector<std::string> lines;
  for (const auto& command : stack.redoCommands())
    lines.push_back(italics + ("( " + command->name() + " )"));
  for (const auto& command : stack.undoCommands() | std::views::reverse)
    lines.push_back(bold + command->name());
  return lines;
}

int currentCommandLine(const CommandStack& stack)
{
  return stack.undoCommands().empty() ? 0 : sizeOf(stack.redoCommands()) + 1;
}

std::string plainCommandText(const std::string& line)
{
  return line.starts_with(italics) || line.starts_with(bold) ? line.substr(2) : line;
}

void goToCommandLine(CommandStack& stack, int line)
{
  const int count = sizeOf(stack.undoCommands()) + sizeOf(stack.redoCommands());
  if (line < 1 || line > count) return;
  // In the end this line and all below it are done, those above it aren't.
  const int redos = sizeOf(stack.redoCommands()) - (line - 1);
  for (int i = 0; i < redos; ++i)
    stack.redo();
  for (int i = -1; i >= redos; --i)
    stack.undo();
}

} // namespace nalt
