#include "scene/image/FileSearch.h"

#include "fltapi/Host.h"
#include "platform/Paths.h"

namespace nalt {

namespace {

std::string inFolder(const std::string& folder, const std::string& path)
{
  const auto prefix = folder.empty() || folder.ends_with('/') ? folder : folder + '/';
  if (!isAbsolute(path)) {
    auto found = findFileIgnoringCase(prefix + path);
    if (!found.empty()) return found;
  }
  const auto name = fileNamePart(path);
  return name == path ? std::string{} : findFileIgnoringCase(prefix + name);
}

} // namespace

std::string findFileOfModel(const std::string& path, const std::string& modelPath)
{
  if (path.empty()) return {};
  if (auto found = findFileIgnoringCase(path); !found.empty()) return found;
  if (auto found = inFolder(folderPart(modelPath), path); !found.empty()) return found;
  const auto folders = fltapi::Host::get().externalSearchPath();
  for (std::size_t start = 0; start < folders.size();) {
    const auto end = std::min(folders.find_first_of(";:", start), folders.size());
    if (end > start) {
      if (auto found = inFolder(folders.substr(start, end - start), path); !found.empty()) return found;
    }
    start = end + 1;
  }
  return {};
}

} // namespace nalt
