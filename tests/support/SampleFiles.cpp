#include "tests/support/SampleFiles.h"

#include "platform/Environment.h"
#include "tests/support/Surroundings.h"

#include <algorithm>
#include <filesystem>

namespace nalt::tests {

namespace fs = std::filesystem;

std::string sampleFolder()
{
  const fs::path beside = fs::path(sourceFolder) / ".." / "shared" / "data";
  const fs::path folder = environment("NALT_TEST_DATA").value_or(beside.string());
  return fs::is_directory(folder) ? folder.string() : std::string{};
}

std::vector<std::string> sampleFiles()
{
  std::vector<std::string> files;
  const auto folder = sampleFolder();
  if (folder.empty()) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".flt") files.push_back(entry.path().string());
  }
  std::ranges::sort(files);
  return files;
}

std::string sampleFile(const std::string& ending)
{
  const auto files = sampleFiles();
  const auto found = std::ranges::find_if(files, [&](const auto& file) { return file.ends_with(ending); });
  return found == files.end() ? std::string{} : *found;
}

} // namespace nalt::tests
