#include "platform/AtomicFile.h"

#include "platform/FilePermissions.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>

namespace nalt {

namespace {

constexpr std::size_t blockSize = std::size_t{256} * 1024;

/// What `path` leads to when symbolic links are followed by hand: unlike the system's own way this ends at the name
/// that a link points to, whether or not there is such a file. Empty, with errno set, if links lead in a circle.
std::string followLinks(std::string path)
{
  constexpr int mostLinks = 40; // as many as the kernel follows
  for (int i = 0; i < mostLinks; ++i) {
    char buffer[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), buffer, sizeof buffer);
    if (length < 0) return path; // no link, or nothing there
    const std::string link(buffer, static_cast<std::size_t>(length));
    path.erase(link.starts_with('/') ? 0 : path.rfind('/') + 1);
    path += link;
  }
  errno = ELOOP;
  return {};
}

/// A hidden name that tells what it belongs to, short enough for any file system.
std::string temporaryNameFor(const std::string& target)
{
  static thread_local std::minstd_rand random{std::random_device{}()};
  std::size_t length = std::min<std::size_t>(target.size(), 100);
  while (length < target.size() && (target[length] & 0xC0) == 0x80) // not within a character of UTF-8
    --length;
  char suffix[24];
  std::snprintf(suffix, sizeof suffix, ".%08lx.tmp", static_cast<unsigned long>(random()));
  return "." + target.substr(0, length) + suffix;
}

/// Whether fsync complains only that it has nothing to do, as it does for devices and pipes.
bool nothingToSynchronize(int error)
{
  return error == EINVAL || error == ENOTSUP || error == EROFS;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path)
{
  struct stat status {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    if (S_ISDIR(status.st_mode))
      fail(EISDIR);
    else
      openDirectly(path);
    return;
  }
  const std::string target = followLinks(path);
  if (target.empty())
    fail(path.empty() ? ENOENT : errno);
  else
    openBeside(target);
}

AtomicFile::~AtomicFile()
{
  discard();
}

void AtomicFile::openDirectly(const std::string& path)
{
  file_ = Descriptor(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  // Only the opening must not wait.
  if (!file_.isOpen() || fcntl(file_.number(), F_SETFL, 0) != 0) fail(errno);
}

void AtomicFile::openBeside(const std::string& target)
{
  const std::size_t nameStart = target.rfind('/') + 1;
  targetName_ = target.substr(nameStart);
  const std::string folder = nameStart == 0 ? "." : target.substr(0, nameStart);
  folder_ = Descriptor(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder_.isOpen()) {
    fail(errno);
    return;
  }
  if (targetName_.empty()) { // "missing/" names a folder
    fail(EISDIR);
    return;
  }
  struct stat status {};
  if (fstatat(folder_.number(), targetName_.c_str(), &status, 0) != 0) {
    if (errno == ENOENT)
      createTemporary(0666);
    else
      fail(errno);
    return;
  }
  if (faccessat(folder_.number(), targetName_.c_str(), W_OK, AT_EACCESS) != 0) {
    fail(errno);
    return;
  }
  createTemporary(0600);
  if (file_.isOpen()) copyPermissions(target, status, file_.number());
}

/// Opens with `mode` less the umask. mkstemp could not do that: its files are the user's alone, and the umask can't be
/// asked without setting it for all threads.
void AtomicFile::createTemporary(unsigned mode)
{
  for (int attempt = 0; attempt < 100; ++attempt) {
    temporaryName_ = temporaryNameFor(targetName_);
    file_ = Descriptor(
        openat(folder_.number(), temporaryName_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (file_.isOpen()) return;
    if (errno != EEXIST) break;
  }
  const int error = errno;
  temporaryName_.clear();
  fail(error);
}

bool AtomicFile::write(const void* data, std::size_t size)
{
  if (!ok()) return false;
  if (!file_.isOpen()) return fail(EBADF);
  const char* bytes = static_cast<const char*>(data);
  if (buffer_.size() + size > blockSize && !flush()) return false;
  if (size >= blockSize) return writeThrough(bytes, size);
  buffer_.reserve(blockSize);
  buffer_.insert(buffer_.end(), bytes, bytes + size);
  return true;
}

bool AtomicFile::writeThrough(const char* data, std::size_t size)
{
  while (size > 0) {
    const ssize_t written = ::write(file_.number(), data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return fail(errno);
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

bool AtomicFile::flush()
{
  const bool done = writeThrough(buffer_.data(), buffer_.size());
  buffer_.clear();
  return done;
}

bool AtomicFile::commit()
{
  if (!ok()) return false;
  if (!file_.isOpen()) return fail(EBADF);
  if (!flush() || !synchronize()) return false;
  if (!file_.close()) return fail(errno);
  return temporaryName_.empty() || replaceTarget();
}

bool AtomicFile::synchronize()
{
  return fsync(file_.number()) == 0 || nothingToSynchronize(errno) || fail(errno);
}

bool AtomicFile::replaceTarget()
{
  if (renameat(folder_.number(), temporaryName_.c_str(), folder_.number(), targetName_.c_str()) != 0)
    return fail(errno);
  temporaryName_.clear();

  // The rename itself is safe when the folder is. A folder may forbid to be read: then the system does this in its own
  // time.
  const Descriptor folder(openat(folder_.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return !folder.isOpen() || fsync(folder.number()) == 0 || nothingToSynchronize(errno) || fail(errno);
}

bool AtomicFile::fail(int error)
{
  if (error_ == 0) error_ = error;
  discard();
  return false;
}

void AtomicFile::discard()
{
  file_.close();
  if (temporaryName_.empty()) return;
  unlinkat(folder_.number(), temporaryName_.c_str(), 0);
  temporaryName_.clear();
}

std::string AtomicFile::errorText() const
{
  return ok() ? std::string() : std::system_category().message(error_);
}

} // namespace nalt
