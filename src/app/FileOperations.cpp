#include "app/FileOperations.h"

#include "app/FileLists.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/dialogs/Dialogs.h"
#include "core/Clipboard.h"
#include "core/ExternalReferences.h"
#include "core/Externals.h"
#include "core/LuaText.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/Tool.h"
#include "fltapi/FltFile.h"
#include "fltapi/VersionText.h"
#include "platform/Paths.h"
#include "scene/view/Viewport.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>

#include <algorithm>
#include <filesystem>

namespace nalt {

namespace {

constexpr double pollInterval = 0.0333; // seconds
constexpr int smallestWindowWidth = 400;
constexpr int smallestWindowHeight = 300;

const std::vector<FileFilter> openFlightFilter = {{"OpenFlight", "*.flt"}};

bool exists(const std::string& path)
{
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

std::vector<CameraView> camerasOf(const std::vector<VPBase*>& viewports)
{
  std::vector<CameraView> cameras;
  for (VPBase* panel : viewports) {
    const auto* viewport = dynamic_cast<const Viewport*>(panel);
    cameras.push_back(viewport ? CameraView{viewport->camera().pose(), viewport->orthographic()} : CameraView());
  }
  return cameras;
}

/// A viewport without a model has no camera either; with the next one it sees as it did before.
void restoreCameras(const FileJob& job)
{
  for (std::size_t i = 0; i < job.viewports.size(); ++i) {
    auto* viewport = dynamic_cast<Viewport*>(job.viewports[i]);
    if (!viewport) continue;
    viewport->camera().setAspect(static_cast<double>(viewport->w()) / std::max(1, viewport->h()));
    viewport->setOrthographic(job.cameras[i].orthographic);
    viewport->camera().setPose(job.cameras[i].pose);
  }
}

} // namespace

FileOperations::FileOperations(Gui& gui) : gui_(gui) {}

FileOperations::~FileOperations()
{
  Fl::remove_timeout(poll, this);
  if (job_) worker_.join();
}

std::unique_ptr<FileJob> FileOperations::makeJob(FileOperationKind kind, const std::string& path)
{
  auto job = std::make_unique<FileJob>();
  job->kind = kind;
  job->path = path;
  job->buildScene = !gui_.headless();
  job->options = {Preferences::get().loadExternals, Preferences::get().convertNotAvailableToZero};
  return job;
}

bool FileOperations::open(const std::string& path, bool synchronous)
{
  if (!isOpenFlightPath(path)) {
    gui_.warning("Invalid OpenFlight file: " + path);
    return false;
  }
  return submit(makeJob(FileOperationKind::open, path), synchronous);
}

bool FileOperations::create(const std::string& filename)
{
  return submit(makeJob(FileOperationKind::create, filename), /*synchronous=*/false);
}

bool FileOperations::import(const std::string& path, bool synchronous)
{
  if (!isImportPath(path)) {
    gui_.warning("Invalid import file " + path);
    return false;
  }
  return submit(makeJob(FileOperationKind::import, path), synchronous);
}

bool FileOperations::save(Model& model, const std::string& path, int version, bool synchronous)
{
  const Model* const other = gui_.modelWithPath(path);
  if (other && other != &model) {
    gui_.warning("Can't create multiple models with the same filename " + path + ".");
    return false;
  }
  if (version != fltapi::currentVersion) {
    gui_.info(fileNamePart(path) + " will be saved with OpenFlight version " + fltapi::versionText(version) + ".",
              /*append=*/false, MessageId::saveVersion);
  }
  auto job = makeJob(FileOperationKind::save, path);
  job->model = &model;
  job->version = version;
  job->renames = model.path() != path;
  return submit(std::move(job), synchronous);
}

bool FileOperations::revert(bool synchronous)
{
  waitUntilIdle();
  Model* model = gui_.currentModel();
  if (!model) return false;
  if (!exists(model->path())) {
    gui_.warning("Can't revert " + model->path() + " since the file doesn't exist anymore.");
    return false;
  }
  const bool clipboardToo = Clipboard::get().holdsFrom(model->fltFile());
  const std::string loss =
      clipboardToo ? "Clipboard contents from " + fileNamePart(model->path()) + " will be removed.\n" : "";
  if (gui_.ask(loss + "Revert file " + model->path() + "?") != Answer::yes) return false;
  if (clipboardToo) Clipboard::get().clear();
  auto job = makeJob(FileOperationKind::revert, model->path());
  job->place = gui_.placeOf(*model);
  // The panels go over to the new model, so that it is seen as the old one was.
  job->viewports = model->viewports();
  job->cameras = camerasOf(job->viewports);
  model->removeAllViewports(/*destroy=*/false);
  job->replaced = gui_.removeModel(*model);
  return run(std::move(job), synchronous);
}

bool FileOperations::submit(std::unique_ptr<FileJob> job, bool synchronous)
{
  if (synchronous) {
    waitUntilIdle();
    return run(std::move(job), synchronous);
  }
  if (busy()) {
    queue_.push_back(std::move(job));
    return true;
  }
  return run(std::move(job), synchronous);
}

bool FileOperations::run(std::unique_ptr<FileJob> job, bool synchronous)
{
  if (job->kind == FileOperationKind::create) {
    if (gui_.newModel(job->path)) gui_.record("newModel", luaCall("newModel", job->path));
    startNext();
    return true;
  }
  const bool opens = job->kind == FileOperationKind::open || job->kind == FileOperationKind::import;
  if (Model* current = gui_.currentModel(); current && opens) current->setTool(nullptr);
  if (job->kind == FileOperationKind::open) {
    if (Model* shown = gui_.modelWithPath(job->path)) {
      gui_.switchTo(*shown);
      startNext();
      return true;
    }
  }
  if (!job->model) job->built = std::make_unique<Model>(0, 0, 0, 0); // its page gets its size with its place
  job_ = std::move(job);
  gui_.updateWidgets();
  gui_.dialogs().fileOperationChanged();
  gui_.waitCursor();
  gui_.beginProgress(progressTextFor(fileOperation(job_->kind), job_->path));
  if (synchronous) {
    FileWorker::runHere(*job_);
    return finish();
  }
  Fl::add_timeout(pollInterval, poll, this);
  if (worker_.start(*job_)) return true;
  Fl::remove_timeout(poll, this);
  job_->outcome = FileJob::Outcome::failed;
  finish();
  return false;
}

void FileOperations::poll(void* data)
{
  auto* self = static_cast<FileOperations*>(data);
  if (self->job_->outcome == FileJob::Outcome::running) {
    self->gui_.showProgress(self->job_->progress);
    Fl::repeat_timeout(pollInterval, poll, data);
    return;
  }
  self->worker_.join();
  self->finish();
}

/// What follows the work, on the main thread and with the worker gone. True when the operation succeeded.
bool FileOperations::finish()
{
  const bool done = job_->outcome == FileJob::Outcome::done;
  gui_.defaultCursor();
  gui_.endProgress();
  if (job_->kind == FileOperationKind::revertExternals || job_->kind == FileOperationKind::loadExternals)
    showExternals(*job_->model);
  else if (!done)
    putBack();
  else if (job_->kind == FileOperationKind::save)
    finishSave(*job_);
  else
    finishLoad();

  // The messages wait in event loops of their own; what they see must be at rest.
  const std::unique_ptr<FileJob> over = std::move(job_);
  gui_.updateWidgets();
  gui_.dialogs().fileOperationChanged();
  if (done) recordDone(*over);
  showMessages(*over);
  startNext();
  return done;
}

void FileOperations::showMessages(const FileJob& job)
{
  for (const auto* list : {&job.errors, &job.warnings}) {
    for (const QueuedMessage& message : *list) {
      if (message.kind == MessageKind::warning)
        gui_.warning(message.text, /*append=*/true, message.id);
      else
        gui_.info(message.text, /*append=*/true, message.id);
    }
  }
}

/// Repeats what the user did as a line of the recording. What a script did is a line of its own already.
void FileOperations::recordDone(const FileJob& job) const
{
  const bool latest = job.version == fltapi::currentVersion;
  switch (job.kind) {
  case FileOperationKind::open:
    gui_.record("openModel", luaCall("openModel", job.path));
    break;
  case FileOperationKind::revert:
    gui_.record("revertModel", luaCall("revertModel"));
    break;
  case FileOperationKind::save:
    if (job.renames)
      gui_.record("saveModelAs",
                  latest ? luaCall("saveModelAs", job.path) : luaCall("saveModelAs", job.path, job.version));
    else
      gui_.record("saveModel", latest ? luaCall("saveModel") : luaCall("saveModel", job.version));
    break;
  default:
    break;
  }
}

void FileOperations::finishLoad()
{
  const bool repaired = job_->built->fltFile() && job_->built->fltFile()->modified();
  Model& model = gui_.addModel(std::move(job_->built), job_->viewports, job_->place);
  restoreCameras(*job_);
  model.setDirty(repaired);
  gui_.setCurrentModel(model);
  gui_.addRecent(model.path());
  if (Fl_Double_Window* window = GuiWidgets::get().mainWindow)
    window->size_range(smallestWindowWidth, smallestWindowHeight);
}

void FileOperations::finishSave(const FileJob& job)
{
  Model& model = *job.model;
  model.fltFile()->setLoadedVersion(job.version);
  if (model.path() != job.path) {
    model.setPath(job.path);
    gui_.nameTab(model);
  }
  model.setDirty(false);
  gui_.addRecent(job.path);
}

/// After a failure: what a revert took away is there again as it was.
void FileOperations::putBack()
{
  job_->built.reset();
  if (!job_->replaced) return;
  Model& model = gui_.addModel(std::move(job_->replaced), job_->viewports, job_->place);
  restoreCameras(*job_);
  gui_.setCurrentModel(model);
}

void FileOperations::startNext()
{
  if (job_ || queue_.empty()) return;
  std::unique_ptr<FileJob> next = std::move(queue_.front());
  queue_.pop_front();
  run(std::move(next), /*synchronous=*/false);
}

void FileOperations::chooseAndOpen()
{
  gui_.openFiles(
      openDialog_.chooseToRead(fileOperation(FileOperationKind::open).title, openFlightFilter, 0, currentPath()));
}

std::string FileOperations::chooseSavePath(const Model& model)
{
  const std::string chosen =
      saveDialog_.chooseToWrite(fileOperation(FileOperationKind::save).title, openFlightFilter, model.path());
  if (chosen.empty()) return "";
  const std::string path = withOpenFlightSuffix(chosen);
  return mayOverwrite(path) ? path : "";
}

std::string FileOperations::currentPath() const
{
  return gui_.currentModel() ? gui_.currentModel()->path() : "";
}

bool FileOperations::mayOverwrite(const std::string& path)
{
  return !exists(path) || gui_.ask("Overwrite file " + path + "?") == Answer::yes;
}

void FileOperations::dropWaiting()
{
  std::erase_if(queue_, [](const std::unique_ptr<FileJob>& job) { return job->kind != FileOperationKind::save; });
}

bool FileOperations::saveBeside(Model& model, const std::string& path, int version)
{
  auto job = makeJob(FileOperationKind::save, path);
  job->model = &model;
  job->version = version;
  FileWorker::runHere(*job);
  const bool done = job->outcome == FileJob::Outcome::done;
  if (done) finishSave(*job);
  showMessages(*job);
  return done;
}

void FileOperations::letGo()
{
  Fl::remove_timeout(poll, this);
  queue_.clear();
  if (!job_) return;
  worker_.letGo();
  static_cast<void>(job_.release()); // the worker's for what is left of the process
}

void FileOperations::waitUntilIdle()
{
  while (busy())
    Fl::wait(pollInterval); // without windows a wait with no limit would look at no timer
}

} // namespace nalt
