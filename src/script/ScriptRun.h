#pragma once

#include "core/MacroCommand.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace nalt {

class Model;

/// One run of one script. While it lives, the program is quiet: no dialogs, questions take the preset answer, messages
/// go to the script's output.
class ScriptRun {
public:
  /// @param batch a run from the command line, with no window and no model at the start; else the open models are the
  ///              script's models
  explicit ScriptRun(bool batch);
  ScriptRun(const ScriptRun&) = delete;
  ScriptRun& operator=(const ScriptRun&) = delete;
  /// A batch run closes its models without saving.
  ~ScriptRun();

  /// The run that the bindings work for, null when no script runs.
  static ScriptRun* active() { return active_; }
  /// Makes a run the active one for the time of a block. A macro that a script starts thus nests; the run that goes on
  /// after it then knows the models as they are now.
  class Activation {
  public:
    explicit Activation(ScriptRun& run);
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;
    ~Activation();

  private:
    ScriptRun& run_;
    ScriptRun* before_;
  };
  /// How many runs stand inside each other now, this one included; 1 for a run that nothing else started.
  int depth() const { return depth_; }

  bool batch() const { return batch_; }
  /// Whether what the script does goes on the undo stack. Nobody could undo a batch run, nor a macro inside one.
  bool records() const;
  bool noLineFeed() const { return noLineFeed_; }
  /// File that output and errors are appended to, empty for none.
  const std::string& logFile() const { return logFile_; }

  // ---- the models of the run, by file name -----------------------------------------------------------------------

  Model* currentModel() const { return currentModel_; }
  const std::string& currentFilename() const { return currentFilename_; }
  const std::map<std::string, Model*>& models() const { return models_; }
  Model* modelNamed(const std::string& filename) const;
  /// Enters the model under its path and makes it current, in the window too.
  void enter(Model& model);
  /// The current model has another path now.
  void rename();
  /// Closes the current model without saving; the window's next one, if any, takes its place. False when it stays.
  bool closeCurrent();
  void setCurrent(Model& model);
  /// The current model was loaded anew and is another object now.
  void replaceCurrent();
  /// Whether the run has turned to another model, or closed or reloaded one, at any time.
  bool switchedModels() const { return switchedModels_; }
  /// Closes all models without saving. Then none is current.
  void closeAll();

  /// Adds `text` to the output and to the log, with a line end unless the run wants none.
  void output(const std::string& text) const;
  void log(const std::string& text) const;
  /// Whether the output goes to the pane of the script editor.
  bool showsInPane() const;

private:
  static ScriptRun* active_;

  void takeOpenModels();

  std::map<std::string, Model*> models_;
  Model* currentModel_ = nullptr;
  std::string currentFilename_;
  std::string logFile_;
  bool batch_;
  bool wasQuiet_;
  bool wasBatch_;
  bool noLineFeed_;
  bool switchedModels_ = false;
  int depth_ = 1;
};

/// The function behind `print`; standard output when no script runs.
void scriptOutput(const ScriptRun* run, const std::string& text);

/// Where a message of a quiet run goes that would else be a dialog. `line` says what kind it is: "WARNING: ..." or
/// "INFO: ...". The script's output has it between two line feeds, the script editor's pane on a line of its own.
void scriptMessage(const std::string& line);

/// Shows the output of runs that aren't batch runs: appends a line to the script editor's pane. Null while there is no
/// such pane; the output then goes to standard output.
void setOutputPane(std::function<void(const std::string&)> pane);

/// Executes a script file in a fresh Lua state. False when it couldn't be loaded or ended with an error, whose text
/// `errorText` then holds. Parameters become globals.
/// @param arguments, programName for the global table `arg`, which only a batch run has
bool runScript(ScriptRun& run, const std::string& scriptPath, std::string& errorText,
               const std::vector<MacroParameter>& parameters, const std::vector<std::string>& arguments,
               const std::string& programName);

/// What NALT_PATH_TO_SCRIPT says: the folder of the script with its separator, empty for a bare file name. A relative
/// path is made absolute against its own folder, which so appears twice.
std::string pathToScript(const std::string& scriptPath);

} // namespace nalt
