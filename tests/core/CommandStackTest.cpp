#include "core/CommandStack.h"

#include "core/MacroCommand.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/ScriptCommand.h"
#include "core/ScriptRecorder.h"
#include "tests/core/RecordingShell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The lines of a script editor.
class Recorder : public ScriptRecorder {
public:
  std::vector<std::string> lines;
  bool on = true;

  bool recording() const override { return on; }
  int lineCount() const override { return static_cast<int>(lines.size()); }
  void appendComment(const std::string& text) override { lines.push_back(text); }
  void appendScript(const std::string& text) override { lines.push_back(text); }
  void cutBackTo(int line) override { lines.resize(static_cast<std::size_t>(line)); }
};

class Step : public Command {
public:
  Step(const std::string& name, std::vector<std::string>& log) : Command(name), log_(log) {}
  ~Step() override { log_.push_back("drop " + name()); }
  void undo() override { log_.push_back("undo " + name()); }
  void redo() override { log_.push_back("redo " + name()); }
  void replaceRecord(fltapi::Record&, fltapi::Record&) override { log_.push_back("replace " + name()); }
  std::string scriptText() const override { return "nalt." + name() + "()"; }
  std::string commentText() const override { return "-- " + name(); }

private:
  std::vector<std::string>& log_;
};

class EditorShell : public RecordingShell {
public:
  Recorder recorder;
  ScriptRecorder* scriptRecorder() override { return &recorder; }
  int historyChanges = 0;
  void historyChanged(Model&) override { ++historyChanges; }
};

class CommandStackTest : public testing::Test {
protected:
  CommandStackTest() : before_(Shell::install(&shell)) { shell.recorder.on = false; }
  ~CommandStackTest() override
  {
    model.reset();
    Shell::install(before_);
    Preferences::get() = {};
  }
  CommandStack& stack() { return model->commandStack(); }
  void add(const std::string& name) { stack().add(std::make_unique<Step>(name, log)); }
  static std::vector<std::string> namesOf(const CommandStack::Commands& commands)
  {
    std::vector<std::string> names;
    for (const auto& command : commands)
      names.push_back(command->name());
    return names;
  }

  std::vector<std::string> log;
  EditorShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);

private:
  Shell* before_;
};

TEST_F(CommandStackTest, AddingNeverRunsACommand)
{
  add("move");
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("move"));
}

TEST_F(CommandStackTest, UndoAndRedoMoveTheNewestCommand)
{
  add("a");
  add("b");
  stack().undo();
  EXPECT_THAT(log, ElementsAre("undo b"));
  EXPECT_THAT(namesOf(stack().redoCommands()), ElementsAre("b"));
  stack().redo();
  EXPECT_THAT(log, ElementsAre("undo b", "redo b"));
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("a", "b"));
}

TEST_F(CommandStackTest, NothingToUndoOrRedoIsHarmless)
{
  stack().undo();
  stack().redo();
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CommandStackTest, ANewEditAfterAnUndoEmptiesTheRedoneSide)
{
  add("a");
  stack().undo();
  add("b");
  EXPECT_THAT(stack().redoCommands(), IsEmpty());
  EXPECT_THAT(log, ElementsAre("undo a", "drop a"));
}

TEST_F(CommandStackTest, ANewEditAfterAnUndoEmptiesTheRedoneSideWhileRecording)
{
  shell.recorder.on = true;
  add("a");
  stack().undo();
  add("b");
  EXPECT_THAT(stack().redoCommands(), IsEmpty());
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- b", "nalt.b()"));
}

TEST_F(CommandStackTest, TheOldestCommandsGoWhenTheLimitIsReached)
{
  Preferences::get().maxCommands = 3;
  for (int i = 0; i < 3 + 5; ++i)
    add(std::to_string(i));
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("5", "6", "7"));
}

TEST_F(CommandStackTest, TheLimitCountsBothSidesTogether)
{
  Preferences::get().maxCommands = 2;
  add("a");
  add("b");
  stack().undo();
  stack().undo();
  EXPECT_EQ(stack().redoCommands().size(), 2u);
  Preferences::get().maxCommands = 1;
  add("c");
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("c"));
}

TEST_F(CommandStackTest, RecordingTakesCommentAndScript)
{
  shell.recorder.on = true;
  add("a");
  add("b");
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- a", "nalt.a()", "-- b", "nalt.b()"));
  EXPECT_EQ(stack().undoCommands()[1]->scriptLine(), 2);
}

TEST_F(CommandStackTest, UndoTakesTheRecordedTextAwayAndRedoPutsItBack)
{
  shell.recorder.on = true;
  add("a");
  add("b");
  stack().undo();
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- a", "nalt.a()"));
  stack().redo();
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- a", "nalt.a()", "-- b", "nalt.b()"));
}

TEST_F(CommandStackTest, AScriptCommandReachesTheStackOnlyWhileRecording)
{
  stack().add(std::make_unique<ScriptCommand>("Open Model", "nalt.openModel(\"a\")", "--"));
  EXPECT_THAT(stack().undoCommands(), IsEmpty());
  shell.recorder.on = true;
  stack().add(std::make_unique<ScriptCommand>("Open Model", "nalt.openModel(\"a\")", "--"));
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("Script Command: Open Model"));
  EXPECT_THAT(shell.recorder.lines, ElementsAre("--", "nalt.openModel(\"a\")"));
}

TEST_F(CommandStackTest, AnEditInsideAMacroLeavesTheRedoneSideAlone)
{
  add("a");
  stack().undo();
  MacroCommand macro("m.lua", {});
  shell.openMacros.push_back(&macro);
  add("b");
  EXPECT_EQ(macro.children().size(), 1u);
  EXPECT_EQ(stack().redoCommands().size(), 1u);
  shell.openMacros.clear();
}

TEST_F(CommandStackTest, AMacroIsRecordedAsAWholeAndOnlyThenEmptiesTheRedoneSide)
{
  add("a");
  stack().undo();
  shell.recorder.on = true;
  auto macro = std::make_unique<MacroCommand>("m.lua", std::vector<MacroParameter>());
  shell.openMacros.push_back(macro.get());
  add("b");
  stack().add(std::make_unique<ScriptCommand>("Open Model", "nalt.openModel(\"a\")", "--"));
  EXPECT_EQ(macro->children().size(), 2U);
  EXPECT_THAT(shell.recorder.lines, IsEmpty());
  shell.recorder.on = false;
  stack().add(std::make_unique<ScriptCommand>("Open Model", "nalt.openModel(\"a\")", "--"));
  EXPECT_EQ(macro->children().size(), 2U) << "nobody would read it";
  shell.recorder.on = true;
  shell.openMacros.clear();
  EXPECT_EQ(stack().redoCommands().size(), 1U);
  stack().add(std::move(macro));
  EXPECT_THAT(stack().redoCommands(), IsEmpty());
  EXPECT_THAT(namesOf(stack().undoCommands()), ElementsAre("MacroCommand: m.lua"));
  ASSERT_EQ(shell.recorder.lines.size(), 2U);
  EXPECT_EQ(shell.recorder.lines[1], "nalt.executeMacro(\"m.lua\")");
}

TEST_F(CommandStackTest, WhatWasDoneBeforeTheRecordingLeavesItsTextAlone)
{
  add("a");
  EXPECT_EQ(stack().undoCommands().back()->scriptLine(), -1);
  shell.recorder.on = true;
  shell.recorder.lines = {"-- by hand"};
  stack().undo();
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- by hand"));
  stack().redo();
  EXPECT_THAT(shell.recorder.lines, ElementsAre("-- by hand", "-- a", "nalt.a()"));
}

TEST_F(CommandStackTest, EveryCommandHearsOfAReplacedRecord)
{
  add("a");
  add("b");
  stack().undo();
  log.clear();
  const osg::ref_ptr<fltapi::Record> record = fltapi::makeRecord(fltapi::defaultBuffer(2));
  stack().replaceRecord(*record, *record);
  EXPECT_THAT(log, ElementsAre("replace a", "replace b"));
}

TEST_F(CommandStackTest, ClearingForgetsBothSides)
{
  add("a");
  add("b");
  stack().undo();
  stack().clear();
  EXPECT_THAT(stack().undoCommands(), IsEmpty());
  EXPECT_THAT(stack().redoCommands(), IsEmpty());
}

TEST_F(CommandStackTest, TheShellHearsOfEveryChange)
{
  add("a");
  const int afterAdd = shell.historyChanges;
  EXPECT_GT(afterAdd, 0);
  stack().undo();
  EXPECT_GT(shell.historyChanges, afterAdd);
}

TEST(CommandTexts, ACommandWithoutTextsSaysSo)
{
  class Bare : public Command {
  public:
    void undo() override {}
    void redo() override {}
    void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
  };
  const Bare bare;
  EXPECT_EQ(bare.name(), "Unknown Command");
  EXPECT_EQ(bare.scriptText(), "-- Script export not implemented for this command: Unknown Command");
  EXPECT_EQ(bare.commentText(), "-- No description added for this command: Unknown Command");
  EXPECT_EQ(bare.scriptLine(), -1);
  EXPECT_FALSE(bare.isScriptOnly());
}

TEST_F(CommandStackTest, AMacroUndoesItsStepsBackwardsAndRedoesThemForwards)
{
  MacroCommand macro("m.lua", {});
  macro.append(std::make_unique<Step>("a", log));
  macro.append(std::make_unique<Step>("b", log));
  macro.undo();
  macro.redo();
  EXPECT_THAT(log, ElementsAre("undo b", "undo a", "redo a", "redo b"));
  EXPECT_FALSE(shell.isQuiet);
}

TEST_F(CommandStackTest, AMacroRunsItsStepsQuietlyAndLeavesTheRunAsItWas)
{
  class QuietStep : public Step {
  public:
    QuietStep(RecordingShell& shell, std::vector<std::string>& log, std::vector<std::string>& seen)
        : Step("step", log), shell_(shell), seen_(seen)
    {}
    void undo() override { note(); }
    void redo() override { note(); }

  private:
    void note() { seen_.push_back(std::string(shell_.isQuiet ? "quiet" : "loud") + (shell_.isBatch ? " batch" : "")); }
    RecordingShell& shell_;
    std::vector<std::string>& seen_;
  };
  std::vector<std::string> seen;
  MacroCommand macro("m.lua", {});
  macro.append(std::make_unique<QuietStep>(shell, log, seen));
  macro.undo();
  EXPECT_FALSE(shell.isQuiet);
  macro.redo();
  EXPECT_FALSE(shell.isQuiet);
  shell.isQuiet = shell.isBatch = true;
  macro.undo();
  EXPECT_TRUE(shell.isQuiet);
  EXPECT_TRUE(shell.isBatch);
  EXPECT_THAT(seen, ElementsAre("quiet", "quiet", "quiet batch"));
}

TEST_F(CommandStackTest, TheStepsOfAMacroHearOfAReplacedRecord)
{
  auto macro = std::make_unique<MacroCommand>("m.lua", std::vector<MacroParameter>());
  macro->append(std::make_unique<Step>("a", log));
  macro->append(std::make_unique<Step>("b", log));
  stack().add(std::move(macro));
  const osg::ref_ptr<fltapi::Record> record = fltapi::makeRecord(fltapi::defaultBuffer(2));
  stack().replaceRecord(*record, *record);
  EXPECT_THAT(log, ElementsAre("replace a", "replace b"));
}

TEST(MacroTexts, TheLineHoldsPathAndParameters)
{
  using Type = MacroParameter::Type;
  MacroParameter text;
  text.name = "label";
  text.stringValue = "a\\b";
  MacroParameter flag;
  flag.name = "flag";
  flag.type = Type::boolean;
  flag.booleanValue = true;
  MacroParameter number;
  number.name = "size";
  number.type = Type::number;
  number.numberValue = 2.5;
  MacroParameter file;
  file.name = "file";
  file.type = Type::file;
  file.fileValue = "c:\\x";
  const MacroCommand macro("dir\\m.lua", {text, flag, number, file});
  EXPECT_EQ(macro.name(), "MacroCommand: dir\\m.lua");
  EXPECT_EQ(macro.scriptText(),
            "nalt.executeMacro(\"dir\\\\m.lua\", \"label\", \"a\\\\b\", \"flag\", true, \"size\", 2.5, "
            "\"file\", \"c:\\\\x\")");
  EXPECT_EQ(macro.commentText(), "--\n"
                                 "-- nalt.executeMacro(scriptFile, paramName1, paramValue1, ...)\n"
                                 "-- Executes a macro with parameters.\n"
                                 "-- scriptFile: The script file to execute.\n"
                                 "-- paramNameX: The name of the parameter number X.\n"
                                 "-- paramValueX: The value for the parameter number X.");
}

} // namespace
} // namespace nalt
