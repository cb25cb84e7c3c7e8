#pragma once

#include "app/FileJob.h"

#include <pthread.h>

namespace nalt {

/// Runs the work of one job at a time on a thread of its own. The job's outcome says when it is over; `join` then makes
/// all that the thread wrote visible.
class FileWorker {
public:
  /// Does the work on the calling thread instead.
  static void runHere(FileJob& job);

  /// False, with the system's reason on the error stream and in the job, when no thread can be made. `job` must live
  /// until `join`.
  bool start(FileJob& job);
  void join();
  /// Instead of `join`, when the process is about to end and a file that never answers mustn't stop it. The job stays
  /// the thread's for ever.
  void letGo();

private:
  static void* main(void* job);

  pthread_t thread_{};
};

} // namespace nalt
