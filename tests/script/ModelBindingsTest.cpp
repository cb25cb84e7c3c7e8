#include "tests/script/ScriptTest.h"

#include <limits>

namespace nalt {

namespace {

using ModelBindings = ScriptTest;

} // namespace

TEST_F(ModelBindings, TellTheVersion)
{
  EXPECT_EQ(printed("print(nalt.getVersion())"), "2.9\n");
}

// ---- new, open ------------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, MakeANewModelCurrent)
{
  EXPECT_EQ(printed("print(nalt.newModel('a.flt'), nalt.getCurrentModelFilename(), nalt.isModelUnsaved())"),
            "true a.flt false\n");
  EXPECT_EQ(shell.current->path(), "a.flt");
  EXPECT_EQ(shell.answer, Answer::yes);
}

TEST_F(ModelBindings, RefuseASecondModelOfTheSameName)
{
  EXPECT_EQ(printed("nalt.newModel('sub/a.flt') print(nalt.newModel('sub\\\\a.flt'))"), "false\n");
  EXPECT_THAT(shell.messages,
              testing::ElementsAre("WARNING: Can't create multiple models with the same filename sub/a.flt."));
  EXPECT_EQ(shell.modelCount(), 1);
}

TEST_F(ModelBindings, OpenAFileAtOnce)
{
  shell.files = {"/t/a.flt"};
  EXPECT_EQ(printed("print(nalt.openModel('\\\\t\\\\a.flt'), nalt.getCurrentModelFilename())"), "true /t/a.flt\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("open /t/a.flt"));
  EXPECT_EQ(shell.openAnswer, Answer::yes);
}

TEST_F(ModelBindings, OpenNothingThatCantBeRead)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') print(nalt.openModel('none.flt'), nalt.getCurrentModelFilename())"),
            "false a.flt\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Couldn't open file none.flt"));
}

TEST_F(ModelBindings, SwitchToAModelThatIsOpenAlready)
{
  shell.files = {"a.flt"};
  EXPECT_EQ(printed("nalt.openModel('a.flt') nalt.newModel('b.flt')\n"
                    "print(nalt.openModel('a.flt'), nalt.getCurrentModelFilename())"),
            "true a.flt\n");
  EXPECT_EQ(shell.modelCount(), 2);
  EXPECT_THAT(shell.calls, testing::ElementsAre("open a.flt"));
}

// ---- save -----------------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, SaveInTheLatestVersionUnlessToldOtherwise)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') print(nalt.saveModel(), nalt.saveModel(1570), nalt.saveModel(1600.9))"),
            "true true true\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("save a.flt 1620", "save a.flt 1570", "save a.flt 1600"));
  EXPECT_EQ(shell.saveAnswer, Answer::yes);
}

TEST_F(ModelBindings, SaveInAVersionThatExists)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.saveModel(-1) nalt.saveModel(99999) nalt.saveModel(-1e300) "
                    "nalt.saveModel(math.huge)"),
            "");
  EXPECT_THAT(shell.calls,
              testing::ElementsAre("save a.flt 1570", "save a.flt 1620", "save a.flt 1570", "save a.flt 1620"));
}

TEST_F(ModelBindings, TellWhenSavingFailed)
{
  shell.savesFail = true;
  EXPECT_EQ(printed("nalt.newModel('a.flt')\n"
                    "print(nalt.saveModel(), nalt.saveModelAs('b.flt'), nalt.getCurrentModelFilename())"),
            "false false a.flt\n");
}

TEST_F(ModelBindings, FollowTheNewNameAfterSaveAs)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt')\n"
                    "print(nalt.saveModelAs('b.flt', 1580), nalt.getCurrentModelFilename())\n"
                    "print(nalt.setCurrentModel('a.flt'), nalt.setCurrentModel('b.flt'), nalt.newModel('a.flt'))"),
            "true b.flt\nfalse true true\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("save as b.flt 1580"));
}

TEST_F(ModelBindings, AppendTheExtensionInSaveAs)
{
  EXPECT_EQ(printed("nalt.newModel('x') nalt.saveModelAs('b') nalt.saveModelAs('C.FLT') nalt.saveModelAs('d.Flt')"),
            "");
  EXPECT_THAT(shell.calls, testing::ElementsAre("save as b.flt 1620", "save as C.FLT 1620", "save as d.Flt.flt 1620"));
}

TEST_F(ModelBindings, RefuseToSaveOverAnotherOpenModel)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.newModel('b.flt') print(nalt.saveModelAs('a'))\n"
                    "print(nalt.getCurrentModelFilename())"),
            "false\nb.flt\n");
  EXPECT_THAT(shell.messages,
              testing::ElementsAre("WARNING: Can't create multiple models with the same filename a.flt."));
  EXPECT_TRUE(shell.calls.empty());
}

TEST_F(ModelBindings, SaveAModelUnderItsOwnNameAgain)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') print(nalt.saveModelAs('a.flt'), nalt.getCurrentModelFilename())"),
            "true a.flt\n");
}

TEST_F(ModelBindings, SaveAllModelsAndKeepTheCurrentOne)
{
  EXPECT_EQ(
      printed("nalt.newModel('b.flt') nalt.newModel('a.flt') nalt.newModel('c.flt') nalt.setCurrentModel('b.flt')\n"
              "print(nalt.saveAllModels(), nalt.getCurrentModelFilename())"),
      "true b.flt\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("save a.flt 1620", "save b.flt 1620", "save c.flt 1620"));
  EXPECT_EQ(shell.current->path(), "b.flt");
  shell.savesFail = true;
  EXPECT_EQ(printed("print(nalt.saveAllModels())"), "false\n");
}

TEST_F(ModelBindings, TellWhetherTheModelIsUnsaved)
{
  shell.newModel("a.flt")->setDirty(true);
  EXPECT_EQ(printed("print(nalt.isModelUnsaved())"), "true\n");
  shell.current->setDirty(false);
  EXPECT_EQ(printed("print(nalt.isModelUnsaved())"), "false\n");
}

// ---- current model --------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, SwitchTheModelOfScriptAndWindow)
{
  EXPECT_EQ(printed("nalt.newModel('s/a.flt') nalt.newModel('b.flt')\n"
                    "print(nalt.setCurrentModel('s\\\\a.flt'), nalt.getCurrentModelFilename())"),
            "true s/a.flt\n");
  EXPECT_EQ(shell.current->path(), "s/a.flt");
}

TEST_F(ModelBindings, KeepTheModelWhenANameIsUnknown)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') print(nalt.setCurrentModel('b.flt'), nalt.getCurrentModelFilename())"),
            "false a.flt\n");
  EXPECT_TRUE(shell.messages.empty());
}

// ---- close ----------------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, CloseWithoutSavingAndTakeTheNextModel)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.newModel('b.flt')\n"
                    "print(select('#', nalt.closeModel()), nalt.getCurrentModelFilename(), nalt.newModel('b.flt'))"),
            "0 a.flt true\n");
  EXPECT_THAT(shell.closeAnswers, testing::ElementsAre(Answer::no));
}

TEST_F(ModelBindings, HaveNoModelAfterTheLastWasClosed)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.closeModel() nalt.closeModel()\n"
                    "print('[' .. nalt.getCurrentModelFilename() .. ']', nalt.saveModel())"),
            "[] false\n");
  EXPECT_EQ(shell.closeAnswers.size(), 1u);
}

TEST_F(ModelBindings, KeepAModelThatCantBeClosed)
{
  shell.locked = {"a.flt"};
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.closeModel() print(nalt.getCurrentModelFilename())"), "a.flt\n");
}

TEST_F(ModelBindings, CloseAllModels)
{
  EXPECT_EQ(printed("nalt.newModel('b.flt') nalt.newModel('a.flt')\n"
                    "print(select('#', nalt.closeAllModels()), '[' .. nalt.getCurrentModelFilename() .. ']')\n"
                    "print(nalt.setCurrentModel('a.flt'))"),
            "0 []\nfalse\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("close a.flt", "close b.flt"));
  EXPECT_THAT(shell.closeAnswers, testing::ElementsAre(Answer::no, Answer::no));
  EXPECT_EQ(shell.modelCount(), 0);
}

TEST_F(ModelBindings, CloseAllModelsButThoseThatCantBe)
{
  shell.locked = {"a.flt"};
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.newModel('b.flt') nalt.closeAllModels()\n"
                    "print('[' .. nalt.getCurrentModelFilename() .. ']', nalt.setCurrentModel('a.flt'))"),
            "[] true\n");
}

TEST_F(ModelBindings, AnswerQuestionsWithYesAgainAfterClosing)
{
  EXPECT_EQ(printed("nalt.newModel('a.flt') nalt.newModel('b.flt') nalt.closeModel() nalt.saveModel()"), "");
  EXPECT_EQ(shell.saveAnswer, Answer::yes);
}

// ---- tolerance ------------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, ReadAndSetTheToleranceOfTheProgram)
{
  EXPECT_EQ(printed("print(nalt.getTolerance()) print(select('#', nalt.setTolerance(0.5))) print(nalt.getTolerance())"),
            "0.0001\n0\n0.5\n");
  EXPECT_EQ(Preferences::get().tolerance, 0.5) << "stays after the run";
}

TEST_F(ModelBindings, IgnoreATolerancePeopleCantMean)
{
  EXPECT_EQ(printed("nalt.setTolerance(-1) nalt.setTolerance(0/0) print(nalt.getTolerance())"), "0.0001\n");
  EXPECT_EQ(printed("nalt.setTolerance(0) print(nalt.getTolerance())"), "0\n");
}

// ---- reverting ------------------------------------------------------------------------------------------------------

TEST_F(ModelBindings, WorkOnTheModelThatARevertLoaded)
{
  shell.files = {"a.flt"};
  shell.newModel("a.flt")->setDirty(true);
  EXPECT_EQ(printed("print(nalt.revertModel(), nalt.isModelUnsaved(), nalt.getCurrentModelFilename())\n"
                    "print(nalt.setCurrentModel('a.flt'))"),
            "true false a.flt\ntrue\n");
  EXPECT_THAT(shell.calls, testing::ElementsAre("revert a.flt"));
}

TEST_F(ModelBindings, KeepTheModelWhenARevertFails)
{
  shell.newModel("a.flt")->setDirty(true);
  EXPECT_EQ(printed("print(nalt.revertModel(), nalt.isModelUnsaved(), nalt.getCurrentModelFilename())"),
            "false true a.flt\n");
}

TEST_F(ModelBindings, RefuseToSaveUnderNoName)
{
  shell.newModel("a.flt");
  EXPECT_EQ(printed("print(nalt.saveModelAs(''), nalt.getCurrentModelFilename())"), "false a.flt\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Empty filename."));
  EXPECT_TRUE(shell.calls.empty());
}

} // namespace nalt
