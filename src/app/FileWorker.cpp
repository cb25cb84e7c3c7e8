#include "app/FileWorker.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace nalt {

void FileWorker::runHere(FileJob& job)
{
  const FileJob::Work work(job);
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
  job.fail(std::string("Couldn't start to ") + fileOperation(job.kind).name + ": " + std::strerror(error) + ".");
  return false;
}

void FileWorker::letGo()
{
  pthread_detach(thread_);
}

void FileWorker::join()
{
  pthread_join(thread_, nullptr);
}

} // namespace nalt
