#include "app/DesktopRecentFiles.h"
#include "app/FileLists.h"
#include "platform/FolderLock.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <regex>

namespace nalt {

namespace {

using testing::HasSubstr;
using testing::Not;

class DesktopRecentFiles : public testing::Test {
protected:
  bool note(const std::string& path) { return noteInRecentList(list, path, time); }
  std::string content() const { return tests::readFile(list); }
  static int count(const std::string& text, const std::string& pattern)
  {
    const std::regex expression(pattern);
    return static_cast<int>(std::distance(std::sregex_iterator(text.begin(), text.end(), expression), {}));
  }

  tests::TempFolder folder;
  const std::string list = folder / "recently-used.xbel";
  std::chrono::system_clock::time_point time{std::chrono::hours(24)};
};

} // namespace

TEST_F(DesktopRecentFiles, AListIsMadeWhereThereIsNone)
{
  EXPECT_TRUE(note("/models/a ship.flt"));
  EXPECT_THAT(content(), HasSubstr("version=\"1.0\">"));
  EXPECT_THAT(content(), HasSubstr("href=\"file:///models/a%20ship.flt\" added=\"1970-01-02T00:00:00Z\""));
  EXPECT_THAT(content(), HasSubstr("<mime:mime-type type=\"model/x-openflight\"/>"));
  EXPECT_THAT(content(), HasSubstr("<bookmark:application name=\"Nalt\" exec=\"'nalt %f'\""));
  EXPECT_THAT(content(), HasSubstr("count=\"1\""));
}

TEST_F(DesktopRecentFiles, AFileThatIsKnownKeepsItsEntry)
{
  note("/a.flt");
  note("/b.flt");
  time += std::chrono::hours(24);
  EXPECT_TRUE(note("/a.flt"));
  EXPECT_EQ(count(content(), "<bookmark href"), 2);
  EXPECT_THAT(content(), HasSubstr("added=\"1970-01-02T00:00:00Z\" modified=\"1970-01-03T00:00:00Z\""));
  EXPECT_THAT(content(), HasSubstr("count=\"2\""));
}

TEST_F(DesktopRecentFiles, WhatOtherProgramsWroteStays)
{
  tests::writeFile(list, R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks" xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href="file:///home/letter%28%31%29.flt" added="2001-01-01T00:00:00Z" modified="2001-01-01T00:00:00Z" visited="2001-01-01T00:00:00Z">
    <title>Letter &amp; more</title>
    <info><metadata owner="http://freedesktop.org"><mime:mime-type type="text/plain"/>
      <bookmark:applications><bookmark:application name="Editor" exec="'edit %u'" modified="2001-01-01T00:00:00Z" count="7"/></bookmark:applications>
    </metadata></info>
  </bookmark>
</xbel>)");
  EXPECT_TRUE(note("/home/letter(1).flt"));
  EXPECT_EQ(count(content(), "<bookmark href"), 1) << "the same file, though written in another way";
  EXPECT_THAT(content(), HasSubstr("Letter &amp; more"));
  EXPECT_THAT(content(), HasSubstr("name=\"Editor\" exec=\"'edit %u'\" modified=\"2001-01-01T00:00:00Z\" count=\"7\""));
  EXPECT_THAT(content(), HasSubstr("name=\"Nalt\""));
  EXPECT_THAT(content(), HasSubstr("text/plain"));
  EXPECT_THAT(content(), Not(HasSubstr("x-openflight")));
  EXPECT_THAT(content(), HasSubstr("added=\"2001-01-01T00:00:00Z\""));
}

TEST_F(DesktopRecentFiles, AListThatIsDamagedIsLeftAlone)
{
  tests::writeFile(list, "<xbel version=\"1.0\"><bookmark");
  EXPECT_FALSE(note("/a.flt"));
  EXPECT_EQ(content(), "<xbel version=\"1.0\"><bookmark");
  tests::writeFile(list, "<html/>");
  EXPECT_FALSE(note("/a.flt"));
  EXPECT_EQ(content(), "<html/>");
}

TEST_F(DesktopRecentFiles, AFolderThatIsLockedOrMissingIsNoTrouble)
{
  EXPECT_FALSE(noteInRecentList(folder / "no/such/folder/list.xbel", "/a.flt"));
  const FolderLock lock(folder.path());
  ASSERT_TRUE(lock.held());
  EXPECT_FALSE(note("/a.flt"));
}

TEST(FileLists, UrisAndPathsLeadToEachOther)
{
  for (const char* path : {"/plain.flt", "/a b/c%20d.flt", "/sch\xC3\xB6n/#1?.flt"})
    EXPECT_EQ(pathOfUri(uriOfPath(path)), path);
  EXPECT_EQ(uriOfPath("/a b%.flt"), "file:///a%20b%25.flt");
  EXPECT_EQ(pathOfUri("file://host/x"), "/x");
}

} // namespace nalt
