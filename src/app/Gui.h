#pragma once

#include "app/FileOperations.h"
#include "app/MessageDialogs.h"
#include "app/RecentFiles.h"
#include "app/StatusArea.h"
#include "core/Shell.h"
#include "scene/view/ViewportPreferences.h"

#include <functional>
#include <memory>
#include <pthread.h>
#include <set>
#include <string>
#include <vector>

namespace nalt {

class Dialogs;
class ProgressWindow;
class Splash;
class Tool;

/// The controller behind the main window, and the program's shell. The open models are the pages of the tabs. Without a
/// display ("headless") it does the same with no window. Its widgets must exist before it, and it goes before them.
class Gui : public Shell {
public:
  explicit Gui(bool headless);
  ~Gui() override;
  Gui(const Gui&) = delete;
  Gui& operator=(const Gui&) = delete;

  /// The one in force; only for what FLTK calls without a way to hand an object along.
  static Gui& get() { return static_cast<Gui&>(Shell::get()); }

  bool headless() const { return headless_; }

  // Shell: messages
  void warning(const std::string& text, bool append = false, MessageId id = MessageId::none) override;
  void info(const std::string& text, bool append = false, MessageId id = MessageId::none) override;
  /// Why a file operation can't succeed. From a worker the text is shown before all warnings.
  void error(const std::string& text);
  Answer ask(const std::string& text) override;
  /// With a third answer, to give up what led to the question.
  virtual Answer askOrCancel(const std::string& text);
  bool waitCursor() override;
  void defaultCursor() override;
  void setStatusLine(const std::string& text) override;
  void beginProgress(const std::string& text);
  void showProgress(double percent);
  void endProgress();

  // Shell: quiet runs
  bool quiet() const override { return quiet_; }
  bool batch() const override { return batch_; }
  void setQuiet(bool quiet, bool batch) override;
  void setPresetAnswer(Answer answer) override { presetAnswer_ = answer; }
  /// Where messages of a quiet run go; standard output until it is set.
  void setScriptOutput(std::function<void(const std::string&)> output) { scriptOutput_ = std::move(output); }

  // Shell: documents
  Model* currentModel() const override { return current_; }
  void setCurrentModel(Model& model) override;
  int modelCount() const override;
  Model* modelAt(int i) const override;
  Model* newModel(const std::string& filename) override;
  bool openModel(const std::string& path, bool synchronous) override;
  bool saveModel(int version, bool synchronous) override;
  bool saveModelAs(const std::string& path, int version, bool synchronous) override;
  bool revertModel(bool synchronous) override;
  bool closeModel() override;
  void documentChanged(Model& model) override;
  void activeViewportChanged(Model& model) override;
  void historyChanged(Model& model) override;
  void selectionChanged(Model& model) override;
  void parentChanged(Model& model) override;
  void paletteIndexChanged(Model& model) override;
  void toolPointGiven(const osg::Vec3d& point) override;
  void toolPointMoved(const osg::Vec3d& point) override;
  void toolPointsCleared() override;
  void toolChanged(Model& model) override;
  void showAttributes(Model& model, const Selection& picked) override;
  void scriptEnded() override;
  void openDropped(const std::string& lines) override;
  ScriptRecorder* scriptRecorder() override { return recorder_; }
  /// The script editor, not owned; null when it goes.
  void setScriptRecorder(ScriptRecorder* recorder) { recorder_ = recorder; }
  /// Adds an act that isn't a command to the recording, if one runs and the user acts.
  void record(const std::string& function, const std::string& line);

  // What menus and buttons call
  void createUntitled();
  void save();
  void saveAs();
  void closeAllModels();
  void nextModel(int step);
  /// Closes all models, asking about changes, and then the window. A cancelled question keeps the program running.
  void exitProgram();
  void openFiles(const std::vector<std::string>& paths);
  void importFiles(const std::vector<std::string>& paths);
  /// Makes `model` current and records that, unless it is current already.
  void switchTo(Model& model);
  /// After the user clicked a tab.
  void tabChanged();

  /// What a click in a viewport selects, 1 for vertices; the table of the tool bar has the numbers.
  int selectionMode() const { return selectionMode_; }
  SelectionMode pickMode() const override { return static_cast<SelectionMode>(selectionMode_); }
  void setSelectionMode(int number);
  /// Makes `tool` current in the current model; without one it goes away at once, and the buttons go up.
  void setTool(std::unique_ptr<Tool> tool);

  /// Whether points that the user gives jump to the grid, in all models.
  bool snapsToGrid() const { return snapsToGrid_; }
  void setSnapsToGrid(bool snaps);
  /// Hands the switches that all models share to each of them, the gizmos of the preferences among them.
  void applySwitches();

  // For file operations
  FileOperations& files() { return files_; }
  const FileOperations& files() const { return files_; }
  /// The model that shows exactly this path, null if none does.
  Model* modelWithPath(const std::string& path) const;
  /// Makes `model` a page of the tabs, with viewports unless headless; the tabs own it. It isn't current yet.
  /// A `place` below 0 is the last one.
  Model& addModel(std::unique_ptr<Model> model, const std::vector<VPBase*>& viewports = {}, int place = -1);
  /// The place of `model` among the tabs.
  int placeOf(const Model& model) const;
  /// Takes `model` off the tabs; another one becomes current.
  std::unique_ptr<Model> removeModel(Model& model);
  /// Puts the name of `model`'s file on its tab, with a number where others have it too.
  void nameTab(Model& model);
  void addRecent(const std::string& path);
  RecentFiles& recentFiles() { return recentFiles_; }
  const RecentFiles& recentFiles() const { return recentFiles_; }
  /// The version that Save writes: the latest, or that of the file as it was read.
  static int saveVersionOf(const Model& model);
  /// Brings menus, tool bars, fields and the title up to the present state.
  void updateWidgets();
  /// What new viewports start with.
  const ViewportPreferences& viewportPreferences() const { return viewportPreferences_; }
  void setViewportPreferences(const ViewportPreferences& preferences) { viewportPreferences_ = preferences; }
  Dialogs& dialogs() { return *dialogs_; }
  void setSplash(std::unique_ptr<Splash> splash);
  Splash* splash() { return splash_.get(); }
  /// The program ended while a worker was still busy.
  bool abandonedWork() const { return abandonedWork_; }

private:
  static constexpr const char* untitled = "untitled.flt"; ///< the path of a model without a file

  void message(MessageKind kind, const std::string& text, bool append, MessageId id);
  bool onMainThread() const { return pthread_equal(pthread_self(), mainThread_) != 0; }
  void showModel(Model* model);
  bool mayClose(Model& model);
  bool saveAndWait(Model& model);
  void takeSwitches(Model& model) const;
  void updateTitle();
  bool mayEmptyClipboard(const Model& model);
  bool exitWhileLoading();
  void tearDown();

  bool headless_;
  pthread_t mainThread_;
  bool quiet_ = false;
  bool batch_ = false;
  Answer presetAnswer_ = Answer::yes;
  std::function<void(const std::string&)> scriptOutput_;
  std::set<MessageId> silenced_;
  bool waiting_ = false; ///< the wait cursor is on
  bool closing_ = false;
  bool abandonedWork_ = false;
  ViewportPreferences viewportPreferences_;
  int selectionMode_ = 1;
  bool snapsToGrid_ = true;
  ToolPoints toolPoints_;
  Model* current_ = nullptr;
  RecentFiles recentFiles_;
  std::unique_ptr<ProgressWindow> progress_;
  std::unique_ptr<Splash> splash_;
  ScriptRecorder* recorder_ = nullptr;
  std::unique_ptr<Dialogs> dialogs_;
  Shell* shellBefore_;
  FileOperations files_;
};

} // namespace nalt
