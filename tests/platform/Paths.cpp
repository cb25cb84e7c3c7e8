#include "platform/Paths.h"

#include "tests/support/Scoped.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace nalt {
namespace {

using tests::ScopedCurrentFolder;
using tests::TempFolder;

std::string repeated(const std::string& text, int times)
{
  std::string result;
  for (int i = 0; i < times; ++i)
    result += text;
  return result;
}

TEST(Paths, toBackslashesReplacesEverySlashAndNothingElse)
{
  EXPECT_EQ(toBackslashes(""), "");
  EXPECT_EQ(toBackslashes("C:/models/a b.flt"), R"(C:\models\a b.flt)");
  EXPECT_EQ(toBackslashes(R"(/a\b//c/)"), R"(\a\b\\c\)");
}

TEST(Paths, nativePathReplacesEveryBackslashAndNothingElse)
{
  EXPECT_EQ(nativePath(""), "");
  EXPECT_EQ(nativePath(R"(C:\models\a b.flt)"), "C:/models/a b.flt");
  EXPECT_EQ(nativePath(R"(/a\b\\c/)"), "/a/b//c/");
}

TEST(Paths, aThousandSeparatorsToReplaceLeaveTheTextUntouched)
{
  EXPECT_EQ(toBackslashes(repeated("a/", 999)), repeated("a\\", 999));
  EXPECT_EQ(toBackslashes(repeated("a/", 1000)), repeated("a/", 1000));
  EXPECT_EQ(toBackslashes(repeated("a/", 1001)), repeated("a/", 1001));
  EXPECT_EQ(nativePath(repeated("a\\", 999)), repeated("a/", 999));
  EXPECT_EQ(nativePath(repeated("a\\", 1000)), repeated("a\\", 1000));
}

TEST(Paths, onlySeparatorsThatAreReplacedCountTowardsTheLimit)
{
  const std::string backslashes = repeated("\\", 1000);
  EXPECT_EQ(toBackslashes(backslashes + "a/b"), backslashes + "a\\b");
  EXPECT_EQ(nativePath(repeated("/", 1000) + "a\\b"), repeated("/", 1000) + "a/b");
}

TEST(Paths, folderPartEndsWithTheLastSeparatorOfEitherKind)
{
  EXPECT_EQ(folderPart("a.flt"), "");
  EXPECT_EQ(folderPart(""), "");
  EXPECT_EQ(folderPart("/a.flt"), "/");
  EXPECT_EQ(folderPart("/m/n/a.flt"), "/m/n/");
  EXPECT_EQ(folderPart(R"(C:\m\a.flt)"), R"(C:\m\)");
  EXPECT_EQ(folderPart(R"(C:\m/n\a.flt)"), R"(C:\m/n\)");
  EXPECT_EQ(folderPart(R"(C:\m/a.flt)"), R"(C:\m/)");
  EXPECT_EQ(folderPart("/m/"), "/m/");
}

TEST(Paths, fileNamePartBeginsBehindTheLastSeparatorOfEitherKind)
{
  EXPECT_EQ(fileNamePart("a.flt"), "a.flt");
  EXPECT_EQ(fileNamePart(""), "");
  EXPECT_EQ(fileNamePart(R"(/m\a.flt)"), "a.flt");
  EXPECT_EQ(fileNamePart(R"(C:\m/a.flt)"), "a.flt");
  EXPECT_EQ(fileNamePart("/m/"), "");
}

TEST(Paths, aLeadingSlashOrAColonInSecondPlaceIsAbsolute)
{
  EXPECT_TRUE(isAbsolute("/"));
  EXPECT_TRUE(isAbsolute("/a.lua"));
  EXPECT_TRUE(isAbsolute("C:/a.lua"));
  EXPECT_TRUE(isAbsolute("C:"));
  EXPECT_FALSE(isAbsolute(""));
  EXPECT_FALSE(isAbsolute(":"));
  EXPECT_FALSE(isAbsolute("a"));
  EXPECT_FALSE(isAbsolute("a/b:c"));
  EXPECT_FALSE(isAbsolute("../a"));
}

TEST(Paths, makeAbsolutePutsTheCurrentFolderInFront)
{
  const TempFolder folder;
  const std::string here = std::filesystem::canonical(folder.path()).string();
  const ScopedCurrentFolder scope(here);
  EXPECT_EQ(makeAbsolute("a.lua"), here + "/a.lua");
  EXPECT_EQ(makeAbsolute("m/a.lua"), here + "/m/a.lua");
  EXPECT_EQ(makeAbsolute(""), here);
  EXPECT_EQ(makeAbsolute("/a/../b.lua"), "/a/../b.lua");
  EXPECT_EQ(makeAbsolute("C:/a.lua"), "C:/a.lua");
}

TEST(Paths, makeAbsoluteResolvesDotsAtTheFrontOnly)
{
  const TempFolder folder;
  const std::string here = std::filesystem::canonical(folder.path()).string();
  std::filesystem::create_directories(here + "/m/n");
  const ScopedCurrentFolder scope(here + "/m/n");
  EXPECT_EQ(makeAbsolute("./a.lua"), here + "/m/n/a.lua");
  EXPECT_EQ(makeAbsolute("../a.lua"), here + "/m/a.lua");
  EXPECT_EQ(makeAbsolute("../../a.lua"), here + "/a.lua");
  EXPECT_EQ(makeAbsolute(".././..//a.lua"), here + "/a.lua");
  EXPECT_EQ(makeAbsolute(R"(..\a.lua)"), here + "/m/a.lua");
  EXPECT_EQ(makeAbsolute(".."), here + "/m");
  EXPECT_EQ(makeAbsolute("."), here + "/m/n");
  EXPECT_EQ(makeAbsolute("./"), here + "/m/n");
  EXPECT_EQ(makeAbsolute("x/../a.lua"), here + "/m/n/x/../a.lua");
  EXPECT_EQ(makeAbsolute(".hidden"), here + "/m/n/.hidden");
  EXPECT_EQ(makeAbsolute("..odd/a.lua"), here + "/m/n/..odd/a.lua");
}

TEST(Paths, makeAbsoluteStopsAtTheRoot)
{
  const ScopedCurrentFolder scope("/");
  EXPECT_EQ(makeAbsolute("a.lua"), "/a.lua");
  EXPECT_EQ(makeAbsolute("../../../a.lua"), "/a.lua");
  EXPECT_EQ(makeAbsolute(".."), "/");
}

TEST(Paths, makeAbsoluteLeavesPathsAloneWhenTheCurrentFolderIsGone)
{
  const TempFolder folder;
  std::filesystem::create_directory(folder / "gone");
  const ScopedCurrentFolder scope(folder / "gone");
  std::filesystem::remove(folder / "gone");
  EXPECT_EQ(makeAbsolute("../a.lua"), "../a.lua");
}

TEST(Paths, escapeForLuaDoublesSingleBackslashesAndKeepsRuns)
{
  EXPECT_EQ(escapeForLua(""), "");
  EXPECT_EQ(escapeForLua("/a/b"), "/a/b");
  EXPECT_EQ(escapeForLua(R"(C:\a\\b)"), R"(C:\\a\\b)");
  EXPECT_EQ(escapeForLua(R"(\)"), R"(\\)");
  EXPECT_EQ(escapeForLua(R"(\a\)"), R"(\\a\\)");
  EXPECT_EQ(escapeForLua(R"(\\\a\\\\b\c)"), R"(\\\a\\\\b\\c)");
  EXPECT_EQ(escapeForLua("say \"a\"\n"), "say \"a\"\n");
}

TEST(Paths, theExecutableFolderHoldsTheRunningProgram)
{
  const std::string folder = executableFolder();
  EXPECT_TRUE(folder.starts_with('/') && folder.ends_with('/')) << folder;
  EXPECT_TRUE(std::filesystem::exists(folder + "tests_platform")) << folder;
}

} // namespace
} // namespace nalt
