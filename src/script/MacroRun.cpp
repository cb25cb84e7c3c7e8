#include "script/MacroRun.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "platform/Paths.h"
#include "script/ScriptRun.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>

namespace nalt {

namespace {

constexpr std::array<std::string_view, 4> switchingFunctions = {"nalt.openModel", "nalt.importModel", "nalt.newModel",
                                                                "nalt.closeModel"};
constexpr const char* question = "This macro will switch models and won't be undoable. The complete undoable command "
                                 "list will be erased. Do you still want to activate the macro?";

/// Takes the commands of a run in as long as it lives.
class OpenMacro {
public:
  explicit OpenMacro(MacroCommand& command) { Shell::get().openMacros.push_back(&command); }
  OpenMacro(const OpenMacro&) = delete;
  OpenMacro& operator=(const OpenMacro&) = delete;
  ~OpenMacro() { Shell::get().openMacros.pop_back(); }
};

/// Commands hold on to models that a switching macro may have closed; none of them can be undone.
void forgetHistories()
{
  auto& shell = Shell::get();
  for (int i = 0; i < shell.modelCount(); ++i)
    shell.modelAt(i)->commandStack().clear();
}

} // namespace

bool switchesModels(const std::string& scriptFile)
{
  std::ifstream file(nativePath(scriptFile), std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    const auto named = [&](std::string_view function) { return line.find(function) != std::string::npos; };
    if (std::ranges::any_of(switchingFunctions, named)) return true;
  }
  return false;
}

bool runMacro(const Macro& macro, std::string& errorText)
{
  auto& shell = Shell::get();
  errorText.clear();
  bool switches = switchesModels(macro.scriptFile);
  if (switches && shell.ask(question) != Answer::yes) return false;

  auto command = std::make_unique<MacroCommand>(macro.scriptFile, macro.parameters);
  bool good = false;
  bool records = false;
  {
    ScriptRun run(/*batch=*/false);
    const ScriptRun::Activation activation(run);
    const OpenMacro open(*command);
    records = run.records();
    good = runScript(run, macro.scriptFile, errorText, macro.parameters, {}, "");
    switches = switches || run.switchedModels();
  }

  const std::string failure = "Failed to execute " + macro.scriptFile + ".\n" + errorText;
  const bool failed = !good && !errorText.empty();
  if (!records) {
    if (failed) shell.warning(failure);
  } else if (switches) {
    if (failed) shell.warning(failure + "\n\nCan't be undone since the macro switched models.");
    command.reset();
    forgetHistories();
  } else if (failed) {
    shell.warning(failure + "\n\nUndoing command...");
    command->undo();
  } else if (auto* model = shell.currentModel()) {
    model->commandStack().add(std::move(command));
  }
  return good;
}

} // namespace nalt
