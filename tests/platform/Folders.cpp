#include "platform/Folders.h"

#include "tests/support/OrdinaryUser.h"
#include "tests/support/Scoped.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <pwd.h>

namespace nalt {
namespace {

namespace fs = std::filesystem;
using tests::ScopedEnvironment;
using tests::TempFolder;

TEST(ConfigFolder, isNaltInTheConfigurationHome)
{
  const TempFolder folder;
  const ScopedEnvironment config("XDG_CONFIG_HOME", folder.path());
  EXPECT_EQ(configFolder(), folder / "Nalt");
  EXPECT_TRUE(fs::is_directory(folder / "Nalt"));
  EXPECT_EQ(configFolder(), folder / "Nalt") << "the second time it is there already";
}

TEST(ConfigFolder, isMadeWithItsParentsForTheUserAlone)
{
  const TempFolder folder;
  const ScopedEnvironment config("XDG_CONFIG_HOME", folder / "a/b/");
  EXPECT_EQ(configFolder(), folder / "a/b/Nalt");
  for (const char* made : {"a", "a/b", "a/b/Nalt"})
    EXPECT_EQ(fs::status(folder / made).permissions(), fs::perms::owner_all) << made;
}

TEST(ConfigFolder, isBelowTheHomeOtherwise)
{
  for (const auto& unusable :
       {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("relative/path")}) {
    const TempFolder folder;
    const ScopedEnvironment config("XDG_CONFIG_HOME", unusable);
    const ScopedEnvironment home("HOME", folder.path());
    EXPECT_EQ(configFolder(), folder / ".config/Nalt");
    EXPECT_TRUE(fs::is_directory(folder / ".config/Nalt"));
  }
}

TEST(ConfigFolder, asksTheAccountWhenThereIsNoHome)
{
  const ScopedEnvironment config("XDG_CONFIG_HOME", std::nullopt);
  const ScopedEnvironment home("HOME", std::nullopt);
  const passwd* account = getpwuid(getuid());
  if (!account) GTEST_SKIP() << "this user has no account";
  const fs::path parent = fs::path(account->pw_dir) / ".config", expected = parent / "Nalt";
  const bool parentWasThere = fs::exists(parent), wasThere = fs::exists(expected);

  const std::string found = configFolder();
  EXPECT_EQ(found, fs::exists(expected) ? expected.string() : "");
  if (access(account->pw_dir, W_OK) == 0) {
    EXPECT_EQ(found, expected.string());
  }

  // A real home keeps nothing of a test; only empty folders go.
  std::error_code ignored;
  if (!wasThere) fs::remove(expected, ignored);
  if (!parentWasThere) fs::remove(parent, ignored);
}

TEST(ConfigFolder, isEmptyIfAFileIsInTheWay)
{
  const TempFolder folder;
  tests::writeFile(folder / "file", "");
  const ScopedEnvironment below("XDG_CONFIG_HOME", folder / "file");
  EXPECT_EQ(configFolder(), "");
  tests::writeFile(folder / "Nalt", "");
  const ScopedEnvironment same("XDG_CONFIG_HOME", folder.path());
  EXPECT_EQ(configFolder(), "");
}

TEST(ConfigFolder, isEmptyIfItMayNotBeMade)
{
  const TempFolder folder;
  fs::permissions(folder.path(),
                  fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
  const ScopedEnvironment config("XDG_CONFIG_HOME", folder / "a");
  const tests::OrdinaryUser user;
  EXPECT_EQ(configFolder(), "");
}

} // namespace
} // namespace nalt
