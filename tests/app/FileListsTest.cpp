#include "app/FileLists.h"
#include "app/FileDialogs.h"
#include "app/RecentFiles.h"

#include <gtest/gtest.h>

namespace nalt {

using Paths = std::vector<std::string>;

TEST(FileLists, OnlyTwoSpellingsOfTheSuffixAreOpenFlight)
{
  EXPECT_TRUE(isOpenFlightPath("a.flt"));
  EXPECT_TRUE(isOpenFlightPath("/models/A.FLT"));
  EXPECT_FALSE(isOpenFlightPath("a.Flt"));
  EXPECT_FALSE(isOpenFlightPath(".flt")); // fewer than five characters
  EXPECT_FALSE(isOpenFlightPath("aflt"));
  EXPECT_FALSE(isOpenFlightPath(""));
}

TEST(FileLists, ASuffixIsAddedWhenThereIsNone)
{
  EXPECT_EQ(withOpenFlightSuffix("/m/tank"), "/m/tank.flt");
  EXPECT_EQ(withOpenFlightSuffix("/m/tank.flt"), "/m/tank.flt");
  EXPECT_EQ(withOpenFlightSuffix("/m/tank.FLT"), "/m/tank.FLT");
  EXPECT_EQ(withOpenFlightSuffix("/m/tank.obj"), "/m/tank.obj.flt");
}

TEST(FileLists, BothListsKeepTheOrderOfTheCommandLine)
{
  const FileLists lists = sortFiles({"a.flt", "b.obj", "c.FLT", "d.Lua"});
  EXPECT_EQ(lists.open, (Paths{"a.flt", "c.FLT"}));
  EXPECT_EQ(lists.import, (Paths{"b.obj", "d.Lua"}));
}

TEST(FileLists, ADropHasOneUriOrPathInEachLine)
{
  EXPECT_EQ(pathsOfDrop("file:///a%20b.flt\r\nfile:///c.flt\r\n"), (Paths{"/a b.flt", "/c.flt"}));
  EXPECT_EQ(pathsOfDrop("/plain.flt\n\n/with%20percent.flt"), (Paths{"/plain.flt", "/with%20percent.flt"}));
  EXPECT_EQ(pathsOfDrop("file://host/a.flt"), (Paths{"/a.flt"}));
  EXPECT_EQ(pathsOfDrop("file:/a.flt"), (Paths{"/a.flt"}));
  EXPECT_EQ(pathsOfDrop("file:///%C3%A4.flt"), (Paths{"/\xC3\xA4.flt"}));
  EXPECT_EQ(pathsOfDrop("file:///100%"), (Paths{"/100%"}));
  EXPECT_EQ(pathsOfDrop("file:///a%zz"), (Paths{"/a%zz"}));
  EXPECT_TRUE(pathsOfDrop("").empty());
}

TEST(ImportFilters, EndInTheOneThatHasThemAll)
{
  EXPECT_STREQ(importFilters().back().description, "All supported import formats");
  EXPECT_EQ(importFilters().size(), 16U);
}

TEST(ImportFilters, DecideWhatCanBeImportedInAnyCase)
{
  EXPECT_TRUE(isImportPath("/m/a.obj"));
  EXPECT_TRUE(isImportPath("/m/a.OBJ"));
  EXPECT_TRUE(isImportPath("a.osgt"));
  EXPECT_TRUE(isImportPath("a.x"));
  EXPECT_FALSE(isImportPath("a.lua"));
  EXPECT_FALSE(isImportPath("a.Flt"));
  EXPECT_FALSE(isImportPath("obj"));
  EXPECT_FALSE(isImportPath("/m.obj/a"));
}

TEST(RecentFiles, TheNewestComesFirstAndFourAreKept)
{
  RecentFiles files;
  for (const char* path : {"/1.flt", "/2.flt", "/3.flt", "/4.flt", "/5.flt"})
    EXPECT_TRUE(files.add(path));
  EXPECT_EQ(files.paths(), (Paths{"/5.flt", "/4.flt", "/3.flt", "/2.flt"}));
}

TEST(RecentFiles, AFileThatIsThereMovesToTheTop)
{
  RecentFiles files;
  for (const char* path : {"/1.flt", "/2.flt", "/1.flt"})
    files.add(path);
  EXPECT_EQ(files.paths(), (Paths{"/1.flt", "/2.flt"}));
}

TEST(RecentFiles, RefusesWhatIsNoOpenFlightFile)
{
  RecentFiles files;
  EXPECT_FALSE(files.add(".flt"));
  EXPECT_FALSE(files.add("/a.obj"));
  EXPECT_FALSE(files.add("/a.Flt"));
  EXPECT_TRUE(files.paths().empty());
}

} // namespace nalt
