#include "script/MacroRun.h"

#include "core/MacroCommand.h"
#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

/// Scripts that start macros, with a small document to work on.
class MacroRun : public ScriptTest {
protected:
  MacroRun()
  {
    model = shell.newModel("a.flt");
    fillSmallDocument(*model);
  }

  /// Writes a macro's script and gives its path as it stands in Lua.
  std::string macro(const std::string& text) { return "'" + script(text, "macro.lua") + "'"; }
  std::string macroPath() { return folder / "macro.lua"; }

  std::size_t undoable() const { return model->commandStack().undoCommands().size(); }
  const std::string& lastCommand() const { return model->commandStack().undoCommands().back()->name(); }
  std::string polygons()
  {
    return printed("nalt.selectAll('POLYGON') print(nalt.getNumSelectedPrimitives('POLYGON')) nalt.selectNone()");
  }

  Model* model;
};

using SwitchesModels = ScriptTest;

constexpr const char* deletesPolygons = "nalt.selectAll('POLYGON') nalt.delete()";

} // namespace

// ---- which macros switch models -------------------------------------------------------------------------------------

TEST_F(SwitchesModels, WhenALineNamesOneOfFourFunctions)
{
  for (const char* name : {"openModel", "importModel", "newModel", "closeModel"})
    EXPECT_TRUE(switchesModels(script("print('a')\nnalt." + std::string(name) + "('b.flt')\n"))) << name;
}

TEST_F(SwitchesModels, ACommentCountsAsWell)
{
  EXPECT_TRUE(switchesModels(script("-- unlike nalt.newModel this makes nothing\n")));
}

TEST_F(SwitchesModels, OtherFunctionsDont)
{
  EXPECT_FALSE(switchesModels(script("nalt.saveModel() nalt.setCurrentModel('a') nalt . newModel('a')")));
  EXPECT_FALSE(switchesModels(script("")));
}

TEST_F(SwitchesModels, AFileThatCantBeReadDoesnt)
{
  EXPECT_FALSE(switchesModels(folder / "none.lua"));
  EXPECT_FALSE(switchesModels(folder.path()));
}

// ---- running --------------------------------------------------------------------------------------------------------

TEST_F(MacroRun, IsOneCommandOfTheModel)
{
  const auto path = macro(deletesPolygons);
  EXPECT_EQ(printed("print(nalt.executeMacro(" + path + "))"), "true\n");
  ASSERT_EQ(undoable(), 1u);
  EXPECT_EQ(lastCommand(), "MacroCommand: " + macroPath());
  EXPECT_EQ(model->commandStack().undoCommands().back()->scriptText(), "nalt.executeMacro(\"" + macroPath() + "\")");
  EXPECT_EQ(polygons(), "0\n");
  while (undoable() > 0)
    model->commandStack().undo();
  EXPECT_EQ(polygons(), "2\n");
}

TEST_F(MacroRun, GetsItsParametersAsGlobals)
{
  const auto path = macro("print(size, on, word, arg)");
  EXPECT_EQ(printed("nalt.executeMacro(" + path + ", 'size', 2.5, 'on', true, 'word', '7')"), "2.5 true 7 <nil> \n");
  EXPECT_EQ(model->commandStack().undoCommands().back()->scriptText(),
            "nalt.executeMacro(\"" + macroPath() + "\", \"size\", 2.5, \"on\", true, \"word\", \"7\")");
}

TEST_F(MacroRun, KeepsTheTypesOfItsParameters)
{
  const auto path = macro("print(type(size), type(on), type(word))");
  EXPECT_EQ(printed("nalt.executeMacro(" + path + ", 'size', 2, 'on', false, 'word', '7')"), "number boolean string\n");
}

TEST_F(MacroRun, LeavesNoGlobalsBehind)
{
  const auto path = macro("left = true");
  EXPECT_EQ(printed("nalt.executeMacro(" + path + ", 'given', 1) print(left, given)"), "<nil>  <nil> \n");
}

TEST_F(MacroRun, KnowsTheFolderOfItsOwnScript)
{
  const auto path = macro("print(NALT_PATH_TO_SCRIPT)");
  EXPECT_EQ(printed("nalt.executeMacro(" + path + ")"), macroPath().substr(0, macroPath().rfind('/') + 1) + "\n");
}

TEST_F(MacroRun, IsUndoneAtOnceWhenItFails)
{
  const auto path = macro(std::string(deletesPolygons) + " error('too bad', 0)");
  EXPECT_EQ(printed("print(pcall(nalt.executeMacro, " + path + "))"), "false too bad\n");
  EXPECT_THAT(shell.messages,
              testing::ElementsAre("WARNING: Failed to execute " + macroPath() + ".\ntoo bad\n\nUndoing command..."));
  EXPECT_EQ(undoable(), 0u) << "nothing of it stays in the history";
  EXPECT_EQ(polygons(), "2\n");
}

TEST_F(MacroRun, RaisesTheErrorOfItsScript)
{
  const auto path = macro("error('too bad')");
  EXPECT_FALSE(execute("nalt.executeMacro(" + path + ")"));
  EXPECT_THAT(error, testing::EndsWith("test.lua:1: " + macroPath() + ":1: too bad"));
}

TEST_F(MacroRun, FailsByNameWhenTheErrorHasNoText)
{
  const auto path = macro("error('', 0)");
  EXPECT_EQ(errorOf("nalt.executeMacro(" + path + ")"), "Macro macro.lua failed.");
  EXPECT_EQ(undoable(), 1u);
}

TEST_F(MacroRun, FailsForAMissingScript)
{
  EXPECT_EQ(errorOf("nalt.executeMacro('no/macro.lua')"), "cannot open no/macro.lua: No such file or directory");
  EXPECT_TRUE(shell.openMacros.empty());
}

TEST_F(MacroRun, TakesEitherSeparator)
{
  auto path = macro("print('here')");
  std::ranges::replace(path, '/', '\\');
  EXPECT_EQ(printed("nalt.executeMacro([[" + path.substr(1, path.size() - 2) + "]])"), "here\n");
}

TEST_F(MacroRun, ErasesTheHistoryWhenItSwitchesModels)
{
  printed("nalt.selectAll('POLYGON')");
  ASSERT_EQ(undoable(), 1u);
  const auto path = macro("-- nalt.newModel is not called");
  printed("nalt.executeMacro(" + path + ")");
  EXPECT_THAT(shell.questions, testing::ElementsAre("This macro will switch models and won't be undoable. The complete "
                                                    "undoable command list will be erased. Do you still want to "
                                                    "activate the macro?"));
  EXPECT_EQ(undoable(), 0u);
}

TEST_F(MacroRun, CantBeUndoneWhenItFailsAfterSwitching)
{
  const auto path = macro("nalt.newModel('b.flt') error('too bad', 0)");
  EXPECT_EQ(errorOf("nalt.executeMacro(" + path + ")"), "too bad");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Failed to execute " + macroPath() +
                                                   ".\ntoo bad\n\nCan't be undone since the macro switched models."));
}

TEST_F(MacroRun, NoticesASwitchThatItsTextDoesntShow)
{
  const auto path = macro(std::string(deletesPolygons) + " nalt['close' .. 'Model']()");
  shell.newModel("b.flt");
  shell.current = model;
  printed("nalt.executeMacro(" + path + ")");
  ASSERT_EQ(shell.modelCount(), 1);
  EXPECT_TRUE(shell.models.front()->commandStack().undoCommands().empty());
}

TEST_F(MacroRun, IsLeftAloneWhenTheUserDoesntWantIt)
{
  script("nalt.newModel('b.flt')", "macro.lua");
  shell.answer = Answer::no;
  std::string text;
  EXPECT_FALSE(runMacro({"b", macroPath(), {}}, text));
  EXPECT_EQ(text, "");
  EXPECT_EQ(shell.modelCount(), 1);
}

TEST_F(MacroRun, TellsTheScriptWhichModelIsCurrentNow)
{
  const auto path = macro("nalt.newModel('b.flt')");
  EXPECT_EQ(printed("nalt.executeMacro(" + path + ") print(nalt.getCurrentModelFilename())"), "b.flt\n");
}

// ---- macros in macros -----------------------------------------------------------------------------------------------

TEST_F(MacroRun, HoldsTheMacrosItStarts)
{
  script(deletesPolygons, "inner.lua");
  const auto path = macro("nalt.executeMacro('" + (folder / "inner.lua") + "')");
  printed("nalt.executeMacro(" + path + ")");
  ASSERT_EQ(undoable(), 1u);
  const auto* outer = dynamic_cast<const MacroCommand*>(model->commandStack().undoCommands().back().get());
  ASSERT_NE(outer, nullptr);
  ASSERT_EQ(outer->children().size(), 1u);
  const auto* inner = dynamic_cast<const MacroCommand*>(outer->children().front().get());
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(inner->children().size(), 2u);
}

TEST_F(MacroRun, PassesOnThatModelsWereSwitched)
{
  script("nalt.newModel('b.flt') nalt.setCurrentModel('a.flt')", "inner.lua");
  const auto path = macro(std::string(deletesPolygons) + " nalt.executeMacro('" + (folder / "inner.lua") + "')");
  printed("nalt.executeMacro(" + path + ")");
  EXPECT_EQ(undoable(), 0u);
}

TEST_F(MacroRun, CantCallItselfForever)
{
  const auto path = macro("");
  script("nalt.executeMacro(" + path + ")", "macro.lua");
  EXPECT_FALSE(execute("nalt.executeMacro(" + path + ")"));
  EXPECT_THAT(error, testing::EndsWith("Macros call each other too deep."));
  EXPECT_TRUE(shell.openMacros.empty());
}

// ---- batch runs -----------------------------------------------------------------------------------------------------

TEST_F(MacroRun, MakesNoCommandInABatchRun)
{
  const auto path = macro(deletesPolygons);
  ASSERT_TRUE(executeBatch("nalt.executeMacro(" + path + ")")) << error;
  EXPECT_TRUE(shell.messages.empty());
}

TEST_F(MacroRun, KeepsWhatItDidWhenItFailsInABatchRun)
{
  const auto path = macro("nalt.newModel('b.flt') error('too bad', 0)");
  ASSERT_TRUE(executeBatch("print(pcall(nalt.executeMacro, " + path +
                           "))\n"
                           "print(nalt.getCurrentModelFilename())"))
      << error;
  EXPECT_EQ(output, "false too bad\nb.flt\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Failed to execute " + macroPath() + ".\ntoo bad"));
}

TEST_F(MacroRun, NeedsARun)
{
  ScriptRun run(false);
  EXPECT_FALSE(runScript(run, script("nalt.executeMacro('a.lua')"), error, {}, {}, ""));
  EXPECT_THAT(error, testing::EndsWith(": Internal error."));
}

} // namespace nalt
