#include "app/Gui.h"
#include "app/DatabaseHost.h"
#include "app/PaletteButtons.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/support/TempFolder.h"

#include <FL/Fl.H>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace nalt {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The controller without a display: what it does to documents, and what it says.
class GuiTest : public testing::Test {
protected:
  GuiTest()
  {
    Preferences::get() = Preferences();
    gui.setScriptOutput([this](const std::string& line) { said.push_back(line); });
  }

  std::string savedModel(const std::string& name, int version = 1620) const
  {
    const std::string path = folder / name;
    const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
    file->initNew();
    EXPECT_TRUE(file->save(path, version));
    return path;
  }

  std::vector<std::string> tabs() const
  {
    std::vector<std::string> labels;
    for (int i = 0; i < gui.modelCount(); ++i)
      labels.push_back(gui.modelAt(i)->tabText());
    return labels;
  }

  tests::TempFolder folder;
  std::vector<std::string> said;
  Gui gui{/*headless=*/true};
  DatabaseHost host{gui};
};

} // namespace

TEST_F(GuiTest, TheColorButtonShowsTheCurrentColorAndBlackAsBlack)
{
  EXPECT_FALSE(currentColorShown(nullptr));
  gui.newModel("untitled.flt");
  Model& model = *gui.currentModel();
  auto* palette = model.fltFile()->colorPalette();
  palette->setEntry(5, {.a = 255, .b = 30, .g = 20, .r = 10});
  palette->setEntry(6, {.a = 0, .b = 0, .g = 0, .r = 0});
  auto& entries = model.paletteIndices();
  entries.set(PaletteKind::colorIndex, 5, /*undoable=*/true);
  EXPECT_EQ(currentColorShown(&model), fl_rgb_color(10, 20, 30));
  entries.set(PaletteKind::colorIndex, 6, /*undoable=*/true);
  EXPECT_EQ(currentColorShown(&model), Fl_Color{56}) << "the number 0 would be the background";
  auto* header = model.fltFile()->header();
  using Header = fltapi::HeaderRecord;
  header->set(Header::fields.flags, header->get(Header::fields.flags) | Header::rgbModeFlag);
  entries.setRgbColor({.r = 1, .g = 2, .b = 3, .a = 4}, /*undoable=*/true);
  EXPECT_EQ(currentColorShown(&model), fl_rgb_color(1, 2, 3));
}

TEST_F(GuiTest, NewModelsAreNumberedAndCleanAndNew)
{
  Model* first = gui.newModel("untitled.flt");
  ASSERT_TRUE(first);
  EXPECT_EQ(gui.currentModel(), first);
  gui.newModel("untitled.flt");
  EXPECT_THAT(tabs(), ElementsAre("untitled.flt", "untitled.flt <2>"));
  EXPECT_TRUE(first->isNew());
  EXPECT_FALSE(first->isDirty());
  EXPECT_EQ(first->path(), "untitled.flt");
}

TEST_F(GuiTest, AFileIsOpenedOnATabOfItsOwn)
{
  const std::string path = savedModel("a.flt");
  EXPECT_TRUE(gui.openModel(path, true));
  EXPECT_THAT(tabs(), ElementsAre("a.flt"));
  EXPECT_EQ(gui.currentModel()->path(), path);
  EXPECT_FALSE(gui.currentModel()->isNew());
  EXPECT_FALSE(gui.currentModel()->isDirty());
  EXPECT_THAT(said, IsEmpty());
  EXPECT_THAT(gui.recentFiles().paths(), ElementsAre(path));
}

TEST_F(GuiTest, TheFileOfAnOpenTabIsNotLoadedTwice)
{
  const std::string a = savedModel("a.flt");
  gui.openModel(a, true);
  Model* model = gui.currentModel();
  gui.openModel(savedModel("b.flt"), true);
  EXPECT_TRUE(gui.openModel(a, true));
  EXPECT_EQ(gui.currentModel(), model);
  EXPECT_EQ(gui.modelCount(), 2);
}

TEST_F(GuiTest, EqualNamesFromTwoFoldersAreNumbered)
{
  std::filesystem::create_directory(folder / "other");
  gui.openModel(savedModel("a.flt"), true);
  gui.openModel(savedModel("other/a.flt"), true);
  EXPECT_THAT(tabs(), ElementsAre("a.flt", "a.flt <2>"));
  gui.setCurrentModel(*gui.modelAt(0));
  gui.closeModel();
  gui.openModel(folder / "a.flt", true);
  EXPECT_THAT(tabs(), ElementsAre("a.flt <2>", "a.flt <3>"));
}

TEST_F(GuiTest, WhatIsNoOpenFlightFileIsRefused)
{
  EXPECT_FALSE(gui.openModel("/x/a.obj", true));
  EXPECT_FALSE(gui.openModel(".flt", true));
  EXPECT_THAT(said,
              ElementsAre("WARNING: Invalid OpenFlight file: /x/a.obj", "WARNING: Invalid OpenFlight file: .flt"));
}

TEST_F(GuiTest, AMissingFileLeavesNoTab)
{
  const std::string path = folder / "missing.flt";
  EXPECT_FALSE(gui.openModel(path, true));
  EXPECT_EQ(gui.modelCount(), 0);
  EXPECT_THAT(said, testing::Contains("WARNING: Couldn't open file " + path));
}

TEST_F(GuiTest, ErrorsOfAWorkerComeBeforeItsWarnings)
{
  const std::string path = folder / "broken.flt";
  // A whole file that ends in the middle of its first level.
  constexpr std::size_t headerLength = 324;
  const std::string header = tests::readFile(savedModel("whole.flt")).substr(0, headerLength);
  tests::writeFile(path, header + std::string("\x00\x0A\x00\x04\x00\x02\x00\x2C\x00", 9));
  EXPECT_TRUE(gui.openModel(path, false)); // started
  gui.files().waitUntilIdle();
  EXPECT_EQ(gui.modelCount(), 0);
  ASSERT_GE(said.size(), 2U);
  EXPECT_EQ(said.front(), "WARNING: Couldn't open file " + path);
  EXPECT_THAT(said, testing::Contains(testing::StartsWith("WARNING: Can't read broken.flt. ")));
}

TEST_F(GuiTest, AnOlderFileIsConvertedWithAWordToTheUser)
{
  gui.openModel(savedModel("old.flt", 1580), true);
  EXPECT_THAT(said, ElementsAre("WARNING: Converted old.flt from version 15.8 to version 16.2."));
}

TEST_F(GuiTest, ManyFilesAreOpenedOneAfterTheOther)
{
  std::vector<std::string> paths;
  for (char name = 'a'; name <= 'j'; ++name)
    paths.push_back(savedModel(std::string(1, name) + ".flt"));
  gui.openFiles(paths);
  EXPECT_TRUE(gui.files().busy());
  gui.files().waitUntilIdle();
  EXPECT_THAT(tabs(),
              ElementsAre("a.flt", "b.flt", "c.flt", "d.flt", "e.flt", "f.flt", "g.flt", "h.flt", "i.flt", "j.flt"));
}

TEST_F(GuiTest, AFailureInTheMiddleDoesntStopTheOthers)
{
  gui.openFiles({savedModel("a.flt"), folder / "missing.flt", savedModel("b.flt")});
  gui.files().waitUntilIdle();
  EXPECT_THAT(tabs(), ElementsAre("a.flt", "b.flt"));
}

TEST_F(GuiTest, SaveAsAddsTheSuffixAndRenamesTheTab)
{
  gui.newModel("untitled.flt");
  const std::string path = folder / "ship";
  EXPECT_TRUE(gui.saveModelAs(path, 1620, true));
  EXPECT_TRUE(std::filesystem::exists(path + ".flt"));
  EXPECT_THAT(tabs(), ElementsAre("ship.flt"));
  EXPECT_EQ(gui.currentModel()->path(), path + ".flt");
  EXPECT_FALSE(gui.currentModel()->isNew());
  EXPECT_THAT(gui.recentFiles().paths(), ElementsAre(path + ".flt"));
}

TEST_F(GuiTest, AnExistingFileIsOnlyOverwrittenAfterAYes)
{
  const std::string path = folder / "there.flt";
  tests::writeFile(path, "something");
  gui.newModel("untitled.flt");
  gui.setPresetAnswer(Answer::no);
  EXPECT_FALSE(gui.saveModelAs(path, 1620, true));
  EXPECT_EQ(tests::readFile(path), "something");
  gui.setPresetAnswer(Answer::yes);
  EXPECT_TRUE(gui.saveModelAs(path, 1620, true));
  EXPECT_NE(tests::readFile(path), "something");
}

TEST_F(GuiTest, SavingMakesAModelClean)
{
  const std::string path = savedModel("a.flt");
  gui.openModel(path, true);
  gui.currentModel()->setDirty(true);
  EXPECT_THAT(tabs(), ElementsAre("a.flt*"));
  EXPECT_TRUE(gui.saveModel(1620, false));
  gui.files().waitUntilIdle();
  EXPECT_THAT(tabs(), ElementsAre("a.flt"));
}

TEST_F(GuiTest, ANumberedTabKeepsItsNumberWhenItIsSaved)
{
  std::filesystem::create_directory(folder / "other");
  gui.openModel(savedModel("a.flt"), true);
  gui.openModel(savedModel("other/a.flt"), true);
  gui.setCurrentModel(*gui.modelAt(0));
  gui.closeModel();
  gui.openModel(folder / "a.flt", true);
  gui.saveModel(1620, true);
  EXPECT_THAT(tabs(), ElementsAre("a.flt <2>", "a.flt <3>"));
}

TEST_F(GuiTest, SavingOntoAnotherOpenModelIsRefused)
{
  const std::string a = savedModel("a.flt");
  gui.openModel(a, true);
  gui.newModel("untitled.flt");
  EXPECT_FALSE(gui.saveModelAs(a, 1620, true));
  EXPECT_THAT(said, ElementsAre("WARNING: Can't create multiple models with the same filename " + a + "."));
  EXPECT_EQ(gui.currentModel()->path(), "untitled.flt");
}

TEST_F(GuiTest, AFailedSaveLeavesTheModelDirty)
{
  gui.newModel("untitled.flt");
  gui.currentModel()->setDirty(true);
  const std::string path = folder / "no/such/folder.flt";
  EXPECT_FALSE(gui.saveModelAs(path, 1620, true));
  EXPECT_TRUE(gui.currentModel()->isDirty());
  EXPECT_EQ(gui.currentModel()->path(), "untitled.flt");
  EXPECT_THAT(said, ElementsAre("WARNING: Failed opening file " + path + " for writing.",
                                "WARNING: Couldn't save file " + path));
}

TEST_F(GuiTest, WithoutAPathThereIsNothingToSaveTo)
{
  gui.newModel("");
  EXPECT_FALSE(gui.saveModel(1620, true));
  EXPECT_THAT(said, ElementsAre("WARNING: Empty filename."));
}

TEST_F(GuiTest, AModelWithoutADocumentCannotBeSaved)
{
  gui.setCurrentModel(gui.addModel(std::make_unique<Model>(0, 0, 0, 0)));
  EXPECT_FALSE(gui.saveModelAs(folder / "a.flt", 1620, true));
  EXPECT_THAT(said, ElementsAre("WARNING: Missing header record."));
  EXPECT_FALSE(std::filesystem::exists(folder / "a.flt"));
}

TEST_F(GuiTest, AnOldFileStaysOldWhenTheUserWantsThat)
{
  gui.openModel(savedModel("old.flt", 1570), true);
  said.clear();
  EXPECT_EQ(Gui::saveVersionOf(*gui.currentModel()), 1620);
  Preferences::get().saveLatestVersion = false;
  EXPECT_EQ(Gui::saveVersionOf(*gui.currentModel()), 1570);
  EXPECT_TRUE(gui.saveModel(Gui::saveVersionOf(*gui.currentModel()), true));
  EXPECT_THAT(said, ElementsAre("INFO: old.flt will be saved with OpenFlight version 15.7."));
  EXPECT_EQ(gui.currentModel()->fltFile()->loadedVersion(), 1570);
}

TEST_F(GuiTest, TheVersionToSaveIsKeptInWhatCanBeWritten)
{
  gui.newModel("untitled.flt");
  Preferences::get().saveLatestVersion = false;
  gui.currentModel()->fltFile()->setLoadedVersion(1420);
  EXPECT_EQ(Gui::saveVersionOf(*gui.currentModel()), 1570);
  gui.currentModel()->fltFile()->setLoadedVersion(1640);
  EXPECT_EQ(Gui::saveVersionOf(*gui.currentModel()), 1620);
}

TEST_F(GuiTest, ClosingACleanModelAsksNothing)
{
  gui.newModel("untitled.flt");
  gui.setPresetAnswer(Answer::cancel);
  EXPECT_TRUE(gui.closeModel());
  EXPECT_EQ(gui.modelCount(), 0);
  EXPECT_EQ(gui.currentModel(), nullptr);
  EXPECT_FALSE(gui.closeModel());
}

TEST_F(GuiTest, ClosingADirtyModelFollowsTheAnswer)
{
  const std::string path = savedModel("a.flt");
  gui.openModel(path, true);
  gui.currentModel()->setDirty(true);
  gui.setPresetAnswer(Answer::cancel);
  EXPECT_FALSE(gui.closeModel());
  EXPECT_EQ(gui.modelCount(), 1);
  std::filesystem::remove(path);
  gui.setPresetAnswer(Answer::no);
  EXPECT_TRUE(gui.closeModel());
  EXPECT_FALSE(std::filesystem::exists(path));

  gui.openModel(savedModel("a.flt"), true);
  gui.currentModel()->setDirty(true);
  std::filesystem::remove(path);
  gui.setPresetAnswer(Answer::yes);
  EXPECT_TRUE(gui.closeModel());
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(GuiTest, ASaveThatFailsKeepsTheModelOpen)
{
  gui.openModel(savedModel("a.flt"), true);
  gui.currentModel()->setDirty(true);
  std::filesystem::remove_all(folder.path());
  gui.setPresetAnswer(Answer::yes);
  EXPECT_FALSE(gui.closeModel());
  EXPECT_EQ(gui.modelCount(), 1);
  std::filesystem::create_directory(folder.path());
}

TEST_F(GuiTest, TheNextTabBecomesCurrentWhenOneIsClosed)
{
  for (const char* name : {"1.flt", "2.flt", "3.flt"})
    gui.newModel(name);
  gui.setCurrentModel(*gui.modelAt(1));
  gui.closeModel();
  EXPECT_EQ(gui.currentModel()->path(), "3.flt");
  gui.closeModel();
  EXPECT_EQ(gui.currentModel()->path(), "1.flt");
}

TEST_F(GuiTest, ClosingAllStopsAtACancel)
{
  for (const char* name : {"1.flt", "2.flt", "3.flt"})
    gui.newModel(name);
  gui.modelAt(1)->setDirty(true);
  gui.setPresetAnswer(Answer::cancel);
  gui.closeAllModels();
  EXPECT_EQ(gui.modelCount(), 2); // the last and, after it, the dirty one was asked for
  gui.setPresetAnswer(Answer::no);
  gui.closeAllModels();
  EXPECT_EQ(gui.modelCount(), 0);
}

TEST_F(GuiTest, NextAndPreviousModelWrap)
{
  for (const char* name : {"1.flt", "2.flt", "3.flt"})
    gui.newModel(name);
  gui.nextModel(+1);
  EXPECT_EQ(gui.currentModel()->path(), "1.flt");
  gui.nextModel(-1);
  EXPECT_EQ(gui.currentModel()->path(), "3.flt");
}

TEST_F(GuiTest, RevertGoesBackToTheFile)
{
  gui.openModel(savedModel("a.flt"), true);
  const Model* before = gui.currentModel();
  gui.currentModel()->setDirty(true);
  EXPECT_TRUE(gui.files().revert(true));
  EXPECT_NE(gui.currentModel(), before);
  EXPECT_FALSE(gui.currentModel()->isDirty());
  EXPECT_THAT(tabs(), ElementsAre("a.flt"));
}

TEST_F(GuiTest, RevertNeedsAYesAndAFile)
{
  const std::string path = savedModel("a.flt");
  gui.openModel(path, true);
  gui.setPresetAnswer(Answer::no);
  EXPECT_FALSE(gui.files().revert(true));
  std::filesystem::remove(path);
  EXPECT_FALSE(gui.files().revert(true));
  EXPECT_THAT(said, ElementsAre("WARNING: Can't revert " + path + " since the file doesn't exist anymore."));
  EXPECT_EQ(gui.modelCount(), 1);
}

TEST_F(GuiTest, ARevertThatFailsKeepsTheModel)
{
  const std::string path = savedModel("a.flt");
  gui.openModel(path, true);
  Model* before = gui.currentModel();
  before->setDirty(true);
  tests::writeFile(path, "no model any more");
  EXPECT_FALSE(gui.files().revert(true));
  EXPECT_EQ(gui.currentModel(), before);
  EXPECT_TRUE(before->isDirty());
  EXPECT_THAT(tabs(), ElementsAre("a.flt*"));
}

TEST_F(GuiTest, ImportsAreSortedOut)
{
  EXPECT_FALSE(gui.files().import("/x/a.lua", true));
  EXPECT_THAT(said, ElementsAre("WARNING: Invalid import file /x/a.lua"));
}

TEST_F(GuiTest, AnImportThatFailsIsToldAndLeavesNoTab)
{
  gui.importFiles({"/x/a.obj", "/x/b.OBJ"});
  gui.files().waitUntilIdle();
  EXPECT_THAT(said, ElementsAre("WARNING: Couldn't import file /x/a.obj", "WARNING: Couldn't import file /x/b.OBJ"));
  EXPECT_EQ(gui.modelCount(), 0);
}

TEST_F(GuiTest, DroppedFilesAreOpened)
{
  const std::string path = savedModel("a b.flt");
  gui.openDropped("file://" + folder.path() + "/a%20b.flt\r\n");
  gui.files().waitUntilIdle();
  ASSERT_TRUE(gui.currentModel());
  EXPECT_EQ(gui.currentModel()->path(), path);
}

TEST_F(GuiTest, MessagesGoToTheOutputWhileThereIsNoWindow)
{
  gui.warning("one");
  gui.info("two", false, MessageId::saveVersion);
  EXPECT_THAT(said, ElementsAre("WARNING: one", "INFO: two"));
}

TEST(FileJob, ARepeatedMessageIsQueuedOnceUnlessItIsAppended)
{
  std::vector<QueuedMessage> list;
  const QueuedMessage message{MessageKind::warning, "same", MessageId::none};
  FileJob::queue(list, message, false);
  FileJob::queue(list, message, false);
  EXPECT_EQ(list.size(), 1U);
  FileJob::queue(list, message, true);
  EXPECT_EQ(list.size(), 2U);
  FileJob::queue(list, {MessageKind::info, "other", MessageId::none}, false);
  FileJob::queue(list, message, false);
  EXPECT_EQ(list.size(), 4U);
}

TEST(FileJob, ProgressStaysBetweenNothingAndAll)
{
  FileJob job;
  job.setProgress(-5.0);
  EXPECT_EQ(job.progress, 0.0);
  job.setProgress(120.0);
  EXPECT_EQ(job.progress, 100.0);
  job.setProgress(85.0);
  job.addProgress(1, 3);
  EXPECT_DOUBLE_EQ(job.progress, 90.0);
  job.addProgress(10, 3);
  EXPECT_EQ(job.progress, 100.0);
}

TEST(FileJob, TextsNameTheFile)
{
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::open), "/a.flt"), "Opening file: /a.flt...");
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::save), "/a.flt"), "Saving file: /a.flt...");
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::revert), "/a.flt"), "Reverting file: /a.flt...");
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::import), "/a.obj"), "Importing file: /a.obj...");
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::revertExternals), "/a.flt"), "Reverting externals...");
  EXPECT_EQ(progressTextFor(fileOperation(FileOperationKind::loadExternals), "/a.flt"), "Loading externals...");
}

} // namespace nalt
