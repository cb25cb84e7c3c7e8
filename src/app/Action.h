#pragma once

#include <string>

namespace nalt {

class Gui;

/// When an entry of a menu or tool bar can be used.
using Condition = bool (*)(const Gui&);
/// What it does.
using Operation = void (*)(Gui&);

/// The conditions, by what must be there. While a file operation runs, what could disturb it is off.
namespace when {
bool always(const Gui& gui);
bool never(const Gui& gui);
bool idle(const Gui& gui);          ///< no file operation runs
bool model(const Gui& gui);         ///< a model is open
bool idleModel(const Gui& gui);     ///< a model is open and no file operation runs
bool revertable(const Gui& gui);    ///< the current model has a file to go back to
bool severalModels(const Gui& gui); ///< at least two
bool viewport(const Gui& gui);      ///< the current model has an active viewport
bool selection(const Gui& gui);     ///< something is selected and no file operation runs
bool undoable(const Gui& gui);
bool redoable(const Gui& gui);
bool recentFiles(const Gui& gui); ///< there are files to open again
} // namespace when

/// In a few words why that can't be used now; null when it can.
/// @param run null for what isn't in the program yet
const char* whyNot(Operation run, Condition enabled, const Gui& gui);
/// The same for a submenu.
const char* whyNotOpen(Condition enabled, const Gui& gui);
/// The reason behind a name, in brackets; just the name without a reason.
std::string withReason(const std::string& name, const char* reason);

} // namespace nalt
