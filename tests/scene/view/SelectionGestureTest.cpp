#include "scene/view/picking/SelectionGesture.h"

#include "core/Tool.h"
#include "tests/scene/view/PickingFixture.h"

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr MouseModifiers noKeys{};
constexpr MouseModifiers shift{.shift = true};
constexpr MouseModifiers ctrl{.ctrl = true};
constexpr MouseModifiers alt{.alt = true};

/// Takes an axis, and keeps it.
class AxisTool : public Tool {
public:
  AxisTool() : Tool(Writes::nothing) {}
  void axisPicked(const osg::Vec3d& picked) override { axes.push_back(picked); }
  std::vector<osg::Vec3d> axes;

protected:
  void run() override {}
};

class SelectionGestureTest : public PickingFixture {
protected:
  SelectionGestureTest()
  {
    one = makeSquare(*object, 0, 0)->getName();
    two = makeSquare(*object, 5, 5)->getName();
  }
  SelectionGesture& gesture() { return view().selectionGesture(); }
  void click(const osg::Vec2d& place, const MouseModifiers& keys = noKeys, bool doubleClick = false)
  {
    gesture().press(place);
    gesture().release(place, keys, doubleClick);
  }
  void drag(const osg::Vec2d& from, const osg::Vec2d& to, const MouseModifiers& keys = noKeys)
  {
    gesture().press(from);
    gesture().drag((from + to) * 0.5);
    gesture().release(to, keys, /*doubleClick=*/false);
  }
  osg::Vec2d onOne() { return at(0.5, 0.5); }
  osg::Vec2d onTwo() { return at(5.5, 5.5); }
  osg::Vec2d beside() { return at(-20, -20); }

  std::string one;
  std::string two;
};

} // namespace

TEST_F(SelectionGestureTest, AClickReplacesTheSelection)
{
  click(onOne());
  EXPECT_THAT(selected(), ElementsAre(one));
  click(onTwo());
  EXPECT_THAT(selected(), ElementsAre(two));
}

TEST_F(SelectionGestureTest, ShiftAddsAndAltRemovesAndCtrlDoesEither)
{
  click(onOne());
  click(onTwo(), shift);
  EXPECT_THAT(selected(), UnorderedElementsAre(one, two));
  click(onOne(), alt);
  EXPECT_THAT(selected(), ElementsAre(two));
  click(onOne(), ctrl);
  EXPECT_THAT(selected(), UnorderedElementsAre(one, two));
  click(onTwo(), ctrl);
  EXPECT_THAT(selected(), ElementsAre(one));
}

TEST_F(SelectionGestureTest, AClickOnNothingClearsUnlessAKeyIsHeld)
{
  click(onOne());
  for (const auto& keys : {shift, alt, ctrl}) {
    click(beside(), keys);
    EXPECT_THAT(selected(), ElementsAre(one));
  }
  click(beside());
  EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(SelectionGestureTest, AClickOnASelectedEdgeWithCtrlTakesItOutAgain)
{
  const auto large = makeSquare(*object, 10, 0, 0.0, 5.0)->getName();
  shell.mode = SelectionMode::edge;
  click(at(12.5, 0));
  EXPECT_THAT(selected(), ElementsAre(large + "/E0"));
  click(at(12.5, 0), ctrl);
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_EQ(model->selections().current().find(SelectionMode::edge), nullptr);
}

TEST_F(SelectionGestureTest, EachChangeCanBeUndone)
{
  click(onOne());
  click(onTwo(), shift);
  click(beside());
  auto& stack = model->commandStack();
  ASSERT_EQ(stack.undoCommands().size(), 3U);
  stack.undo();
  EXPECT_THAT(selected(), UnorderedElementsAre(one, two));
  stack.undo();
  EXPECT_THAT(selected(), ElementsAre(one));
  stack.undo();
  EXPECT_THAT(selected(), IsEmpty());
  stack.redo();
  EXPECT_THAT(selected(), ElementsAre(one));
}

TEST_F(SelectionGestureTest, NothingIsSelectedBeforeTheButtonGoesUp)
{
  gesture().press(at(-1, -1));
  gesture().drag(at(7, 7));
  EXPECT_THAT(selected(), IsEmpty());
  gesture().release(at(7, 7), noKeys, false);
  EXPECT_THAT(selected(), UnorderedElementsAre(one, two));
}

TEST_F(SelectionGestureTest, TheBandFollowsTheMouseAndGoesWithTheButton)
{
  EXPECT_FALSE(gesture().band());
  gesture().press({10, 20});
  ASSERT_TRUE(gesture().band());
  EXPECT_TRUE(gesture().band()->isPoint());
  gesture().drag({30, 5});
  EXPECT_EQ(gesture().band()->first, osg::Vec2d(10, 20));
  EXPECT_EQ(gesture().band()->second, osg::Vec2d(30, 5));
  gesture().release({30, 5}, noKeys, false);
  EXPECT_FALSE(gesture().band());
}

TEST_F(SelectionGestureTest, WhenNothingCanBePickedTheBandGoesAndTheSelectionStays)
{
  click(onOne());
  CameraPose pose;
  pose.distance = std::nan("");
  view().camera().setPose(pose);
  click({10, 10});
  EXPECT_FALSE(gesture().band());
  EXPECT_THAT(selected(), ElementsAre(one));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Couldn't project window coordinates into object coordinates"));
}

TEST_F(SelectionGestureTest, ACancelledBandSelectsNothing)
{
  click(onOne());
  gesture().press(at(-1, -1));
  gesture().drag(at(7, 7));
  gesture().cancel();
  gesture().release(at(7, 7), noKeys, false);
  EXPECT_THAT(selected(), ElementsAre(one));
}

TEST_F(SelectionGestureTest, ANodeAboveASelectedOneIsRefused)
{
  click(onOne());
  shell.mode = SelectionMode::group;
  click(onOne(), shift);
  EXPECT_THAT(selected(), ElementsAre(one));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Recursive selection is not allowed."));
}

TEST_F(SelectionGestureTest, ADoubleClickOpensTheAttributesOfWhatItHits)
{
  click(onOne(), noKeys, /*doubleClick=*/true);
  EXPECT_THAT(shell.attributesOf, ElementsAre(one));
  click(beside(), noKeys, /*doubleClick=*/true);
  EXPECT_THAT(shell.attributesOf, ElementsAre(one));
}

TEST_F(SelectionGestureTest, AnAxisIsTakenFromAnEdgeOnceAndTheSelectionStays)
{
  click(onOne());
  auto owned = std::make_unique<AxisTool>();
  auto& tool = *owned;
  model->setTool(std::move(owned));
  gesture().pickAxis();
  click(at(5.5, 5.0)); // the lower edge of the second square, from left to right
  EXPECT_THAT(tool.axes, ElementsAre(osg::Vec3d(-1, 0, 0)));
  EXPECT_THAT(selected(), ElementsAre(one));
  click(onTwo());
  EXPECT_EQ(tool.axes.size(), 1U);
  EXPECT_THAT(selected(), ElementsAre(two));
}

TEST_F(SelectionGestureTest, AnAxisPickThatHitsNoEdgeLeavesTheToolAlone)
{
  auto owned = std::make_unique<AxisTool>();
  auto& tool = *owned;
  model->setTool(std::move(owned));
  gesture().pickAxis();
  click(beside());
  EXPECT_THAT(tool.axes, IsEmpty());
  EXPECT_FALSE(gesture().picksAxis());
}

} // namespace nalt
