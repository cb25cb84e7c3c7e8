#include "app/SettingsFile.h"

#include "core/Shell.h"
#include "platform/AtomicFile.h"
#include "platform/Folders.h"

#include <fstream>
#include <iterator>

namespace nalt {

namespace {

std::string defaultPath()
{
  const auto folder = configFolder();
  if (!folder.empty()) return folder + "/nalt.cfg";
  Shell::get().warning("Couldn't load or save settings file.");
  return {};
}

} // namespace

SettingsFile& SettingsFile::get()
{
  static SettingsFile file(defaultPath());
  return file;
}

SettingsFile::Result SettingsFile::read(Settings& settings) const
{
  if (path_.empty()) return {};
  std::ifstream file(path_, std::ios::binary);
  if (!file) {
    write(settings);
    return {};
  }
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  const auto version = encodedVersion(bytes);
  if (version && *version > settingsVersion) {
    write(settings);
    return {.newerVersion = true};
  }
  return {.hasWindow = decodeSettings(bytes, settings)};
}

void SettingsFile::write(const Settings& settings) const
{
  if (path_.empty()) return;
  const auto bytes = encodeSettings(settings);
  AtomicFile file(path_);
  if (file.write(bytes.data(), bytes.size())) file.commit();
}

} // namespace nalt
