#include "fltapi/AllRecords.h"
#include "scene/image/Sync.h"
#include "tests/script/ScriptTest.h"
#include "tests/script/SmallDocument.h"

namespace nalt {

namespace {

/// Works on "g1" over "o1" with "p1" and "p2", "o2", and here "o3", "o4", "o5".
class HierarchyBindings : public ScriptTest {
protected:
  HierarchyBindings() : model(*shell.newModel("a.flt"))
  {
    fillSmallDocument(model);
    for (const char* name : {"o3", "o4", "o5"})
      add<fltapi::ObjectRecord>(group(), name);
  }

  template <class Node>
  Node& add(fltapi::PrimNodeRecord& parent, const std::string& name)
  {
    auto* node = model.fltFile()->create<Node>();
    parent.addChild(node, /*append=*/true);
    node->setName(name);
    return *node;
  }

  fltapi::HeaderRecord& header() const { return *model.fltFile()->header(); }
  fltapi::GroupRecord& group() const { return *header().findChild<fltapi::GroupRecord>(); }

  static std::string childrenOf(const fltapi::PrimNodeRecord& parent)
  {
    std::string names;
    for (const auto* child : parent.primaryChildren())
      names += (names.empty() ? "" : " ") + child->getName();
    return names;
  }
  std::string order() const { return childrenOf(group()); }

  /// Selects the named nodes and calls a function; what it gave, and the order of the objects then.
  std::string after(const std::string& names, const std::string& function)
  {
    const auto given = printed("nalt.selectByName(" + names + ") print(nalt." + function + "())");
    return given + order();
  }

  std::string parentAfter(const std::string& names)
  {
    return printed("nalt.selectNone() nalt.selectByName(" + names + ") nalt.setParent() print(nalt.getParent())");
  }

  const CommandStack::Commands& commands() const { return model.commandStack().undoCommands(); }

  Model& model;
};

} // namespace

// ---- order of siblings ----------------------------------------------------------------------------------------------

TEST_F(HierarchyBindings, ShiftOneNode)
{
  ASSERT_EQ(order(), "o1 o2 o3 o4 o5");
  EXPECT_EQ(after("'o3'", "shiftLeft"), "true\no1 o3 o2 o4 o5");
  EXPECT_EQ(after("'o3'", "shiftRight"), "true\no1 o2 o3 o4 o5");
  EXPECT_EQ(after("'o3'", "shiftFarRight"), "true\no1 o2 o4 o5 o3");
  EXPECT_EQ(after("'o3'", "shiftFarLeft"), "true\no3 o1 o2 o4 o5");
}

TEST_F(HierarchyBindings, ShiftSeveralNodesInTheirOwnOrder)
{
  EXPECT_EQ(after("'o2', 'o3'", "shiftLeft"), "true\no2 o3 o1 o4 o5");
  EXPECT_EQ(after("'o2', 'o3'", "shiftRight"), "true\no1 o2 o3 o4 o5");
  EXPECT_EQ(after("'o2', 'o4'", "shiftLeft"), "true\no2 o1 o4 o3 o5") << "each block past one sibling";
  EXPECT_EQ(after("'o2', 'o4'", "shiftFarRight"), "true\no1 o3 o5 o2 o4");
  EXPECT_EQ(after("'o4', 'o1'", "shiftFarLeft"), "true\no1 o4 o3 o5 o2");
}

TEST_F(HierarchyBindings, MakeACommandOfAShiftThatMovesNothing)
{
  EXPECT_EQ(after("'o5'", "shiftFarRight"), "false\no1 o2 o3 o4 o5");
  EXPECT_EQ(commands().back()->name(), "Shift Far Right");
  EXPECT_EQ(after("'o1'", "shiftLeft"), "false\no1 o2 o3 o4 o5");
}

TEST_F(HierarchyBindings, UndoShiftsToTheOldOrder)
{
  printed("nalt.selectByName('o2', 'o4')");
  for (const char* function : {"shiftFarLeft", "shiftLeft", "shiftRight", "shiftFarRight"}) {
    const auto before = order();
    printed(std::string("nalt.") + function + "()");
    const auto shifted = order();
    EXPECT_EQ(commands().back()->scriptText(), std::string("nalt.") + function + "()");
    EXPECT_THAT(commands().back()->commentText(), testing::StartsWith("--\n-- nalt." + std::string(function) + "()\n"));
    model.commandStack().undo();
    EXPECT_EQ(order(), before) << function;
    model.commandStack().redo();
    EXPECT_EQ(order(), shifted) << function;
  }
}

TEST_F(HierarchyBindings, UndoShiftsByteForByte)
{
  auto& toggle = add<fltapi::SwitchRecord>(header(), "sw1");
  for (int i = 0; i < 4; ++i) {
    add<fltapi::ObjectRecord>(toggle, "s" + std::to_string(i));
    toggle.setBit(0, i, i == 1);
  }
  const auto saved = [this] {
    const auto path = folder / "saved.flt";
    EXPECT_TRUE(model.fltFile()->save(path, fltapi::currentVersion));
    return tests::readFile(path);
  };
  const auto before = saved();
  printed("nalt.selectByName('s1') assert(nalt.shiftFarRight())");
  const auto shifted = saved();
  EXPECT_NE(shifted, before);
  EXPECT_TRUE(toggle.bit(0, 3)) << "a child is switched on wherever it goes";
  for (int round = 0; round < 2; ++round) {
    model.commandStack().undo();
    EXPECT_EQ(saved(), before);
    model.commandStack().redo();
    EXPECT_EQ(saved(), shifted);
  }
}

TEST_F(HierarchyBindings, ShowShiftedNodesAsBefore)
{
  model.sceneRoot();
  const auto shown = [this] {
    unsigned objects = 0;
    for (auto* child : group().primaryChildren())
      objects += model.sync()->nodeOf(*child) ? 1u : 0u;
    return objects;
  };
  ASSERT_EQ(shown(), 5u);
  printed("nalt.selectByName('o2', 'o4') nalt.shiftFarLeft() nalt.shiftRight()");
  EXPECT_EQ(shown(), 5u);
  EXPECT_EQ(model.sync()->nodeOf(group())->asGroup()->getNumChildren(), 5u);
  model.commandStack().undo();
  EXPECT_EQ(shown(), 5u);
  EXPECT_EQ(model.sync()->nodeOf(group())->asGroup()->getNumChildren(), 5u);
}

TEST_F(HierarchyBindings, ShiftOnlySiblings)
{
  EXPECT_EQ(after("'o2', 'p1'", "shiftRight"), "false\no1 o2 o3 o4 o5");
  EXPECT_THAT(shell.messages,
              testing::ElementsAre("WARNING: Only records with the same parent can be shifted simultaneously."));
  EXPECT_EQ(commands().size(), 1u) << "the selection";
}

TEST_F(HierarchyBindings, ShiftNothingWithoutASelection)
{
  EXPECT_EQ(printed("print(nalt.shiftLeft()) nalt.selectAll('HEADER') print(nalt.shiftFarRight())"), "false\nfalse\n");
  EXPECT_TRUE(shell.messages.empty());
}

TEST_F(HierarchyBindings, LeaveThePlaceOfVerticesAlone)
{
  auto& polygon = static_cast<fltapi::FaceRecord&>(*group().findChild<fltapi::ObjectRecord>()->primaryChildAt(0));
  add<fltapi::FaceRecord>(polygon, "s1");
  add<fltapi::FaceRecord>(polygon, "s2");
  printed("nalt.selectByName('s2') assert(nalt.shiftFarLeft())");
  EXPECT_EQ(polygon.primaryChildAt(0)->opcode(), fltapi::VertexListRecord::code);
  EXPECT_EQ(polygon.primaryChildAt(1)->getName(), "s2");
  EXPECT_EQ(polygon.primaryChildAt(2)->getName(), "s1");
}

TEST_F(HierarchyBindings, ShiftManySiblingsAtOnce)
{
  for (int i = 0; i < 20000; ++i)
    add<fltapi::ObjectRecord>(group(), "m" + std::to_string(i));
  const auto before = order();
  printed("nalt.selectByName('o2', 'm77', 'm19999') nalt.shiftFarLeft() nalt.shiftFarRight() nalt.shiftLeft()");
  for (int i = 0; i < 3; ++i)
    model.commandStack().undo();
  EXPECT_EQ(order(), before);
}

// ---- the parent of new nodes ----------------------------------------------------------------------------------------

TEST_F(HierarchyBindings, SetTheSelectedNodeAsParent)
{
  EXPECT_EQ(printed("print(nalt.getParent())"), header().getName() + "\n");
  EXPECT_EQ(parentAfter("'g1'"), "g1\n");
  EXPECT_EQ(commands().back()->name(), "Set Parent");
  EXPECT_EQ(commands().back()->scriptText(), "nalt.setParent()");
  EXPECT_EQ(parentAfter("'o2'"), "o2\n");
  model.commandStack().undo();
  EXPECT_EQ(printed("print(nalt.getParent())"), "g1\n");
  model.commandStack().redo();
  EXPECT_EQ(printed("print(nalt.getParent())"), "o2\n");
}

TEST_F(HierarchyBindings, MeanTheObjectByAPolygon)
{
  for (const char* name : {"'p1'", "'p1/V0'", "'p1/E0'"}) {
    parentAfter("'g1'");
    EXPECT_EQ(parentAfter(name), "o1\n") << name;
  }
  add<fltapi::FaceRecord>(group(), "loose");
  EXPECT_EQ(parentAfter("'loose'"), "g1\n") << "there is no object above it";
}

TEST_F(HierarchyBindings, RefuseWhatCantBeAParent)
{
  add<fltapi::SoundRecord>(header(), "s1");
  add<fltapi::ExternalRecord>(header(), "x1");
  printed("nalt.selectByName('o1', 'o2') nalt.setParent() nalt.selectByName('s1') nalt.setParent()\n"
          "nalt.selectAll('EXTERNAL') nalt.setParent()");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Can't set parent based on multiple selection.",
                                                   "WARNING: Can't set parent based on the type of primitive selected.",
                                                   "WARNING: Can't set parent based on externally referenced "
                                                   "selection."));
  EXPECT_EQ(printed("nalt.selectNone() nalt.setParent() print(nalt.getParent())"), header().getName() + "\n");
}

TEST_F(HierarchyBindings, GoBackToTheHeaderWhenTheParentIsDeleted)
{
  parentAfter("'o2'");
  EXPECT_EQ(printed("nalt.selectByName('g1') nalt.delete() print(nalt.getParent())"), header().getName() + "\n");
  model.commandStack().undo();
  EXPECT_EQ(printed("print(nalt.getParent())"), header().getName() + "\n");
}

TEST_F(HierarchyBindings, MakeNoCommandsInABatchRun)
{
  ScriptRun run(/*batch=*/true);
  ASSERT_TRUE(execute(run, "nalt.newModel('b.flt') nalt.selectAll('HEADER') nalt.setParent()")) << error;
  EXPECT_TRUE(run.currentModel()->commandStack().undoCommands().empty());
}

} // namespace nalt
