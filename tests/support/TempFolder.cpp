#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace fs = std::filesystem;

namespace nalt::tests {

TempFolder::TempFolder() : TempFolder(fs::temp_directory_path().string()) {}

TempFolder::TempFolder(const std::string& parent) : path_(parent + "/nalt-test-XXXXXX")
{
  if (!mkdtemp(path_.data())) ADD_FAILURE() << "no temporary folder like " << path_;
}

TempFolder::~TempFolder()
{
  std::error_code ignored;
  // A test may have taken the right to empty a folder away.
  for (const auto& entry : fs::recursive_directory_iterator(path_, ignored))
    if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
      fs::permissions(entry, fs::perms::owner_all, fs::perm_options::add, ignored);
  fs::remove_all(path_, ignored);
}

std::string memoryFolder()
{
  const std::string shared = "/dev/shm";
  return access(shared.c_str(), W_OK) == 0 ? shared : fs::temp_directory_path().string();
}

void writeFile(const std::string& path, const std::string& content)
{
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  EXPECT_TRUE(file) << path;
}

std::string readFile(const std::string& path)
{
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace nalt::tests
