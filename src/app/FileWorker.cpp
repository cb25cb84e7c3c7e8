#include "app/FileWorker.h"

#include <cerrno>
#include <cstdio>

namespace nalt {

void FileWorker::runHere(FileJob& job)
{
  fileOperation(job.kind).work(job);
  job.outcome = job.errors.empty() ? FileJob::Outcome::done : FileJob::Outcome::failed;
}

void* FileWorker::main(void* job)
{
  runHere(*static_cast<FileJob*>(job));
  return nullptr;
}

bool FileWorker::start(FileJob& job)
{
  const int error = pthread_create(&thread_, nullptr, main, &job);
  if (error == 0) return true;
  errno = error;
  std::perror(fileOperation(job.kind).threadTag);
  return false;
}

void FileWorker::join()
{
  pthread_join(thread_, nullptr);
}

} // namespace nalt
