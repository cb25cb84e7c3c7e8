#include "app/dialogs/CommandListText.h"
#include "app/dialogs/HelpServer.h"
#include "app/dialogs/KeyTable.h"
#include "app/dialogs/Manual.h"
#include "app/dialogs/PreferencesTable.h"
#include "app/dialogs/SearchText.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/Scoped.h"
#include "tests/support/Surroundings.h"
#include "tests/support/TempFolder.h"

#include <FL/Enumerations.H>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>

namespace nalt {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NamedCommand : public Command {
public:
  explicit NamedCommand(const std::string& name) : Command(name) {}
  void undo() override {}
  void redo() override {}
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
};

/// A model with the commands A, B and C in its list.
class CommandListTest : public testing::Test {
protected:
  CommandListTest() : before_(Shell::install(&shell))
  {
    Preferences::get() = Preferences();
    for (const char* name : {"A", "B", "C"})
      stack().add(std::make_unique<NamedCommand>(name));
  }
  ~CommandListTest() override
  {
    model.reset();
    Shell::install(before_);
  }
  CommandStack& stack() { return model->commandStack(); }

  RecordingShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);

private:
  Shell* before_;
};

} // namespace

TEST_F(CommandListTest, WhatCanBeRedoneStandsInItalicsAboveWhatCanBeUndone)
{
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@bC", "@bB", "@bA"));
  stack().undo();
  stack().undo();
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@i( C )", "@i( B )", "@bA"));
}

TEST_F(CommandListTest, TheFirstLineThatCanBeUndoneIsTheCurrentOne)
{
  EXPECT_EQ(currentCommandLine(stack()), 1);
  stack().undo();
  EXPECT_EQ(currentCommandLine(stack()), 2);
  stack().undo();
  stack().undo();
  EXPECT_EQ(currentCommandLine(stack()), 0);
}

TEST_F(CommandListTest, GoingToALineUndoesOrRedoesUpToIt)
{
  goToCommandLine(stack(), 3);
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@i( C )", "@i( B )", "@bA"));
  goToCommandLine(stack(), 2);
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@i( C )", "@bB", "@bA"));
  goToCommandLine(stack(), 2);
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@i( C )", "@bB", "@bA"));
  goToCommandLine(stack(), 1);
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@bC", "@bB", "@bA"));
  goToCommandLine(stack(), 4);
  goToCommandLine(stack(), 0);
  EXPECT_THAT(commandListLines(stack()), ElementsAre("@bC", "@bB", "@bA"));
}

TEST_F(CommandListTest, ACopiedLineHasNoLayoutCodes)
{
  stack().undo();
  const auto lines = commandListLines(stack());
  EXPECT_EQ(plainCommandText(lines[0]), "( C )");
  EXPECT_EQ(plainCommandText(lines[1]), "B");
}

TEST(SearchText, NamesAreSeparatedByBlanksOutsideOfQuotes)
{
  EXPECT_THAT(namesIn("p1 g2\tp3/V1 "), ElementsAre("p1", "g2", "p3/V1"));
  EXPECT_THAT(namesIn("\"left wing\" p1 \"open"), ElementsAre("left wing", "p1", "open"));
  EXPECT_THAT(namesIn("  "), IsEmpty());
  EXPECT_THAT(namesIn("\"\""), IsEmpty());
}

TEST(SearchText, OneNodeIsSingular)
{
  EXPECT_EQ(selectedInWords(1), "1 node is selected.");
  EXPECT_EQ(selectedInWords(12), "12 nodes are selected.");
}

TEST(HelpServer, ItsCommandLineNamesProgramAndSettings)
{
  const HelpServer server({"/opt/nalt/", "/home/me/.config/Nalt/nalt.cfg"});
  EXPECT_THAT(server.commandLine("displayHelp"),
              ElementsAre("java", "-classpath", "/opt/nalt/help/plugins/org.eclipse.help.base_3.3.100.v20080617.jar",
                          "org.eclipse.help.standalone.Help", "-clean", "-command", "displayHelp", "-eclipsehome",
                          "/opt/nalt/help", "-data", "/home/me/.config/Nalt/", "-configuration",
                          "/home/me/.config/Nalt/"));
  EXPECT_EQ(server.commandLine("shutdown")[6], "shutdown");
}

TEST(HelpServer, SaysWhatIsMissing)
{
  const tests::TempFolder folder;
  const std::string program = folder / "";
  EXPECT_EQ(HelpServer({program, "/x/nalt.cfg"}).display(),
            "Failed starting help, didn't find installation directory.");
  std::filesystem::create_directories(folder / "help/plugins");
  std::ofstream(folder / "help/plugins/org.eclipse.help.base_3.3.100.v20080617.jar") << "jar";
  EXPECT_TRUE(HelpServer({program, ""}).isInstalled());
  EXPECT_EQ(HelpServer({program, ""}).display(), "Failed starting help, didn't find user's directory.");
}

TEST(HelpServer, SaysWhenThereIsNoJava)
{
  const tests::TempFolder folder;
  std::filesystem::create_directories(folder / "help/plugins");
  tests::writeFile(folder / "help/plugins/org.eclipse.help.base_3.3.100.v20080617.jar", "jar");
  const tests::ScopedEnvironment path("PATH", folder.path());
  EXPECT_EQ(
      HelpServer({folder / "", "/x/nalt.cfg"}).display(),
      "Failed starting help. Please check if at least Java 6 (JRE 1.6.0) 64-bit is installed. NOTE that it has to "
      "be 64bit!");
}

TEST(HelpServer, IsShutDownOnceAndOnlyWhenItRuns)
{
  const tests::TempFolder folder;
  std::filesystem::create_directories(folder / "help/plugins");
  tests::writeFile(folder / "help/plugins/org.eclipse.help.base_3.3.100.v20080617.jar", "jar");
  tests::writeFile(folder / "java", "#!/bin/sh\necho $6 >>'" + (folder / "calls") + "'\n");
  std::filesystem::permissions(folder / "java", std::filesystem::perms::owner_all);
  const tests::ScopedEnvironment path("PATH", folder.path());
  const auto callsBecome = [&](const std::string& wanted) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < end) {
      if (std::filesystem::exists(folder / "calls") && tests::readFile(folder / "calls") == wanted) return true;
      std::this_thread::yield();
    }
    return false;
  };
  HelpServer server({folder / "", "/x/nalt.cfg"});
  server.shutDown();
  EXPECT_EQ(server.display(), "");
  EXPECT_TRUE(callsBecome("displayHelp\n"));
  server.shutDown();
  server.shutDown();
  EXPECT_TRUE(callsBecome("displayHelp\nshutdown\n"));
}

TEST(Manual, IsFoundBesideTheProgramOrInTheSourceTree)
{
  const tests::TempFolder folder;
  EXPECT_EQ(manualFolder(folder / "bin/"), "");
  EXPECT_EQ(manualFolder(""), "");
  std::filesystem::create_directories(folder / "bin");
  std::filesystem::create_directories(folder / "share/nalt/manual");
  std::ofstream(folder / "share/nalt/manual/index.html") << "contents";
  EXPECT_EQ(manualFolder(folder / "bin/"), folder / "bin/../share/nalt/manual/");
}

TEST(Manual, EveryChapterOfTheContentsIsThere)
{
  const auto chapters = manualChapters(tests::sourceFolder + std::string("/docs/manual/"));
  ASSERT_GE(chapters.size(), 8U);
  for (const ManualChapter& chapter : chapters)
    EXPECT_TRUE(std::filesystem::is_regular_file(chapter.file)) << chapter.file;
}

TEST(Manual, TellsOfEveryPreference)
{
  const auto chapters = manualChapters(tests::sourceFolder + std::string("/docs/manual/"));
  const auto page = std::ranges::find(chapters, "Preferences", &ManualChapter::title);
  ASSERT_NE(page, chapters.end());
  const std::string text = plainText(pageOf(*page));
  for (const auto& row : preferencesTable())
    if (row.kind != FormRow::Kind::buttons && row.label != std::string("x")) {
      EXPECT_THAT(text, testing::HasSubstr(row.label));
    }
  for (const ViewportPreferencesTab& tab : viewportPreferencesTabs())
    for (const auto& row : tab.rows)
      if (row.kind != FormRow::Kind::group && row.kind != FormRow::Kind::buttons) {
        EXPECT_THAT(text, testing::HasSubstr(row.label));
      }
}

TEST(Manual, LinksLeadToItsOwnPages)
{
  const std::string folder = tests::sourceFolder + std::string("/docs/manual/");
  static const std::regex link("<a href=\"([a-z-]*\\.html)?(#[a-z]+)?\">");
  for (const ManualChapter& chapter : manualChapters(folder)) {
    const std::string page = pageOf(chapter);
    for (std::sregex_iterator found(page.begin(), page.end(), link), end; found != end; ++found) {
      const std::string target = (*found)[1].matched ? folder + (*found)[1].str() : chapter.file;
      EXPECT_TRUE(std::filesystem::is_regular_file(target)) << target;
      const std::string mark = (*found)[2].matched ? (*found)[2].str().substr(1) : "";
      if (!mark.empty()) {
        EXPECT_THAT(pageOf({"", target}), testing::HasSubstr("<a name=\"" + mark + "\">"));
      }
    }
  }
}

TEST(Manual, SearchingFindsTextButNoTags)
{
  const tests::TempFolder folder;
  std::ofstream(folder / "index.html") << "<h1>All</h1><ul><li><a href=\"one.html\">One</a>\n"
                                          "<li><a href=\"two.html\">Two</a></ul>";
  std::ofstream(folder / "one.html") << "<p>Save <b>As</b> &amp; more";
  std::ofstream(folder / "two.html") << "<h1>Undo</h1>";
  const auto chapters = manualChapters(folder / "");
  ASSERT_EQ(chapters.size(), 3U);
  EXPECT_EQ(chapters[1].title, "One");
  EXPECT_EQ(findInManual(chapters, "save as & MORE", 0), 1);
  EXPECT_EQ(findInManual(chapters, "undo", 0), 2);
  EXPECT_EQ(findInManual(chapters, "two", 1), 0);
  EXPECT_EQ(findInManual(chapters, "h1", 0), -1);
}

TEST(KeyTable, KeysAreNamedAsTheyAreTyped)
{
  EXPECT_EQ(keyInWords(FL_CTRL | FL_SHIFT | 's'), "Ctrl+Shift+S");
  EXPECT_EQ(keyInWords('z'), "z");
  EXPECT_EQ(keyInWords(FL_SHIFT | 'z'), "Shift+Z");
  EXPECT_EQ(keyInWords(' '), "Space");
  EXPECT_EQ(keyInWords(FL_F + 1), "F1");
  EXPECT_EQ(keyInWords(FL_CTRL | FL_Tab), "Ctrl+Tab");
}

TEST(KeyTable, HoldsTheKeysOfMenusAndViewports)
{
  const std::string html = keyTables();
  for (const char* row :
       {"<tr><td>Ctrl+O</td><td>File &gt; Open...</td></tr>", "<tr><td>Ctrl+Z</td><td>Edit &gt; Undo</td></tr>",
        "<tr><td>Ctrl+Alt+0</td><td>Multi-texture &gt; Layer 0</td></tr>",
        "<tr><td>Shift+Z</td><td>Viewpoint &gt; Top (Along -Z)</td></tr>",
        "<tr><td>Space</td><td>Viewpoint &gt; Fit In View</td></tr>"})
    EXPECT_THAT(html, testing::HasSubstr(row));
}

} // namespace nalt
