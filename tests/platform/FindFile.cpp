#include "platform/Paths.h"

#include "tests/support/Scoped.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace nalt {
namespace {

namespace fs = std::filesystem;
using tests::ScopedCurrentFolder;
using tests::TempFolder;
using tests::writeFile;

TEST(FindFile, anExactMatchGoesFirst)
{
  const TempFolder folder;
  writeFile(folder / "Wall.rgb", "");
  writeFile(folder / "wall.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgb"), folder / "wall.rgb");
  EXPECT_EQ(findFileIgnoringCase(folder / "Wall.rgb"), folder / "Wall.rgb");
}

TEST(FindFile, eachPartOfThePathMayDifferByCase)
{
  const TempFolder folder;
  fs::create_directories(folder / "Textures/Brick");
  writeFile(folder / "Textures/Brick/Wall.RGB", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "textures/BRICK/wall.rgb"), folder / "Textures/Brick/Wall.RGB");
  EXPECT_EQ(findFileIgnoringCase(folder / "textures/Brick/Wall.RGB"), folder / "Textures/Brick/Wall.RGB");
}

TEST(FindFile, pipesAndFoldersAreNoFilesToRead)
{
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe.rgb").c_str(), 0600), 0);
  fs::create_directory(folder / "folder.rgb");
  EXPECT_EQ(findFileIgnoringCase(folder / "pipe.rgb"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "folder.rgb"), "");
}

TEST(FindFile, backslashesSeparateToo)
{
  const TempFolder folder;
  fs::create_directories(folder / "Textures");
  writeFile(folder / "Textures/Wall.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "Textures\\Wall.rgb"), folder / "Textures/Wall.rgb");
  EXPECT_EQ(findFileIgnoringCase(folder / "textures\\wall.rgb"), folder / "Textures/Wall.rgb");
}

TEST(FindFile, aNameThatReallyHoldsABackslashIsFound)
{
  const TempFolder folder;
  writeFile(folder / "a\\b.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "a\\b.rgb"), folder / "a\\b.rgb");
}

TEST(FindFile, ofSeveralSpellingsTheFirstInByteOrderCounts)
{
  const TempFolder folder;
  writeFile(folder / "wall.RGB", "");
  writeFile(folder / "WALL.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgb"), folder / "WALL.rgb");
}

TEST(FindFile, allFoldersOfTheSameSpellingAreSearched)
{
  const TempFolder folder;
  fs::create_directories(folder / "tex");
  fs::create_directories(folder / "TEX");
  fs::create_directories(folder / "Tex");
  writeFile(folder / "Tex/wall.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "tex/Wall.rgb"), folder / "Tex/wall.rgb");
}

TEST(FindFile, relativePathsStayRelative)
{
  const TempFolder folder;
  fs::create_directories(folder / "Sub/Deep");
  writeFile(folder / "Sub/Wall.rgb", "");
  const ScopedCurrentFolder scope(folder / "Sub");
  EXPECT_EQ(findFileIgnoringCase("Wall.rgb"), "Wall.rgb");
  EXPECT_EQ(findFileIgnoringCase("wall.rgb"), "Wall.rgb");
  EXPECT_EQ(findFileIgnoringCase("../sub/WALL.rgb"), "../Sub/Wall.rgb");
  EXPECT_EQ(findFileIgnoringCase("./deep/../wall.rgb"), "./Deep/../Wall.rgb");
}

TEST(FindFile, lettersOfOtherScriptsHaveCasesToo)
{
  const TempFolder folder;
  writeFile(folder / "\xC3\x84rger.rgb", "");                             // Ärger
  writeFile(folder / "\xD0\xA1\xD1\x82\xD0\xB5\xD0\xBD\xD0\xB0.rgb", ""); // Стена
  EXPECT_EQ(findFileIgnoringCase(folder / "\xC3\xA4RGER.rgb"), folder / "\xC3\x84rger.rgb");
  EXPECT_EQ(findFileIgnoringCase(folder / "\xD1\x81\xD1\x82\xD0\xB5\xD0\xBD\xD0\xB0.RGB"),
            folder / "\xD0\xA1\xD1\x82\xD0\xB5\xD0\xBD\xD0\xB0.rgb");
}

TEST(FindFile, namesInUnknownBytesMustHaveTheSameBytes)
{
  const TempFolder folder;
  writeFile(folder / "\xC4rger.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "\xC4RGER.RGB"), folder / "\xC4rger.rgb");
  EXPECT_EQ(findFileIgnoringCase(folder / "\xE4rger.rgb"), "");
}

TEST(FindFile, whatIsNoFileIsNotFound)
{
  const TempFolder folder;
  fs::create_directories(folder / "Textures");
  writeFile(folder / "Wall.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(""), "");
  EXPECT_EQ(findFileIgnoringCase("/"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "none.rgb"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "none/Wall.rgb"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "Textures"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "textures"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgb/"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgb/x"), "");
  EXPECT_EQ(findFileIgnoringCase("C:\\textures\\Wall.rgb"), "");
  EXPECT_EQ(findFileIgnoringCase((folder / "Wall.rgb") + std::string(1, '\0') + "x"), "");
  EXPECT_EQ(findFileIgnoringCase((folder / std::string(100000, 'a'))), "");
}

TEST(FindFile, aMissingLetterIsNoQuestionOfCase)
{
  const TempFolder folder;
  writeFile(folder / "Wall.rgb", "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rg"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgba"), "");
  EXPECT_EQ(findFileIgnoringCase(folder / "wall.rgc"), "");
}

TEST(FindFile, linksThatLeadInCirclesEnd)
{
  const TempFolder folder;
  fs::create_directory_symlink(".", folder / "a");
  fs::create_directory_symlink(".", folder / "A");
  std::string path = folder.path();
  for (int i = 0; i < 200; ++i)
    path += "/a";
  EXPECT_EQ(findFileIgnoringCase(path + "/none.rgb"), "");
}

} // namespace
} // namespace nalt
