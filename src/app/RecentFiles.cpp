#include "app/RecentFiles.h"

#include "app/FileLists.h"

#include <algorithm>

namespace nalt {

bool RecentFiles::add(const std::string& path)
{
  if (!isOpenFlightPath(path)) return false;
  paths_.erase(std::remove(paths_.begin(), paths_.end(), path), paths_.end());
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > limit) paths_.resize(limit);
  return true;
}

} // namespace nalt
