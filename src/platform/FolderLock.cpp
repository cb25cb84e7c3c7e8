#include "platform/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>

namespace nalt {

FolderLock::FolderLock(const std::string& folder)
    : folder_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      held_(folder_.isOpen() && flock(folder_.number(), LOCK_EX | LOCK_NB) == 0)
{}

} // namespace nalt
