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

  /// False, with the system's reason on the error stream, when no thread can be made. `job` must live until `join`.
  bool start(FileJob& job);
  void join();

private:
  static void* main(void* job);

  pthread_t thread_{};
};

} // namespace nalt
