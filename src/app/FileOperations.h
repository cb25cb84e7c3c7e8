#pragma once

#include "app/DeclinedExternals.h"
#include "app/FileDialogs.h"
#include "app/FileJob.h"
#include "app/FileWorker.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace nalt {

class Gui;

/// Opening, saving, reverting and importing of models: one at a time on a worker thread that a timer of the main thread
/// watches, the others wait in a queue. A synchronous operation, as scripts want it, is over when its function returns.
/// Main thread only.
class FileOperations {
public:
  explicit FileOperations(Gui& gui);
  ~FileOperations();
  FileOperations(const FileOperations&) = delete;
  FileOperations& operator=(const FileOperations&) = delete;

  // Each false when nothing was started or queued, or when a synchronous one failed; a message has said why.
  bool open(const std::string& path, bool synchronous);
  /// An empty model that waits for its turn like all others: one thread at a time makes records.
  bool create(const std::string& filename);
  bool import(const std::string& path, bool synchronous);
  bool save(Model& model, const std::string& path, int version, bool synchronous);
  /// Asks first, then loads the current model's file again in its place.
  bool revert(bool synchronous);
  /// Asks first, then loads the files anew that the current model refers to.
  bool revertExternals(bool synchronous);
  // The references of the current model with these paths, after a question: loading their content anew, whatever the
  // preferences say; dropping it; making those with one path refer to another file and loading that.
  bool loadExternals(const std::vector<std::string>& paths, bool synchronous);
  bool unloadExternals(const std::vector<std::string>& paths);
  bool redirectExternals(const std::string& path, const std::string& newPath, bool synchronous);
  /// Asks first whether to load those files anew that changed on disk, if the preferences want that and any did.
  bool reloadChangedExternals(bool synchronous);

  // With a file dialog.
  void chooseAndOpen();
  /// Empty when the user gave up or doesn't want to overwrite.
  std::string chooseSavePath(const Model& model);
  /// Whether `path` may be written: true for a new file, else the answer to "Overwrite file <path>?".
  bool mayOverwrite(const std::string& path);

  /// An operation runs or waits.
  bool busy() const { return job_ != nullptr || !queue_.empty(); }
  /// Forgets what waits to be opened or imported; saves stay.
  void dropWaiting();
  /// Runs the event loop until nothing runs or waits any more.
  void waitUntilIdle();
  /// Something is being loaded just now: nothing is lost when the program ends.
  bool loading() const { return job_ && job_->kind != FileOperationKind::save; }
  /// Writes `model` on the calling thread, past an operation that runs. For the end of the program.
  bool saveBeside(Model& model, const std::string& path, int version);
  /// Gives up what runs and waits, the worker with it. The process must end without destroying what it may use.
  void letGo();

private:
  std::unique_ptr<FileJob> makeJob(FileOperationKind kind, const std::string& path);
  bool submit(std::unique_ptr<FileJob> job, bool synchronous);
  bool run(std::unique_ptr<FileJob> job, bool synchronous);
  bool runExternals(FileOperationKind kind, Model& model, const std::vector<std::string>& paths, bool synchronous);
  /// The current model if the user agrees to what `deed` ("revert", say) costs it; else null.
  Model* agreedModel(const char* deed);
  void showMessages(const FileJob& job);
  void startNext();
  static void poll(void* self);
  bool finish();
  void finishLoad();
  void finishSave(const FileJob& job);
  void recordDone(const FileJob& job) const;
  void putBack();
  std::string currentPath() const;

  Gui& gui_;
  std::deque<std::unique_ptr<FileJob>> queue_;
  std::unique_ptr<FileJob> job_;
  FileWorker worker_;
  DeclinedExternals declined_;
  FileDialogs openDialog_;
  FileDialogs saveDialog_;
};

} // namespace nalt
