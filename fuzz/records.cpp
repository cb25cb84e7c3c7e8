// Whatever bytes a file holds: it loads or is refused, and what loaded can be saved in every version and walked.
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/visitors/FltBoundingSphereVisitor.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file without a name on any disk.
class MemoryFile {
public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("input.flt", 0))
  {
    if (descriptor_ < 0 || write(descriptor_, data, size) != static_cast<ssize_t>(size)) std::abort();
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(descriptor_); }
  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
  int descriptor_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  // Vertex lists of old files report lost offsets there.
  static const bool silent = std::freopen("/dev/null", "w", stdout) != nullptr;
  (void)silent;
  const MemoryFile input(data, size);
  const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
  file->setQuiet(true);
  if (!file->load(input.path())) return 0;
  for (const int version : {1570, 1580, 1600, 1620}) {
    if (!file->save("/dev/null", version)) std::abort();
  }
  fltapi::FltBoundingSphereVisitor bounds;
  file->header()->accept(bounds);
  const osg::ref_ptr<fltapi::FltFile> copy = new fltapi::FltFile(*file);
  return 0;
}
