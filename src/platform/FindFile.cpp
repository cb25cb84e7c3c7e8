#include "platform/LetterCase.h"
#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

namespace fs = std::filesystem;

namespace nalt {

namespace {

/// Not for pipes and devices: they can keep who reads them waiting for ever.
bool isFile(const fs::path& path)
{
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

/// Names in `folder` that differ from `name` by letter case only, in byte order.
std::set<std::string> otherSpellings(const fs::path& folder, const std::string& name)
{
  std::set<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string candidate = entry->path().filename().string();
    if (candidate != name && equalsIgnoringCase(candidate, name)) found.insert(std::move(candidate));
  }
  return found;
}

class Search {
public:
  explicit Search(std::vector<std::string> steps) : steps_(std::move(steps)) {}

  /// The first file below `folder` that the steps from `step` on lead to. The spelling given goes before others.
  std::string from(const fs::path& folder, std::size_t step = 0)
  {
    if (step == steps_.size()) return isFile(folder) ? folder.string() : std::string();

    std::error_code ignored;
    const fs::path exact = folder / steps_[step];
    if (fs::exists(exact, ignored))
      if (std::string found = from(exact, step + 1); !found.empty()) return found;
    if (foldersLeft_-- <= 0) return {};
    for (const std::string& name : otherSpellings(folder, steps_[step]))
      if (std::string found = from(folder / name, step + 1); !found.empty()) return found;
    return {};
  }

private:
  std::vector<std::string> steps_;
  int foldersLeft_ = 1000; ///< Links "a" and "A" to their own folder would double the ways with each step.
};

} // namespace

std::string findFileIgnoringCase(std::string_view path)
{
  if (path.find('\0') != std::string_view::npos) return {};
  std::string native = nativePath(path);
  if (isFile(path)) return std::string(path);
  if (isFile(native)) return native;
  if (native.ends_with('/')) return {};

  const fs::path whole(native);
  std::vector<std::string> steps;
  for (const fs::path& step : whole.relative_path())
    if (!step.empty()) steps.push_back(step.string());
  return steps.empty() ? std::string() : Search(steps).from(whole.root_path());
}

} // namespace nalt
