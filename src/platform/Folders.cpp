#include "platform/Folders.h"

#include "platform/Environment.h"

#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace nalt {

namespace {

std::string accountHome()
{
  const long advised = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(advised > 0 ? static_cast<std::size_t>(advised) : 16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return {};
  return found->pw_dir ? found->pw_dir : "";
}

/// The folder that `variable` names, or `otherwise` in the home folder, or an empty path. A relative folder in the
/// variable counts as unset, as the inventors of these variables ask.
std::filesystem::path userFolder(const char* variable, const char* otherwise)
{
  if (const auto root = environment(variable); root && root->starts_with('/')) return *root;
  std::string home = environment("HOME").value_or("");
  if (home.empty()) home = accountHome();
  return home.empty() ? std::filesystem::path() : std::filesystem::path(home) / otherwise;
}

/// Makes `folder` and what is missing above it. std::filesystem would make them open to everybody first.
bool makeFolders(const std::filesystem::path& folder)
{
  std::error_code ignored;
  if (std::filesystem::is_directory(folder, ignored)) return true;
  if (folder.has_parent_path() && folder != folder.root_path() && !makeFolders(folder.parent_path())) return false;
  return mkdir(folder.c_str(), 0700) == 0 || std::filesystem::is_directory(folder, ignored);
}

} // namespace

std::string configFolder()
{
  const std::filesystem::path root = userFolder("XDG_CONFIG_HOME", ".config");
  if (root.empty()) return {};
  const std::filesystem::path folder = root / "Nalt";
  return makeFolders(folder) ? folder.string() : std::string();
}

std::string dataFolder()
{
  const std::filesystem::path folder = userFolder("XDG_DATA_HOME", ".local/share");
  return !folder.empty() && makeFolders(folder) ? folder.string() : std::string();
}

} // namespace nalt
