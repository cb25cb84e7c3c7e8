#include "platform/FilePermissions.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nalt {

namespace {

constexpr const char* accessList = "system.posix_acl_access";

/// Whether `to` now has `from`'s access list, or neither has one. A new file may have got one from its folder.
bool copyAccessList(const std::string& from, int to)
{
  char list[4096];
  const ssize_t size = getxattr(from.c_str(), accessList, list, sizeof list);
  if (size > 0) return fsetxattr(to, accessList, list, static_cast<std::size_t>(size), 0) == 0;
  if (size < 0 && errno == ERANGE) return false;
  (void)fremovexattr(to, accessList);
  return true;
}

/// The group's rights cut down to those that everybody has.
mode_t withoutGroup(mode_t mode)
{
  return mode & ~(S_IRWXG & ~((mode & S_IRWXO) << 3));
}

} // namespace

void copyPermissions(const std::string& from, const struct stat& status, int to)
{
  constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;
  mode_t mode = status.st_mode & permissions;
  if (fchown(to, status.st_uid, status.st_gid) != 0 && fchown(to, static_cast<uid_t>(-1), status.st_gid) != 0)
    mode = withoutGroup(mode);
  // With an access list the group's bits are the most that anybody on the list may do.
  if (!copyAccessList(from, to)) mode = withoutGroup(mode);
  (void)fchmod(to, mode);
}

} // namespace nalt
