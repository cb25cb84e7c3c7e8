#pragma once

#include "core/MacroCommand.h"

#include <string>
#include <vector>

namespace nalt {

/// A script with named parameters that runs as one step of the history.
struct Macro {
  std::string name;
  std::string scriptFile;
  std::vector<MacroParameter> parameters; ///< with the values of this run
};

/// Whether the file names a function that opens, makes, imports or closes models. A comment counts as well; a file that
/// can't be read names none.
bool switchesModels(const std::string& scriptFile);

/// Runs the macro, inside the active run if there is one. What it did is one command of the current model afterwards.
/// Where it failed, a warning says so and what it did is undone; a batch run makes no commands, and keeps what was
/// done. A macro that switched models leaves none that can be undone. False when it failed, with the script's error in
/// `errorText`, and when the user didn't want it.
bool runMacro(const Macro& macro, std::string& errorText);

} // namespace nalt
