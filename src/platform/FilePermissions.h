#pragma once

#include <string>

struct stat;

namespace nalt {

/// Gives the open file `to` the permissions, access list, owner and group of `from`, whose status is `status`. The
/// owner and group are kept as far as the user may set them; where they aren't, nobody gets rights that he didn't have.
/// A file system without permissions keeps its own. For the sources of platform/ only.
void copyPermissions(const std::string& from, const struct stat& status, int to);

} // namespace nalt
