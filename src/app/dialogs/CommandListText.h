#pragma once

#include <string>
#include <vector>

namespace nalt {

class CommandStack;

// The history of a model as a list: what can be done again, then what can be undone, so that time runs upwards. Lines
// count from 1, as in FLTK's browsers.

/// The lines in the layout codes of FLTK's browsers: "@i( Delete )" can be done again, "@bDelete" can be undone.
std::vector<std::string> commandListLines(const CommandStack& stack);
/// The line of the command that would be undone next; 0 without one.
int currentCommandLine(const CommandStack& stack);
/// A line as it is read, without layout codes.
std::string plainCommandText(const std::string& line);
/// Undoes or redoes as much as it takes to make the command of that line the one that would be undone next.
void goToCommandLine(CommandStack& stack, int line);

} // namespace nalt
