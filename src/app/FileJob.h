#pragma once

#include "app/MessageDialogs.h"
#include "scene/view/CameraMath.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace nalt {

class Model;
class VPBase;

enum class FileOperationKind { create, open, revert, save, import, revertExternals, loadExternals };

struct QueuedMessage {
  MessageKind kind;
  std::string text;
  MessageId id;
};

/// Where the camera of a viewport stands.
struct CameraView {
  CameraPose pose;
  bool orthographic = false;
};

/// Preferences as they were when an operation started: the user may change them while it runs.
struct FileJobOptions {
  bool loadExternals = true;
  bool repairNotAvailable = true;
};

/// One file operation from its start to its end. Between `FileWorker::start` and `join` everything in it but the two
/// atomics belongs to the worker.
struct FileJob {
  enum class Outcome { running, done, failed };

  FileOperationKind kind;
  std::string path;
  bool buildScene = false;            ///< false in a run without windows
  std::unique_ptr<Model> built;       ///< the model under construction of open, revert and import
  Model* model = nullptr;             ///< the open one that is saved or whose externals are loaded, untouched meanwhile
  int version = 0;                    ///< that a save writes
  bool renames = false;               ///< a save to another path than the one before
  std::unique_ptr<Model> replaced;    ///< the model that a revert loads anew; comes back if that fails
  int place = -1;                     ///< of `replaced` among the tabs
  std::vector<VPBase*> viewports;     ///< of `replaced`, without a model for the time being; owned
  std::vector<CameraView> cameras;    ///< of `viewports`
  std::vector<std::string> externals; ///< paths of the references that a load of externals is about
  FileJobOptions options;

  std::atomic<Outcome> outcome{Outcome::running};
  std::atomic<double> progress{0.0};   ///< 0 to 100
  std::vector<QueuedMessage> errors;   ///< why it failed; shown first
  std::vector<QueuedMessage> warnings; ///< what else there is to say

  /// The one that the calling thread works on, null when it doesn't.
  static FileJob* current();

  /// Makes a job the calling thread's for the time of a block.
  class Work {
  public:
    explicit Work(FileJob& job);
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;
    ~Work();

  private:
    FileJob* before_;
  };

  /// Adds to `list` unless it repeats the last entry; with `append` in any case.
  static void queue(std::vector<QueuedMessage>& list, QueuedMessage message, bool append);
  void fail(const std::string& text);
  void setProgress(double percent);
  /// For the last part of the work, in `total` steps.
  void addProgress(int step, int total);
};

/// What is to be known of a kind of file operation.
struct FileOperation {
  FileOperationKind kind;
  const char* name;         ///< of the operation in messages
  const char* title;        ///< of the file dialog
  const char* progressText; ///< "%s" stands for the path
  const char* threadTag;    ///< in front of the system's reason when no thread can be made
  void (*work)(FileJob&);   ///< null when there is none; runs on the worker: no FLTK, and no model but its own
};

const FileOperation& fileOperation(FileOperationKind kind);
/// The progress text with the path in it.
std::string progressTextFor(const FileOperation& operation, const std::string& path);

} // namespace nalt
