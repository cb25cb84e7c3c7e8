#include "fltapi/AllRecords.h"
#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

class Traverse : public ScriptTest {
protected:
  Traverse()
  {
    model = shell.newModel("a.flt");
    fillSmallDocument(*model);
  }

  /// What a script prints that selects with `select` and then traverses with functions that tell their calls: ">" and
  /// the type in front of children, "<" behind them, each with the names that are selected meanwhile.
  std::string walked(const std::string& select, const std::string& answer = "true")
  {
    return printed(select +
                   "\n"
                   "local calls = {}\n"
                   "local function tell(mark, kind)\n"
                   "  calls[#calls + 1] = mark .. kind .. ':' .. table.concat(nalt.getSelectionNames(), ',')\n"
                   "end\n"
                   "print(select('#', nalt.traverse(function(kind) tell('>', kind) return " +
                   answer +
                   " end, function(kind) tell('<', kind) end)))\n"
                   "print(table.concat(calls, ' '))");
  }

  Model* model;
};

} // namespace

// ---- arguments ------------------------------------------------------------------------------------------------------

TEST_F(Traverse, NeedsAtLeastOneFunction)
{
  EXPECT_EQ(errorOf("nalt.traverse(nil, nil)"), "At least one of the pre/post-callbacks has to be valid.");
  EXPECT_EQ(errorOf("nalt.traverse('a', 7)"), "At least one of the pre/post-callbacks has to be valid.");
  EXPECT_EQ(errorOf("nalt.traverse(print)"), "Invalid number of arguments to traverse.");
}

TEST_F(Traverse, IsHappyWithEitherFunction)
{
  EXPECT_EQ(printed("nalt.selectByName('o2') nalt.traverse(function(kind) print('pre', kind) end, nil)"),
            "pre OBJECT\n");
  EXPECT_EQ(printed("nalt.selectByName('o2') nalt.traverse(nil, function(kind) print('post', kind) end)"),
            "post OBJECT\n");
}

TEST_F(Traverse, IsAProcedureThatNeedsAModel)
{
  EXPECT_TRUE(executeBatch("assert(select('#', nalt.traverse()) == 0)")) << error;
}

// ---- the walk -------------------------------------------------------------------------------------------------------

TEST_F(Traverse, VisitsNodesBeforeAndAfterTheirChildren)
{
  EXPECT_EQ(walked("nalt.selectByName('g1')"),
            "0\n"
            ">GROUP:g1 >OBJECT:o1 "
            ">POLYGON:p1 >VERTEX:p1/V0 <VERTEX:p1/V0 >VERTEX:p1/V1 <VERTEX:p1/V1 >VERTEX:p1/V2 <VERTEX:p1/V2 "
            "<POLYGON:p1 "
            ">POLYGON:p2 >VERTEX:p2/V0 <VERTEX:p2/V0 >VERTEX:p2/V1 <VERTEX:p2/V1 >VERTEX:p2/V2 <VERTEX:p2/V2 "
            "<POLYGON:p2 "
            "<OBJECT:o1 >OBJECT:o2 <OBJECT:o2 <GROUP:g1\n");
}

TEST_F(Traverse, EntersOnlyWhereTheFunctionSaysTrue)
{
  for (const char* answer : {"false", "nil", "1", "'true'", "{}", ""})
    EXPECT_EQ(walked("nalt.selectByName('g1')", answer), "0\n>GROUP:g1 <GROUP:g1\n") << answer;
}

TEST_F(Traverse, DoesntEnterWithoutAFirstFunction)
{
  EXPECT_EQ(printed("nalt.selectByName('g1') nalt.traverse(nil, print)"), "GROUP\n");
}

TEST_F(Traverse, VisitsASelectedVertexAlone)
{
  EXPECT_EQ(walked("nalt.selectByName('p2/V1')"), "0\n>VERTEX:p2/V1 <VERTEX:p2/V1\n");
}

TEST_F(Traverse, LeavesTheSelectionToTheFirstFunctionOfAVertex)
{
  EXPECT_EQ(printed("nalt.selectByName('p1/V0', 'p1/V1')\n"
                    "nalt.traverse(nil, function() print(table.concat(nalt.getSelectionNames(), ',')) end)"),
            "p1/V0,p1/V1\np1/V0,p1/V1\n");
  EXPECT_EQ(printed("nalt.selectByName('p1/V0')\n"
                    "nalt.traverse(function() nalt.selectByName('o2') end,\n"
                    "  function() print(table.concat(nalt.getSelectionNames(), ',')) end)"),
            "o2\n");
}

TEST_F(Traverse, SelectsANodeAgainForItsSecondFunction)
{
  EXPECT_EQ(printed("nalt.selectByName('o2')\n"
                    "nalt.traverse(function() nalt.selectByName('p1') end,\n"
                    "  function() print(table.concat(nalt.getSelectionNames(), ',')) end)"),
            "o2\n");
}

TEST_F(Traverse, TakesTheKindsInOrder)
{
  auto& file = *model->fltFile();
  for (const int opcode : {fltapi::opcodes::lod, fltapi::opcodes::dof, fltapi::opcodes::switchNode,
                           fltapi::opcodes::lightPoint, fltapi::opcodes::lightPointSystem}) {
    auto* node = file.createRecord(opcode)->asNode();
    file.header()->addChild(node, /*append=*/true);
    node->assignUniqueName();
  }
  EXPECT_EQ(
      printed("nalt.selectAll('HEADER')\n"
              "local names = {'p1/V0'}\n"
              "for _, mode in ipairs{'HEADER', 'LIGHTPOINTSYSTEM', 'LIGHTPOINT', 'SWITCH', 'DOF', 'LOD', 'GROUP', "
              "'OBJECT', 'POLYGON'} do\n"
              "  nalt.selectAll(mode)\n"
              "  names[#names + 1] = nalt.getSelectionNames()[1]\n"
              "end\n"
              "nalt.selectByName(names)\n"
              "nalt.traverse(print, nil)"),
      "VERTEX\nPOLYGON\nOBJECT\nGROUP\nLOD\nDOF\nSWITCH\nLIGHTPOINT\nLIGHTPOINTSYSTEM\nHEADER\n");
}

TEST_F(Traverse, TellsNodesThatCantBeSelectedByKind)
{
  auto& file = *model->fltFile();
  auto* sound = file.create<fltapi::SoundRecord>();
  file.header()->addChild(sound, /*append=*/true);
  EXPECT_THAT(printed("nalt.selectAll('HEADER')\n"
                      "nalt.traverse(function(kind) print(kind) return kind == 'HEADER' end, nil)"),
              testing::HasSubstr("UNSUPPORTED\n"));
}

TEST_F(Traverse, LeavesNothingSelected)
{
  EXPECT_EQ(printed("nalt.selectByName('g1') nalt.traverse(print, nil) print(nalt.getTotalNumSelectedPrimitives())"),
            "GROUP\n0\n");
  EXPECT_EQ(printed("nalt.selectNone() nalt.traverse(print, nil) print(nalt.getTotalNumSelectedPrimitives())"), "0\n");
}

TEST_F(Traverse, WalksFarMoreNodesThanLuaHasSlots)
{
  auto& file = *model->fltFile();
  for (int i = 0; i < 2000; ++i) {
    auto* object = file.create<fltapi::ObjectRecord>();
    file.header()->addChild(object, /*append=*/true);
    object->assignUniqueName();
  }
  EXPECT_EQ(printed("local n = 0 nalt.selectAll('OBJECT') nalt.traverse(function() n = n + 1 return n end, nil)\n"
                    "print(n)"),
            "2002\n");
}

// ---- ends before its time -------------------------------------------------------------------------------------------

TEST_F(Traverse, EndsWhenTheModelChanges)
{
  shell.newModel("b.flt");
  shell.current = model;
  const std::string gone = "Current model changed, traversal has been terminated.";
  EXPECT_EQ(errorOf("nalt.selectByName('o1', 'o2') nalt.traverse(function() nalt.setCurrentModel('b.flt') end, nil)"),
            gone);
  EXPECT_EQ(errorOf("nalt.setCurrentModel('a.flt') nalt.selectByName('o1')\n"
                    "nalt.traverse(nil, function() nalt.closeModel() end)"),
            gone);
  EXPECT_EQ(shell.current->path(), "b.flt");
}

TEST_F(Traverse, EndsWhenTheModelIsReplacedByANewOne)
{
  EXPECT_EQ(errorOf("nalt.selectByName('o1', 'o2')\n"
                    "nalt.traverse(function() nalt.closeModel() nalt.newModel('a.flt') end, nil)"),
            "Current model changed, traversal has been terminated.");
}

TEST_F(Traverse, GoesOnWhenTheModelIsBackInTime)
{
  shell.newModel("b.flt");
  shell.current = model;
  EXPECT_EQ(printed("nalt.selectByName('o1')\n"
                    "nalt.traverse(function(kind)\n"
                    "  nalt.setCurrentModel('b.flt') nalt.setCurrentModel('a.flt') print(kind)\n"
                    "end, nil)"),
            "OBJECT\n");
}

TEST_F(Traverse, EndsWithTheErrorOfItsFunction)
{
  EXPECT_EQ(printed("nalt.selectByName('o1', 'o2') local n = 0\n"
                    "print(pcall(nalt.traverse, function() n = n + 1 error('bad', 0) end, nil)) print(n)"),
            "false Failed executing traverse function:\nbad\n1\n");
  EXPECT_EQ(printed("nalt.selectByName('o1')\n"
                    "print(pcall(nalt.traverse, nil, function() error({}) end))"),
            "false Failed executing traverse function:\nUNDEFINED ERROR MESSAGE\n");
}

TEST_F(Traverse, GoesOnAfterAFunctionThatCatchesItsErrors)
{
  EXPECT_EQ(printed("nalt.selectByName('o1', 'o2')\n"
                    "nalt.traverse(function() print(pcall(error, 'x')) return true end, nil)")
                .substr(0, 8),
            "false x\n");
}

TEST_F(Traverse, RecordsItsSelectionsExceptInABatchRun)
{
  EXPECT_TRUE(execute("nalt.selectByName('o1') nalt.traverse(print, nil)")) << error;
  EXPECT_FALSE(model->commandStack().undoCommands().empty());
  model->commandStack().clear();
  ScriptRun run(/*batch=*/true);
  run.enter(*model);
  EXPECT_TRUE(execute(run, "nalt.selectByName('o1') nalt.traverse(print, nil)")) << error;
  EXPECT_TRUE(model->commandStack().undoCommands().empty());
}

} // namespace nalt
