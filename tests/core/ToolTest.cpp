#include "core/Tool.h"

#include "core/CommandStack.h"
#include "tests/core/ModelFixture.h"

#include <FL/Fl_Box.H>
namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes what happens to it.
class NotingTool : public Tool {
public:
  explicit NotingTool(std::vector<std::string>& notes, Writes writes = Writes::nothing) : Tool(writes), notes_(notes) {}
  ~NotingTool() override { notes_.emplace_back(released() ? "released end" : "end"); }
  void selectionChanged() override { notes_.emplace_back("selection"); }
  void attachPanel() override { notes_.emplace_back("panel"); }
  void refresh() override { notes_.emplace_back("refresh"); }
  std::string statusText() const override { return "Select and drag."; }

  std::function<void()> work = [] {};
  bool wants = true;

protected:
  void run() override
  {
    notes_.emplace_back("run");
    work();
  }
  bool wantsRun() const override { return wants; }

private:
  std::vector<std::string>& notes_;
};

class EmptyGizmo : public Gizmo {
public:
  void setSelectionSet(SelectionSet* selections) override { follows = selections; }
  void update() override { ++updates; }
  Gadget* pick(const MouseRay&) override { return nullptr; }
  void pivotChanged(const osg::Vec3d&) override {}

  SelectionSet* follows = nullptr;
  int updates = 0;
};

class GizmoTool : public Tool {
public:
  explicit GizmoTool(Gizmo& gizmo) : Tool(Writes::nothing) { setGizmo(&gizmo); }

protected:
  void run() override {}
};

class ToolTest : public ModelFixture {
protected:
  ~ToolTest() override { model.reset(); } // the last tool still makes a note
  NotingTool& start(Tool::Writes writes = Tool::Writes::nothing)
  {
    auto owned = std::make_unique<NotingTool>(notes, writes);
    auto& tool = *owned;
    model->setTool(std::move(owned));
    return tool;
  }
  fltapi::GroupRecord& addGroup() { return *make<fltapi::GroupRecord>(header()); }
  /// A group of another file that the model refers to.
  fltapi::GroupRecord& addExternalGroup() { return *addExternal().findChild<fltapi::GroupRecord>(); }

  std::vector<std::string> notes;
};

} // namespace

TEST_F(ToolTest, AToolIsToldOfItsModelAndGuidesTheUser)
{
  auto& tool = start();
  EXPECT_EQ(model->tool(), &tool);
  EXPECT_THAT(notes, ElementsAre("panel"));
  EXPECT_EQ(shell.status, "Select and drag.");
  EXPECT_TRUE(model->sceneExtras()->containsNode(&tool.sceneGroup()));
}

TEST_F(ToolTest, AToolThatStartsOnASelectionIsToldOfIt)
{
  model->selections().select(selectionOf(addGroup()));
  start();
  EXPECT_THAT(notes, ElementsAre("panel", "selection"));
}

TEST_F(ToolTest, ANewToolEndsTheOneBeforeItAsReleased)
{
  start();
  notes.clear();
  auto& second = start();
  EXPECT_THAT(notes, ElementsAre("released end", "panel"));
  EXPECT_EQ(model->sceneExtras()->getNumChildren(), 1U);
  EXPECT_TRUE(model->sceneExtras()->containsNode(&second.sceneGroup()));
}

TEST_F(ToolTest, EndingAToolEmptiesTheStatusLine)
{
  start();
  EXPECT_FALSE(model->setTool(nullptr));
  EXPECT_EQ(model->tool(), nullptr);
  EXPECT_EQ(shell.status, "");
  EXPECT_EQ(model->sceneExtras()->getNumChildren(), 0U);
}

TEST_F(ToolTest, AScriptRunLeavesTheStatusLineAlone)
{
  shell.status = "of somebody else";
  shell.isQuiet = true;
  start();
  model->setTool(nullptr);
  EXPECT_EQ(shell.status, "of somebody else");
}

TEST_F(ToolTest, AToolThatWritesDoesNotStartOnExternalGeometry)
{
  auto& group = addExternalGroup();
  model->selections().select(selectionOf(group));
  start(Tool::Writes::records);
  EXPECT_EQ(model->tool(), nullptr);
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't modify externally referenced geometry."));
  shell.messages.clear();
  start(Tool::Writes::nothing);
  EXPECT_NE(model->tool(), nullptr);
  EXPECT_THAT(shell.messages, IsEmpty());
}

TEST_F(ToolTest, WhileAToolWritesNothingExternalCanBeSelected)
{
  auto& external = addExternalGroup();
  auto& own = addGroup();
  start(Tool::Writes::records);
  auto& selections = model->selections();
  selections.select(selectionOf(own));
  const auto commands = model->commandStack().undoCommands().size();

  selections.select(selectionOf(external));
  EXPECT_FALSE(selections.add(*selectionOf(external)));
  EXPECT_FALSE(selections.toggle(*selectionOf(external)));
  EXPECT_THAT(shell.messages, testing::Each("WARNING: Can't modify externally referenced geometry."));
  EXPECT_EQ(shell.messages.size(), 3U);
  EXPECT_THAT(selections.names(), ElementsAre(own.getName()));
  EXPECT_EQ(model->commandStack().undoCommands().size(), commands);
}

TEST_F(ToolTest, AToolIsToldOfEveryChangeOfTheSelection)
{
  auto& group = addGroup();
  start();
  notes.clear();
  model->selections().select(selectionOf(group));
  model->selections().clear();
  EXPECT_THAT(notes, ElementsAre("selection", "selection"));
  notes.clear();
  model->commandStack().undo();
  EXPECT_THAT(notes, ElementsAre("selection", "refresh"));
}

TEST_F(ToolTest, RunDoesNotReEnter)
{
  auto& tool = start();
  notes.clear();
  tool.work = [&] { tool.perform(); };
  tool.perform();
  tool.perform();
  EXPECT_THAT(notes, ElementsAre("run", "run"));
}

TEST_F(ToolTest, AToolThatWantsNoRunIsNotRun)
{
  auto& tool = start();
  notes.clear();
  tool.wants = false;
  tool.perform();
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolTest, AToolGoesWithItsModel)
{
  start();
  notes.clear();
  model.reset();
  EXPECT_THAT(notes, ElementsAre("released end"));
}

TEST_F(ToolTest, TheGizmoFollowsTheSelectionsOfTheModel)
{
  const osg::ref_ptr<EmptyGizmo> gizmo = new EmptyGizmo;
  model->setTool(std::make_unique<GizmoTool>(*gizmo));
  EXPECT_EQ(gizmo->follows, &model->selections());
  EXPECT_TRUE(model->tool()->sceneGroup().containsNode(gizmo.get()));
  model->selections().select(selectionOf(addGroup()));
  EXPECT_EQ(gizmo->updates, 1);
  model->setTool(nullptr);
  EXPECT_EQ(gizmo->follows, nullptr);
  EXPECT_EQ(gizmo->getNumParents(), 0U);
}

} // namespace nalt
