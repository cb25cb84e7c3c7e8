#include "app/Session.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace nalt {

namespace {

const char* const helpFolders[] = {
    ".metadata",        "org.eclipse.core.runtime", "org.eclipse.equinox.app", "org.eclipse.help.base",
    "org.eclipse.osgi", "org.eclipse.update"};

/// What a help server leaves in the folder of settings, and what isn't its own.
class HelpServerFiles : public testing::Test {
protected:
  HelpServerFiles()
  {
    for (const char* name : helpFolders) {
      std::filesystem::create_directories(folder / (std::string(name) + "/deep"));
      tests::writeFile(folder / (std::string(name) + "/deep/file"), "help");
    }
    for (const char* name : {"config.ini", "nalt.cfg", "macro.cfg"})
      tests::writeFile(folder / name, "text");
  }
  bool exists(const std::string& name) const { return std::filesystem::exists(folder / name); }

  tests::TempFolder folder;
};

} // namespace

TEST_F(HelpServerFiles, AllGoAndTheRestStays)
{
  removeHelpServerFiles(folder / "nalt.cfg");
  for (const char* name : helpFolders)
    EXPECT_FALSE(exists(name)) << name;
  EXPECT_FALSE(exists("config.ini"));
  EXPECT_TRUE(exists("nalt.cfg"));
  EXPECT_TRUE(exists("macro.cfg"));
}

TEST_F(HelpServerFiles, StayBesideAFileOfAnotherName)
{
  removeHelpServerFiles(folder / "other.cfg");
  removeHelpServerFiles("");
  EXPECT_TRUE(exists("config.ini"));
  for (const char* name : helpFolders)
    EXPECT_TRUE(exists(name)) << name;
}

TEST_F(HelpServerFiles, GoWithoutWhatTheyLinkTo)
{
  const tests::TempFolder other;
  tests::writeFile(other / "mine", "text");
  std::filesystem::remove_all(folder / ".metadata");
  std::filesystem::create_directory_symlink(other.path(), folder / ".metadata");
  removeHelpServerFiles(folder / "nalt.cfg");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / ".metadata"));
  EXPECT_TRUE(std::filesystem::exists(other / "mine"));
}

} // namespace nalt
