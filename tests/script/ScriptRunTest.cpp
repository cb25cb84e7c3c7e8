#include "core/Clipboard.h"
#include "core/Tool.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "tests/script/ScriptTest.h"

namespace nalt {

namespace {

using ScriptRunTest = ScriptTest;

std::vector<std::string> names(const ScriptRun& run)
{
  std::vector<std::string> result;
  for (const auto& [name, model] : run.models())
    result.push_back(name);
  return result;
}

} // namespace

// ---- quiet mode -----------------------------------------------------------------------------------------------------

TEST_F(ScriptRunTest, IsQuietWhileItLives)
{
  {
    const ScriptRun run(/*batch=*/false);
    EXPECT_TRUE(shell.isQuiet);
    EXPECT_FALSE(shell.isBatch);
    EXPECT_TRUE(shell.cursorWaits);
    EXPECT_TRUE(run.records());
  }
  EXPECT_FALSE(shell.isQuiet);
  EXPECT_FALSE(shell.isBatch);
  EXPECT_FALSE(shell.cursorWaits);
  EXPECT_EQ(shell.endedScripts, 1);
}

TEST_F(ScriptRunTest, MarksABatchRunAndRecordsNothing)
{
  {
    const ScriptRun run(/*batch=*/true);
    EXPECT_TRUE(shell.isQuiet);
    EXPECT_TRUE(shell.isBatch);
    EXPECT_FALSE(run.records());
  }
  EXPECT_FALSE(shell.isQuiet);
  EXPECT_FALSE(shell.isBatch);
  EXPECT_EQ(shell.endedScripts, 0) << "a batch run has no window to bring up to date";
}

TEST_F(ScriptRunTest, StaysQuietInsideAnotherRun)
{
  const ScriptRun outer(/*batch=*/false);
  {
    const ScriptRun inner(/*batch=*/false);
  }
  EXPECT_TRUE(shell.isQuiet);
  EXPECT_TRUE(shell.cursorWaits);
  EXPECT_EQ(shell.endedScripts, 0);
}

TEST_F(ScriptRunTest, RecordsNothingInsideABatchRun)
{
  const ScriptRun outer(/*batch=*/true);
  {
    const ScriptRun inner(/*batch=*/false);
    EXPECT_FALSE(inner.records());
    EXPECT_TRUE(shell.isBatch);
  }
  EXPECT_TRUE(shell.isBatch);
}

// ---- which run is active --------------------------------------------------------------------------------------------

TEST_F(ScriptRunTest, RunsNestAndTheOuterOneComesBack)
{
  EXPECT_EQ(ScriptRun::active(), nullptr);
  ScriptRun outer(false);
  {
    const ScriptRun::Activation first(outer);
    EXPECT_EQ(ScriptRun::active(), &outer);
    {
      ScriptRun inner(false);
      const ScriptRun::Activation second(inner);
      EXPECT_EQ(ScriptRun::active(), &inner);
    }
    EXPECT_EQ(ScriptRun::active(), &outer);
  }
  EXPECT_EQ(ScriptRun::active(), nullptr);
}

TEST_F(ScriptRunTest, KnowsTheModelsAsANestedRunLeftThem)
{
  ScriptRun outer(false);
  const ScriptRun::Activation first(outer);
  outer.enter(*shell.newModel("gone.flt"));
  outer.enter(*shell.newModel("renamed.flt"));
  {
    ScriptRun inner(false);
    EXPECT_TRUE(execute(inner, "nalt.saveModelAs('new name.flt')\n"
                               "nalt.setCurrentModel('gone.flt')\n"
                               "nalt.closeModel()\n"
                               "nalt.newModel('made.flt')"))
        << error;
  }
  EXPECT_THAT(names(outer), testing::ElementsAre("made.flt", "new name.flt"));
  EXPECT_EQ(outer.currentFilename(), "made.flt");
  EXPECT_EQ(outer.currentModel(), shell.current);
}

// ---- models ---------------------------------------------------------------------------------------------------------

TEST_F(ScriptRunTest, StartsWithTheOpenModels)
{
  shell.newModel("b.flt");
  auto* current = shell.newModel("a.flt");
  shell.newModel("C.flt");
  shell.current = current;
  const ScriptRun run(/*batch=*/false);
  EXPECT_THAT(names(run), testing::ElementsAre("C.flt", "a.flt", "b.flt")) << "by the bytes of their names";
  EXPECT_EQ(run.currentModel(), current);
  EXPECT_EQ(run.currentFilename(), "a.flt");
}

TEST_F(ScriptRunTest, LeavesModelsWithoutADocumentOut)
{
  Model empty(0, 0, 10, 10);
  empty.setPath("loading.flt");
  shell.models.push_back(&empty);
  const ScriptRun run(/*batch=*/false);
  EXPECT_TRUE(run.models().empty());
  shell.models.clear();
}

TEST_F(ScriptRunTest, StartsABatchRunWithoutModels)
{
  const ScriptRun run(/*batch=*/true);
  EXPECT_TRUE(run.models().empty());
  EXPECT_EQ(run.currentModel(), nullptr);
  EXPECT_EQ(run.currentFilename(), "");
}

TEST_F(ScriptRunTest, LeavesTheModelsOpenAfterAnInteractiveRun)
{
  EXPECT_TRUE(execute("nalt.newModel('a.flt')")) << error;
  EXPECT_EQ(shell.modelCount(), 1);
  EXPECT_TRUE(shell.closeAnswers.empty());
}

TEST_F(ScriptRunTest, ClosesTheModelsAfterABatchRunWithoutSaving)
{
  EXPECT_TRUE(executeBatch("nalt.newModel('b.flt') nalt.newModel('a.flt')")) << error;
  EXPECT_EQ(shell.modelCount(), 0);
  EXPECT_THAT(shell.calls, testing::ElementsAre("close a.flt", "close b.flt"));
  EXPECT_THAT(shell.closeAnswers, testing::ElementsAre(Answer::no, Answer::no));
}

TEST_F(ScriptRunTest, ClosesTheModelsAfterAFailedBatchRun)
{
  EXPECT_FALSE(executeBatch("nalt.newModel('a.flt') error('bad')"));
  EXPECT_EQ(shell.modelCount(), 0);
}

// ---- output ---------------------------------------------------------------------------------------------------------

TEST_F(ScriptRunTest, ShowsOutputInTheEditorsPane)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  setenv("NALT_NO_LINE_FEED", "ON", 1);
  std::vector<std::string> lines;
  setOutputPane([&](const std::string& line) { lines.push_back(line); });
  EXPECT_EQ(printed("print('a') print('b')"), "") << "nothing on standard output";
  EXPECT_THAT(lines, testing::ElementsAre("a", "b"));
  EXPECT_EQ(tests::readFile(folder / "log"), "ab");
}

TEST_F(ScriptRunTest, KeepsTheOutputOfABatchRunOnStandardOutput)
{
  std::vector<std::string> lines;
  setOutputPane([&](const std::string& line) { lines.push_back(line); });
  EXPECT_TRUE(executeBatch("print('a')")) << error;
  EXPECT_EQ(output, "a\n");
  EXPECT_TRUE(lines.empty());
}

TEST_F(ScriptRunTest, SetsMessagesApartInTheOutput)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  ScriptRun run(/*batch=*/true);
  const ScriptRun::Activation activation(run);
  testing::internal::CaptureStdout();
  scriptMessage("WARNING: too bad");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "\nWARNING: too bad\n\n");
  EXPECT_EQ(tests::readFile(folder / "log"), "\nWARNING: too bad\n\n");
}

TEST_F(ScriptRunTest, ShowsMessagesOnALineOfThePane)
{
  std::vector<std::string> lines;
  setOutputPane([&](const std::string& line) { lines.push_back(line); });
  ScriptRun run(/*batch=*/false);
  const ScriptRun::Activation activation(run);
  scriptMessage("INFO: good");
  EXPECT_THAT(lines, testing::ElementsAre("INFO: good"));
}

TEST_F(ScriptRunTest, WritesMessagesToStandardOutputWithoutARun)
{
  testing::internal::CaptureStdout();
  scriptMessage("WARNING: alone");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "WARNING: alone\n");
}

// ---- what stands in a run's way ------------------------------------------------------------------------------------

TEST_F(ScriptRunTest, EndsTheToolOfTheCurrentModel)
{
  class IdleTool : public Tool {
  public:
    explicit IdleTool(bool& ended) : Tool(Writes::nothing), ended_(ended) {}
    ~IdleTool() override { ended_ = true; }
    void run() override {}

  private:
    bool& ended_;
  };
  bool ended = false;
  auto* model = shell.newModel("a.flt");
  model->setTool(std::make_unique<IdleTool>(ended));
  ASSERT_NE(model->tool(), nullptr);
  const ScriptRun run(/*batch=*/false);
  EXPECT_EQ(model->tool(), nullptr);
  EXPECT_TRUE(ended);
}

TEST_F(ScriptRunTest, ForgetsWhatWasCopiedFromAModelThatItCloses)
{
  auto* model = shell.newModel("a.flt");
  shell.newModel("b.flt");
  Clipboard::get().add(*model->fltFile()->header(), *model->fltFile());
  ASSERT_TRUE(execute("nalt.setCurrentModel('b.flt') nalt.closeModel()")) << error;
  EXPECT_FALSE(Clipboard::get().empty()) << "nothing was copied from that one";
  ASSERT_TRUE(execute("nalt.closeAllModels()")) << error;
  EXPECT_TRUE(Clipboard::get().empty());
}

} // namespace nalt
