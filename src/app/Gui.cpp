#include "app/Gui.h"

#include "app/DesktopRecentFiles.h"
#include "app/EventHandler.h"
#include "app/FileLists.h"
#include "app/GuiWidgets.h"
#include "app/MenuBar.h"
#include "app/PaletteButtons.h"
#include "app/ProgressWindow.h"
#include "app/Splash.h"
#include "app/ToolBars.h"
#include "app/dialogs/Dialogs.h"
#include "core/ApiReference.h"
#include "core/KeyboardFocus.h"
#include "core/LuaText.h"
#include "core/Model.h"
#include "core/ModelGroup.h"
#include "core/Preferences.h"
#include "core/ScriptRecorder.h"
#include "core/Tool.h"
#include "fltapi/FltFile.h"
#include "scene/view/ViewportLayout.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Tabs.H>

#include <algorithm>

namespace nalt {

namespace {

constexpr int tabRow = 15; // pixels of the tabs' own at the top of their area

/// Keys that nothing else wants are for the active viewport of `model`.
void giveKeyboardTo(const Model* model)
{
  auto* events = EventHandler::get();
  VPBase* viewport = model ? model->activeViewport() : nullptr;
  if (events) events->setKeyboardWidget(viewport ? &viewport->widget() : nullptr);
}

/// A page takes all of a change in size, so that the row of labels keeps its height.
void keepTabRow(Fl_Tabs& tabs)
{
  tabs.resizable(tabs.children() > 0 ? tabs.child(0) : &tabs);
  tabs.init_sizes();
}

} // namespace

Gui::Gui(bool headless)
    : headless_(headless),
      mainThread_(pthread_self()),
      dialogs_(std::make_unique<Dialogs>(*this)),
      shellBefore_(Shell::install(this)),
      files_(*this)
{
  // Without a window the tabs are just the list of models.
  if (headless_) GuiWidgets::get().tabs = new Fl_Tabs(0, 0, 0, 0);
  if (headless_) GuiWidgets::get().tabs->end();
}

Gui::~Gui()
{
  while (modelCount() > 0)
    removeModel(*modelAt(0));
  if (headless_) {
    delete GuiWidgets::get().tabs;
    GuiWidgets::get().tabs = nullptr;
  }
  Shell::install(shellBefore_);
}

int Gui::modelCount() const
{
  return GuiWidgets::get().tabs->children();
}

Model* Gui::modelAt(int i) const
{
  return dynamic_cast<Model*>(GuiWidgets::get().tabs->child(i));
}

Model* Gui::modelWithPath(const std::string& path) const
{
  for (int i = 0; i < modelCount(); ++i)
    if (modelAt(i)->path() == path) return modelAt(i);
  return nullptr;
}

int Gui::placeOf(const Model& model) const
{
  return GuiWidgets::get().tabs->find(model);
}

Model& Gui::addModel(std::unique_ptr<Model> owned, const std::vector<VPBase*>& viewports, int place)
{
  Model& model = *owned;
  nameTab(model);
  takeSwitches(model);
  Fl_Tabs& tabs = *GuiWidgets::get().tabs;
  if (!headless_) model.resize(tabs.x(), tabs.y() + tabRow, std::max(tabs.w(), 1), std::max(tabs.h() - tabRow, 1));
  tabs.insert(*owned.release(), place < 0 ? tabs.children() : place);
  keepTabRow(tabs);
  if (!headless_) {
    if (viewports.empty()) {
      createViewports(model, Preferences::get().viewportCount, viewportPreferences_);
    } else {
      addViewports(model, viewports);
    }
  }
  return model;
}

std::unique_ptr<Model> Gui::removeModel(Model& model)
{
  Fl_Tabs& tabs = *GuiWidgets::get().tabs;
  const int place = tabs.find(model);
  std::unique_ptr<Model> owned(&model);
  tabs.remove(model);
  keepTabRow(tabs);
  const int next = std::min(place, modelCount() - 1);
  if (current_ == &model || next < 0) showModel(next >= 0 ? modelAt(next) : nullptr);
  return owned;
}

void Gui::nameTab(Model& model)
{
  std::vector<std::string> others;
  for (int i = 0; i < modelCount(); ++i)
    if (modelAt(i) != &model) others.push_back(modelAt(i)->tabText());
  model.nameTab(others);
}

void Gui::setCurrentModel(Model& model)
{
  showModel(&model);
}

void Gui::showModel(Model* model)
{
  if (model != current_) toolPointsCleared();
  if (current_ && current_ != model) current_->setTool(nullptr);
  current_ = model;
  giveKeyboardTo(model);
  if (headless_) return;
  followSelection(model);
  GuiWidgets& widgets = GuiWidgets::get();
  if (model) {
    widgets.tabs->value(model);
    widgets.tabs->show();
    widgets.closeModelButton->show();
  } else {
    widgets.tabs->hide();
    widgets.closeModelButton->hide();
  }
  if (model && widgets.mainWindow->shown()) {
    for (VPBase* viewport : model->viewports())
      viewport->widget().show();
    if (model->activeViewport()) giveKeysTo(model->activeViewport()->widget());
  }
  widgets.modelGroup->redraw();
  updateWidgets();
  dialogs_->modelChanged();
}

void Gui::switchTo(Model& model)
{
  if (&model == current_) return;
  showModel(&model);
  record("setCurrentModel", luaCall("setCurrentModel", model.path()));
}

void Gui::tabChanged()
{
  if (auto* model = dynamic_cast<Model*>(GuiWidgets::get().tabs->value())) switchTo(*model);
}

void Gui::nextModel(int step)
{
  const int count = modelCount();
  if (count < 2 || !current_) return;
  const int place = GuiWidgets::get().tabs->find(current_);
  switchTo(*modelAt((place + step + count) % count));
}

Model* Gui::newModel(const std::string& filename)
{
  auto model = std::make_unique<Model>(0, 0, 0, 0);
  if (!model->createEmpty()) return nullptr;
  model->setPath(filename);
  Model& added = addModel(std::move(model));
  showModel(&added);
  return &added;
}

void Gui::createUntitled()
{
  files_.create(untitled);
}

bool Gui::openModel(const std::string& path, bool synchronous)
{
  return files_.open(path, synchronous);
}

void Gui::openFiles(const std::vector<std::string>& paths)
{
  for (const std::string& path : paths)
    files_.open(path, /*synchronous=*/false);
}

void Gui::importFiles(const std::vector<std::string>& paths)
{
  for (const std::string& path : paths)
    files_.import(path, /*synchronous=*/false);
}

void Gui::openDropped(const std::string& lines)
{
  const FileLists lists = sortFiles(pathsOfDrop(lines));
  openFiles(lists.open);
  importFiles(lists.import);
}

int Gui::saveVersionOf(const Model& model)
{
  if (Preferences::get().saveLatestVersion || !model.fltFile()) return fltapi::currentVersion;
  return std::clamp(model.fltFile()->loadedVersion(), fltapi::oldestVersion, fltapi::currentVersion);
}

bool Gui::saveModel(int version, bool synchronous)
{
  return current_ && files_.save(*current_, current_->path(), version, synchronous);
}

bool Gui::saveModelAs(const std::string& path, int version, bool synchronous)
{
  if (!current_) return false;
  const std::string full = withOpenFlightSuffix(path);
  return files_.mayOverwrite(full) && files_.save(*current_, full, version, synchronous);
}

bool Gui::revertModel(bool synchronous)
{
  return files_.revert(synchronous);
}

void Gui::save()
{
  if (!current_) return;
  if (current_->path() == untitled)
    saveAs();
  else
    saveModel(saveVersionOf(*current_), /*synchronous=*/false);
}

void Gui::saveAs()
{
  if (!current_) return;
  Model& model = *current_;
  const std::string path = files_.chooseSavePath(model);
  if (!path.empty()) files_.save(model, path, saveVersionOf(model), /*synchronous=*/false);
}

void Gui::record(const std::string& function, const std::string& line)
{
  if (quiet_ || !recorder_ || !recorder_->recording()) return;
  recorder_->appendComment(ApiReference::commentText(function));
  recorder_->appendScript(line);
}

void Gui::setSelectionMode(int number)
{
  selectionMode_ = number;
  updateWidgets();
}

void Gui::addRecent(const std::string& path)
{
  if (!recentFiles_.add(path)) return;
  if (!headless_) noteOnDesktop(path);
  updateWidgets();
}

void Gui::documentChanged(Model& model)
{
  if (&model == current_) updateWidgets();
}

void Gui::activeViewportChanged(Model& model)
{
  if (&model != current_) return;
  giveKeyboardTo(&model);
  updateWidgets();
}

void Gui::historyChanged(Model& model)
{
  if (&model != current_) return;
  updateWidgets();
  dialogs_->modelChanged();
}

void Gui::selectionChanged(Model& model)
{
  if (&model != current_) return;
  followSelection(current_);
  updateWidgets();
}

void Gui::parentChanged(Model& model)
{
  if (&model == current_) updateWidgets();
}

void Gui::paletteIndexChanged(Model& model)
{
  if (&model == current_ && !headless_) updatePaletteButtons(*this);
}

void Gui::toolPointGiven(const osg::Vec3d& point)
{
  toolPoints_.push(point);
  showToolPoints(toolPoints_);
}

void Gui::toolPointMoved(const osg::Vec3d& point)
{
  toolPoints_.current = point;
  showToolPoints(toolPoints_);
}

void Gui::toolPointsCleared()
{
  toolPoints_ = {};
  showToolPoints(toolPoints_);
}

void Gui::setSnapsToGrid(bool snaps)
{
  snapsToGrid_ = snaps;
  applySwitches();
}

void Gui::applySwitches()
{
  for (int i = 0; i < modelCount(); ++i)
    takeSwitches(*modelAt(i));
}

/// Gives `model` the switches that all models share.
void Gui::takeSwitches(Model& model) const
{
  DisplaySwitches switches = model.switches();
  switches.gizmos = Preferences::get().showGizmos;
  switches.snapToGrid = snapsToGrid_;
  model.setSwitches(switches);
}

void Gui::toolChanged(Model& model)
{
  if (&model == current_) updateWidgets();
}

/// A script may have done anything to any model, and what it changed is shown once, at its end.
void Gui::scriptEnded()
{
  showModel(current_);
  for (int i = 0; i < modelCount(); ++i)
    modelAt(i)->redrawViewports();
  dialogs_->preferencesChanged(); // the tolerance, say
}

void Gui::showAttributes(Model&, const Selection& picked)
{
  const auto names = picked.names();
  const std::string what = names.size() == 1 ? *names.begin() : std::to_string(names.size()) + " elements";
  setStatusLine("Selected " + what + "; attribute panels are not in this version.");
}

void Gui::setTool(std::unique_ptr<Tool> tool)
{
  if (current_)
    current_->setTool(std::move(tool));
  else
    updateWidgets();
}

void Gui::setSplash(std::unique_ptr<Splash> splash)
{
  splash_ = std::move(splash);
}

void Gui::updateTitle()
{
  std::string title = "Nalt";
  if (current_) title += " - " + current_->path() + (current_->isDirty() ? "*" : "");
  Fl_Double_Window& window = *GuiWidgets::get().mainWindow;
  if (!window.label() || title != window.label()) window.copy_label(title.c_str());
}

void Gui::updateWidgets()
{
  if (headless_) return;
  updateTitle();
  updateMenuBar(*this);
  updateToolBars(*this);
  updateStatusArea(*this);
  updatePaletteButtons(*this);
}

} // namespace nalt
