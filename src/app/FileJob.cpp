#include "app/FileJob.h"

#include "core/ExternalReferences.h"
#include "core/Model.h"
#include "fltapi/FltFile.h"

#include <algorithm>
#include <utility>

namespace nalt {

namespace {

thread_local FileJob* currentJob = nullptr;

constexpr double lastPart = 15.0; // percent of the bar that belongs to the work after reading

void load(FileJob& job)
{
  if (!job.built->load(job.path)) {
    job.fail("Couldn't open file " + job.path);
    return;
  }
  if (job.buildScene) job.built->sceneRoot();
}

void save(FileJob& job)
{
  const fltapi::FltFile* file = job.model ? job.model->fltFile() : nullptr;
  if (!file || !file->header())
    job.fail("Missing header record.");
  else if (job.path.empty())
    job.fail("Empty filename.");
  else if (!file->save(job.path, job.version))
    job.fail("Couldn't save file " + job.path);
}

void import(FileJob& job)
{
  job.fail("Couldn't import file " + job.path);
}

void revertExternals(FileJob& job)
{
  job.model->fltFile()->readExternals();
}

void loadExternals(FileJob& job)
{
  readExternals(*job.model, job.externals); // what can't be read is a warning
}

const FileOperation operations[] = {
    {FileOperationKind::create, "new model", "", "", "", nullptr},
    {FileOperationKind::open, "open", "Open File", "Opening file: %s...", "openCB (pthread_create)", load},
    {FileOperationKind::revert, "revert", "", "Reverting file: %s...", "revertCB (pthread_create)", load},
    {FileOperationKind::save, "save", "Save File", "Saving file: %s...", "save (pthread_create)", save},
    {FileOperationKind::import, "import", "Import File", "Importing file: %s...", "importCB (pthread_create)", import},
    {FileOperationKind::revertExternals, "revert externals", "", "Reverting externals...",
     "revertExternalsCB (pthread_create)", revertExternals},
    {FileOperationKind::loadExternals, "load externals", "", "Loading externals...", "loadExternalsCB (pthread_create)",
     loadExternals},
};

} // namespace

FileJob* FileJob::current()
{
  return currentJob;
}

FileJob::Work::Work(FileJob& job) : before_(std::exchange(currentJob, &job)) {}

FileJob::Work::~Work()
{
  currentJob = before_;
}

void FileJob::queue(std::vector<QueuedMessage>& list, QueuedMessage message, bool append)
{
  if (append || list.empty() || list.back().text != message.text) list.push_back(std::move(message));
}

void FileJob::fail(const std::string& text)
{
  queue(errors, {MessageKind::warning, text, MessageId::none}, /*append=*/true);
}

void FileJob::setProgress(double percent)
{
  progress = std::clamp(percent, 0.0, 100.0);
}

void FileJob::addProgress(int step, int total)
{
  if (total > 0) setProgress(progress + step * lastPart / total);
}

const FileOperation& fileOperation(FileOperationKind kind)
{
  return *std::find_if(std::begin(operations), std::end(operations),
                       [kind](const FileOperation& operation) { return operation.kind == kind; });
}

std::string progressTextFor(const FileOperation& operation, const std::string& path)
{
  std::string text = operation.progressText;
  const auto place = text.find("%s");
  return place == std::string::npos ? text : text.replace(place, 2, path);
}

} // namespace nalt
