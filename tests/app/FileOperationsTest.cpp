#include "app/FileWorker.h"
#include "core/Externals.h"
#include "core/ScriptRecorder.h"
#include "core/Tool.h"
#include "core/selection/SelectOperations.h"
#include "tests/app/GuiFixture.h"

#include <filesystem>
#include <pthread.h>
#include <sys/stat.h>

namespace nalt {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileOperationsTest : public GuiFixture {
protected:
  void open(const std::string& path) { ASSERT_TRUE(gui.openModel(path, /*synchronous=*/true)); }
  void open(const char* name) { open(savedSquares(name, 2)); }

  /// A file that shows "part.flt" of the same folder.
  std::string savedWithExternal(const std::string& name, int squares)
  {
    savedSquares("part.flt", squares);
    const std::string path = folder / name;
    const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
    file->initNew();
    auto* external = file->create<fltapi::ExternalRecord>();
    file->header()->addChild(external, /*append=*/true);
    external->set(fltapi::ExternalRecord::fields.path, std::string("part.flt"));
    EXPECT_TRUE(file->save(path));
    return path;
  }

  /// Polygons that the current model shows of other files.
  int shownPolygons() const
  {
    int count = 0;
    for (auto* external : externalsOf(*gui.currentModel()))
      count += static_cast<int>(external->findDescendants(fltapi::FaceRecord::code, /*followInstances=*/false).size());
    return count;
  }

  void changePart(int squares)
  {
    const std::string part = savedSquares("part.flt", squares);
    std::filesystem::last_write_time(part, std::filesystem::last_write_time(part) + std::chrono::seconds(5));
  }

  void copySomething()
  {
    fltapi::FltFile& file = *gui.currentModel()->fltFile();
    Clipboard::get().add(*file.createRecord(fltapi::GroupRecord::code), file);
  }
};

class Recorder : public ScriptRecorder {
public:
  bool recording() const override { return isOn; }
  int lineCount() const override { return static_cast<int>(lines.size()); }
  void appendComment(const std::string& text) override { comments.push_back(text); }
  void appendScript(const std::string& text) override { lines.push_back(text); }
  void cutBackTo(int line) override { lines.resize(static_cast<std::size_t>(line)); }

  bool isOn = true;
  std::vector<std::string> lines;
  std::vector<std::string> comments;
};

} // namespace

TEST_F(FileOperationsTest, RevertingExternalsLoadsThemAnewAndForgetsEdits)
{
  open(savedWithExternal("whole.flt", 2));
  ASSERT_EQ(shownPolygons(), 2);
  selectAll(*gui.currentModel(), SelectionMode::external, /*undoable=*/true);
  changePart(5);
  EXPECT_TRUE(gui.files().revertExternals(/*synchronous=*/true));
  EXPECT_THAT(gui.questions,
              ElementsAre("Do you want to revert externals? Note that the selection will be cleared and the command "
                          "list will be erased."));
  EXPECT_EQ(shownPolygons(), 5);
  EXPECT_TRUE(gui.currentModel()->selections().empty());
  selectPrevious(*gui.currentModel(), /*undoable=*/false);
  EXPECT_TRUE(gui.currentModel()->selections().empty()) << "the former selection may be gone as well";
  EXPECT_TRUE(gui.currentModel()->commandStack().undoCommands().empty());
  EXPECT_FALSE(gui.currentModel()->isDirty());
}

TEST_F(FileOperationsTest, RevertingExternalsOnAWorkerEndsTheSame)
{
  open(savedWithExternal("whole.flt", 2));
  gui.currentModel()->sceneRoot();
  changePart(3);
  EXPECT_TRUE(gui.files().revertExternals(/*synchronous=*/false));
  EXPECT_TRUE(gui.files().busy());
  gui.files().waitUntilIdle();
  EXPECT_EQ(shownPolygons(), 3);
}

TEST_F(FileOperationsTest, ANoLeavesTheExternalsAlone)
{
  open(savedWithExternal("whole.flt", 2));
  selectAll(*gui.currentModel(), SelectionMode::external, /*undoable=*/true);
  changePart(5);
  gui.answer = Answer::no;
  EXPECT_FALSE(gui.files().revertExternals(true));
  EXPECT_FALSE(gui.files().unloadExternals({"part.flt"}));
  EXPECT_FALSE(gui.files().loadExternals({"part.flt"}, true));
  EXPECT_FALSE(gui.files().redirectExternals("part.flt", "other.flt", true));
  EXPECT_EQ(shownPolygons(), 2);
  EXPECT_FALSE(gui.currentModel()->selections().empty());
}

TEST_F(FileOperationsTest, ExternalsAreUnloadedAndLoadedAgain)
{
  open(savedWithExternal("whole.flt", 2));
  EXPECT_TRUE(gui.files().unloadExternals({"other.flt"}));
  EXPECT_EQ(shownPolygons(), 2) << "only those that were asked for";
  EXPECT_TRUE(gui.files().unloadExternals({"part.flt"}));
  EXPECT_EQ(shownPolygons(), 0);
  Preferences::get().loadExternals = false;
  EXPECT_TRUE(gui.files().loadExternals({"part.flt"}, true)) << "asked for by hand, whatever the preferences say";
  EXPECT_EQ(shownPolygons(), 2);
  const std::string question = "Do you want to load/unload externals? Note that the selection will be cleared and the "
                               "command list will be erased.";
  EXPECT_THAT(gui.questions, ElementsAre(question, question, question));
}

TEST_F(FileOperationsTest, ExternalsAreLoadedOnAWorkerWhileTheProgramGoesOn)
{
  open(savedWithExternal("whole.flt", 2));
  gui.currentModel()->sceneRoot();
  changePart(3);
  EXPECT_TRUE(gui.files().loadExternals({"part.flt"}, /*synchronous=*/false));
  EXPECT_TRUE(gui.files().busy());
  EXPECT_FALSE(isActive("&Delete")) << "nothing may touch the model meanwhile";
  gui.files().waitUntilIdle();
  EXPECT_EQ(shownPolygons(), 3);
}

TEST_F(FileOperationsTest, AReferenceIsLedToAnotherFile)
{
  open(savedWithExternal("whole.flt", 2));
  const std::string other = savedSquares("other.flt", 4);
  EXPECT_TRUE(gui.files().redirectExternals("part.flt", other, /*synchronous=*/false));
  gui.files().waitUntilIdle();
  EXPECT_EQ(shownPolygons(), 4);
  EXPECT_TRUE(gui.currentModel()->isDirty());
}

TEST_F(FileOperationsTest, APathThatDoesNotFitIsToldAndNothingChanges)
{
  open(savedWithExternal("whole.flt", 2));
  const std::string longPath(200, 'x');
  EXPECT_FALSE(gui.files().redirectExternals("part.flt", longPath, true));
  EXPECT_THAT(said, ElementsAre("WARNING: Couldn't refer to " + longPath +
                                ".\nThe path has more than 199 bytes, or it is the same."));
  EXPECT_EQ(shownPolygons(), 2);
  EXPECT_FALSE(gui.currentModel()->isDirty());
}

TEST_F(FileOperationsTest, AMissingExternalIsToldAndTheModelStays)
{
  open(savedWithExternal("whole.flt", 2));
  std::filesystem::remove(folder / "part.flt");
  EXPECT_TRUE(gui.files().revertExternals(true));
  EXPECT_EQ(shownPolygons(), 0);
  EXPECT_THAT(said, ElementsAre("WARNING: Failed reading external reference part.flt"));
}

TEST_F(FileOperationsTest, AChangeOnDiskIsAskedAboutOnce)
{
  open(savedWithExternal("whole.flt", 2));
  EXPECT_FALSE(gui.files().reloadChangedExternals(true));
  EXPECT_THAT(gui.questions, IsEmpty()) << "nothing changed";
  changePart(4);
  gui.answer = Answer::no;
  EXPECT_FALSE(gui.files().reloadChangedExternals(true));
  EXPECT_FALSE(gui.files().reloadChangedExternals(true));
  EXPECT_THAT(gui.questions,
              ElementsAre("At least one external reference was changed on disk. Do you want to reload changed "
                          "external references? Note that the command list will be erased."));
  std::filesystem::last_write_time(folder / "part.flt",
                                   std::filesystem::last_write_time(folder / "part.flt") + std::chrono::seconds(9));
  gui.answer = Answer::yes;
  EXPECT_TRUE(gui.files().reloadChangedExternals(true)) << "it changed once more";
  EXPECT_EQ(shownPolygons(), 4);
}

TEST_F(FileOperationsTest, ChangesOnDiskDontMatterWhenTheUserSwitchedThatOff)
{
  open(savedWithExternal("whole.flt", 2));
  changePart(4);
  Preferences::get().reloadExternals = false;
  EXPECT_FALSE(gui.files().reloadChangedExternals(true));
  EXPECT_THAT(gui.questions, IsEmpty());
}

TEST_F(FileOperationsTest, ClosingTheSourceOfTheClipboardAsksFirst)
{
  open("a.flt");
  copySomething();
  gui.answer = Answer::no;
  EXPECT_FALSE(gui.closeModel());
  EXPECT_EQ(gui.modelCount(), 1);
  EXPECT_FALSE(Clipboard::get().empty());
  gui.answer = Answer::yes;
  EXPECT_TRUE(gui.closeModel());
  EXPECT_TRUE(Clipboard::get().empty());
  const std::string question = "Clipboard contents from a.flt will be removed.\nDo you still want to close the file?";
  EXPECT_THAT(gui.questions, ElementsAre(question, question));
}

TEST_F(FileOperationsTest, AScriptClosesTheSourceOfTheClipboardUnasked)
{
  open("a.flt");
  copySomething();
  gui.setQuiet(/*quiet=*/true, /*batch=*/true);
  gui.answer = Answer::no;
  EXPECT_TRUE(gui.closeModel());
  EXPECT_TRUE(Clipboard::get().empty());
  EXPECT_THAT(gui.questions, IsEmpty());
}

TEST_F(FileOperationsTest, ClosingAnotherModelLeavesTheClipboardAlone)
{
  open("a.flt");
  copySomething();
  open("b.flt");
  EXPECT_TRUE(gui.closeModel());
  EXPECT_THAT(gui.questions, IsEmpty());
  EXPECT_FALSE(Clipboard::get().empty());
}

TEST_F(FileOperationsTest, ClosingADirtyModelAsksWhetherToSaveIt)
{
  open("a.flt");
  gui.currentModel()->setDirty(true);
  gui.answer = Answer::cancel;
  EXPECT_FALSE(gui.closeModel());
  EXPECT_THAT(gui.questions, ElementsAre("Save file " + (folder / "a.flt") + "?"));
}

TEST_F(FileOperationsTest, RevertingTheSourceOfTheClipboardSaysSo)
{
  open("a.flt");
  copySomething();
  EXPECT_TRUE(gui.files().revert(true));
  EXPECT_TRUE(Clipboard::get().empty());
  EXPECT_TRUE(gui.files().revert(true));
  const std::string question = "Revert file " + (folder / "a.flt") + "?";
  EXPECT_THAT(gui.questions, ElementsAre("Clipboard contents from a.flt will be removed.\n" + question, question));
}

TEST_F(FileOperationsTest, ARevertedModelKeepsItsTab)
{
  open("a.flt");
  open("b.flt");
  open("c.flt");
  gui.setCurrentModel(*gui.modelAt(1));
  EXPECT_TRUE(gui.files().revert(true));
  EXPECT_EQ(gui.currentModel(), gui.modelAt(1));
  EXPECT_EQ(gui.currentModel()->tabText(), "b.flt");
}

TEST_F(FileOperationsTest, OverwritingIsAskedForByName)
{
  open("a.flt");
  const std::string there = savedSquares("there.flt", 1);
  gui.answer = Answer::no;
  EXPECT_FALSE(gui.saveModelAs(there, 1620, true));
  EXPECT_THAT(gui.questions, ElementsAre("Overwrite file " + there + "?"));
}

TEST_F(FileOperationsTest, WhatTheUserDoesToFilesIsRecorded)
{
  Recorder recorder;
  gui.setScriptRecorder(&recorder);
  const std::string path = savedSquares("a.flt", 1);
  gui.openFiles({path});
  gui.files().waitUntilIdle();
  gui.save();
  gui.files().waitUntilIdle();
  gui.saveModelAs(folder / "b.flt", 1620, false);
  gui.saveModelAs(folder / "c.flt", 1570, false);
  gui.files().waitUntilIdle();
  gui.files().revert(true);
  gui.createUntitled();
  gui.nextModel(+1);
  gui.closeModel();
  EXPECT_THAT(recorder.lines, ElementsAre("nalt.openModel(\"" + path + "\")", "nalt.saveModel()",
                                          "nalt.saveModelAs(\"" + (folder / "b.flt") + "\")",
                                          "nalt.saveModelAs(\"" + (folder / "c.flt") + "\", 1570)",
                                          "nalt.revertModel()", "nalt.newModel(\"untitled.flt\")",
                                          "nalt.setCurrentModel(\"" + (folder / "c.flt") + "\")", "nalt.closeModel()"));
  EXPECT_EQ(recorder.comments.back(), "--\n-- nalt.closeModel()\n-- Closes the current model.");
  gui.setScriptRecorder(nullptr);
}

TEST_F(FileOperationsTest, TurningToAnOpenFileIsRecorded)
{
  open("a.flt");
  open("b.flt");
  Recorder recorder;
  gui.setScriptRecorder(&recorder);
  gui.openFiles({folder / "a.flt", folder / "a.flt"});
  gui.files().waitUntilIdle();
  EXPECT_THAT(recorder.lines, ElementsAre("nalt.setCurrentModel(\"" + (folder / "a.flt") + "\")"));
  gui.setScriptRecorder(nullptr);
}

TEST_F(FileOperationsTest, OpeningEndsTheToolAlsoWhenItFails)
{
  class IdleTool : public Tool {
  public:
    IdleTool() : Tool(Writes::nothing) {}
    void run() override {}
  };
  open("a.flt");
  Model& model = *gui.currentModel();
  model.setTool(std::make_unique<IdleTool>());
  EXPECT_FALSE(gui.openModel(folder / "missing.flt", /*synchronous=*/true));
  EXPECT_EQ(gui.currentModel(), &model);
  EXPECT_EQ(model.tool(), nullptr);
}

TEST_F(FileOperationsTest, AScriptsOwnFilesAreNotRecordedAgain)
{
  Recorder recorder;
  gui.setScriptRecorder(&recorder);
  gui.setQuiet(/*quiet=*/true, /*batch=*/false);
  open("a.flt");
  recorder.isOn = false;
  gui.setQuiet(/*quiet=*/false, /*batch=*/false);
  open("b.flt");
  EXPECT_THAT(recorder.lines, IsEmpty());
  gui.setScriptRecorder(nullptr);
}

TEST_F(FileOperationsTest, EveryOperationHasItsThreadTag)
{
  const auto tag = [](FileOperationKind kind) { return std::string(fileOperation(kind).threadTag); };
  EXPECT_EQ(tag(FileOperationKind::open), "openCB (pthread_create)");
  EXPECT_EQ(tag(FileOperationKind::save), "save (pthread_create)");
  EXPECT_EQ(tag(FileOperationKind::import), "importCB (pthread_create)");
  EXPECT_EQ(tag(FileOperationKind::revert), "revertCB (pthread_create)");
  EXPECT_EQ(tag(FileOperationKind::revertExternals), "revertExternalsCB (pthread_create)");
}

TEST_F(FileOperationsTest, WithoutAThreadTheUserIsToldAndTheModelsStay)
{
  open("a.flt");
  pthread_attr_t attributes;
  pthread_attr_t before;
  pthread_attr_init(&attributes);
  pthread_getattr_default_np(&before);
  pthread_attr_setstacksize(&attributes, std::size_t{1} << 46); // more than there is
  pthread_setattr_default_np(&attributes);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(gui.openModel(savedSquares("b.flt", 1), /*synchronous=*/false));
  const std::string console = testing::internal::GetCapturedStderr();
  pthread_setattr_default_np(&before);
  pthread_attr_destroy(&before);
  pthread_attr_destroy(&attributes);
  EXPECT_THAT(console, testing::StartsWith("openCB (pthread_create): "));
  EXPECT_THAT(said, ElementsAre(testing::StartsWith("WARNING: Couldn't start to open: ")));
  EXPECT_EQ(gui.modelCount(), 1);
  EXPECT_FALSE(gui.files().busy());
}

TEST_F(FileOperationsTest, APipeIsNoModelAndKeepsNobodyWaiting)
{
  const std::string pipe = folder / "pipe.flt";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(gui.openModel(pipe, true));
  EXPECT_THAT(said, testing::Contains("WARNING: Couldn't open file " + pipe));
}

} // namespace nalt
