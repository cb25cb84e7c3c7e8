#pragma once

#include "core/selection/SelectionMode.h"

#include <cstdint>
#include <osg/Vec3d>
#include <string>
#include <vector>

namespace nalt {

class MacroCommand;
class Model;
class ScriptRecorder;
class Selection;

/// What a message is about, so that the user can switch it off. `none` can't be switched off.
enum class MessageId : std::uint32_t { none = 0, saveVersion = 7 };

enum class Answer { yes = 0, no = 1, cancel = 2 };

/// What the document core, the tools and the scripts need of the program around them. The one real implementation is
/// the main window's controller; tests install one that records. Main thread only, except `warning` and `info`, which a
/// file worker may call too: the text is then queued and shown by the main thread.
class Shell {
public:
  virtual ~Shell() = default;

  /// The shell in force. One is always installed before a Model exists.
  static Shell& get();
  /// The camera that "Store View" keeps for "Recall View", as one line of text; shared by all models.
  static std::string& storedView();
  /// Installs `shell` (not owned) and gives back the one before it, null at first.
  static Shell* install(Shell* shell);

  // Messages. In a quiet run the text goes to the script output with "WARNING: " or "INFO: " in front.
  virtual void warning(const std::string& text, bool append = false, MessageId id = MessageId::none) = 0;
  virtual void info(const std::string& text, bool append = false, MessageId id = MessageId::none) = 0;
  /// A yes-or-no question; in a quiet run nobody is asked and the preset answer counts.
  virtual Answer ask(const std::string& text) = 0;

  /// False when it is on already or the run is quiet; who switched it on then leaves it to others to switch it off.
  virtual bool waitCursor() = 0;
  /// Does nothing in a quiet run.
  virtual void defaultCursor() = 0;
  virtual void setStatusLine(const std::string& text) = 0;

  // Quiet runs. A batch run is quiet, has no window, and makes no commands.
  virtual bool quiet() const = 0;
  virtual bool batch() const = 0;
  virtual void setQuiet(bool quiet, bool batch) = 0;
  virtual void setPresetAnswer(Answer answer) = 0;

  // Documents. All paths are native; results are false when nothing was done, after a message has said why.
  virtual Model* currentModel() const = 0;
  virtual void setCurrentModel(Model& model) = 0;
  /// Number of open models and the i-th of them, in tab order.
  virtual int modelCount() const = 0;
  virtual Model* modelAt(int i) const = 0;
  /// A new empty document stored under `filename`; it becomes current. Null only when out of memory.
  virtual Model* newModel(const std::string& filename) = 0;
  /// Runs to its end before it returns when `synchronous`; otherwise the result only says that it was started or
  /// queued.
  virtual bool openModel(const std::string& path, bool synchronous) = 0;
  virtual bool saveModel(int version, bool synchronous) = 0;
  virtual bool saveModelAs(const std::string& path, int version, bool synchronous) = 0;
  /// Loads the current model anew from its file, after asking. It is another Model then.
  virtual bool revertModel(bool /*synchronous*/) { return false; }
  /// Asks about unsaved changes first (in a quiet run the preset answer counts). False when the user keeps the model.
  virtual bool closeModel() = 0;

  /// The user wants to see the attributes of what was picked in `model`.
  virtual void showAttributes(Model& /*model*/, const Selection& /*picked*/) {}
  /// What a click in a viewport selects.
  virtual SelectionMode pickMode() const { return SelectionMode::vertex; }

  // What the core tells the shell so that the window can follow; a shell without a window needs none of it.
  /// Path, tab label or dirty state of `model` changed.
  virtual void documentChanged(Model& /*model*/) {}
  /// The active viewport of `model` gets the keys that nothing else wants; it may have been the active one before.
  virtual void activeViewportChanged(Model& /*model*/) {}
  /// What can be undone or redone in `model` changed.
  virtual void historyChanged(Model& /*model*/) {}
  virtual void selectionChanged(Model& /*model*/) {}
  /// Another tool of `model` is current, or none.
  virtual void toolChanged(Model& /*model*/) {}
  /// New nodes of `model` go to another place.
  virtual void parentChanged(Model& /*model*/) {}
  /// Another palette entry of `model` is the current one.
  virtual void paletteIndexChanged(Model& /*model*/) {}
  /// The user gave the current tool a point of the model, or drags the last one: the window shows it with the one
  /// before.
  virtual void toolPointGiven(const osg::Vec3d& /*point*/) {}
  virtual void toolPointMoved(const osg::Vec3d& /*point*/) {}
  /// Another tool starts with none.
  virtual void toolPointsCleared() {}
  /// A script that the user started is over: tree, selection, undo menu and macro list are shown as they are now.
  virtual void scriptEnded() {}
  /// Opens what was dropped on the window: paths or "file:" URIs, one in each line.
  virtual void openDropped(const std::string& /*lines*/) {}

  /// The script editor, null while there is none.
  virtual ScriptRecorder* scriptRecorder() { return nullptr; }
  /// Macros that are running, the innermost last: it takes the commands. Not owned.
  std::vector<MacroCommand*> openMacros;
};

} // namespace nalt
