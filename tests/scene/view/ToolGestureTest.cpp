#include "scene/view/picking/ToolGesture.h"

#include "core/Tool.h"
#include "tests/scene/view/PickingFixture.h"

#include <sstream>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr MouseModifiers noKeys{};
constexpr MouseModifiers shift{.shift = true};
constexpr MouseModifiers ctrl{.ctrl = true};
constexpr MouseModifiers shiftAndCtrl{.shift = true, .ctrl = true};

using Notes = std::vector<std::string>;

template <class Point>
std::string textOf(const std::string& what, const Point& point)
{
  std::ostringstream text;
  text << what;
  for (int i = 0; i < Point::num_components; ++i)
    text << ' ' << std::round(point[i] * 1000.0) / 1000.0 + 0.0; // no negative zero
  return text.str();
}

class NotingTool : public Tool {
public:
  explicit NotingTool(Notes& notes) : Tool(Writes::nothing), notes_(notes) {}
  void firstPick(const osg::Vec3d& position) override { note("at", position); }
  void drag(const osg::Vec3d& delta) override { note("by", delta); }
  void firstPick(const osg::Vec2d& window) override { note("window at", window); }
  void drag(const osg::Vec2d& delta) override { note("window by", delta); }
  bool finish() override
  {
    notes_.emplace_back("finish");
    return finishes;
  }
  bool plantsOnSurface() const override { return plants; }
  void give(Gizmo& gizmo) { setGizmo(&gizmo); }

  bool finishes = false;
  bool plants = false;

protected:
  void run() override {}

private:
  template <class Point>
  void note(const std::string& what, const Point& point)
  {
    notes_.push_back(textOf(released() ? "end " + what : what, point));
  }
  Notes& notes_;
};

class NotingGadget : public Gadget {
public:
  NotingGadget(Notes& notes, const Tool& tool) : notes_(notes), tool_(tool) {}
  void beginDrag(const MouseRay& mouse) override { notes_.push_back(textOf("begin", mouse.window)); }
  void drag(const MouseRay& mouse) override { notes_.push_back(textOf("drag", mouse.window)); }
  void endDrag(const MouseRay& mouse) override
  {
    notes_.push_back(textOf(tool_.released() ? "released end" : "end", mouse.window));
  }
  void reset() override {}
  void setHighlighted(bool highlighted) override { notes_.emplace_back(highlighted ? "lit" : "unlit"); }

private:
  Notes& notes_;
  const Tool& tool_;
};

/// Has one gadget in the left half of the window.
class HalfGizmo : public Gizmo {
public:
  explicit HalfGizmo(Gadget& gadget) : gadget_(&gadget) {}
  void setSelectionSet(SelectionSet*) override {}
  void update() override {}
  Gadget* pick(const MouseRay& mouse) override { return mouse.window.x() < 400.0 ? gadget_.get() : nullptr; }
  void pivotChanged(const osg::Vec3d&) override {}

private:
  osg::ref_ptr<Gadget> gadget_;
};

class ToolGestureTest : public PickingFixture {
protected:
  NotingTool& start()
  {
    auto owned = std::make_unique<NotingTool>(notes);
    auto& tool = *owned;
    model->setTool(std::move(owned));
    return tool;
  }
  void startWithGizmo()
  {
    auto& tool = start();
    const osg::ref_ptr<Gadget> gadget = new NotingGadget(notes, tool);
    const osg::ref_ptr<Gizmo> gizmo = new HalfGizmo(*gadget);
    tool.give(*gizmo);
  }
  ToolGesture& gesture() { return view().toolGesture(); }
  void click(const osg::Vec2d& place, const MouseModifiers& keys = noKeys)
  {
    gesture().press(place, keys);
    gesture().release(place, keys);
  }
  void showGrid(bool snaps = false)
  {
    view().showGrid(true);
    auto switches = model->switches();
    switches.snapToGrid = snaps;
    model->setSwitches(switches);
  }
  void expectPivot(double x, double y, double z)
  {
    const auto pivot = model->selections().pivot();
    ASSERT_TRUE(pivot);
    EXPECT_NEAR((*pivot - osg::Vec3d(x, y, z)).length(), 0.0, 1e-5)
        << pivot->x() << ' ' << pivot->y() << ' ' << pivot->z();
  }

  Notes notes;
};

} // namespace

// ---- positions -----------------------------------------------------------------------------------------------------

TEST_F(ToolGestureTest, WithoutAGridOrASurfaceAToolGetsTheWindowPositionOnly)
{
  start();
  gesture().press({100, 200}, noKeys);
  EXPECT_THAT(notes, ElementsAre("window at 100 200"));
  gesture().drag({130, 190}, noKeys);
  gesture().drag({131, 190}, noKeys);
  notes.erase(notes.begin());
  EXPECT_THAT(notes, ElementsAre("window by 30 -10", "window by 1 0"));
  notes.clear();
  gesture().release({131, 190}, noKeys);
  EXPECT_THAT(notes, ElementsAre("end by 0 0 0", "end window at 131 190"));
  EXPECT_THAT(shell.positions, IsEmpty());
}

TEST_F(ToolGestureTest, OnTheGridAToolGetsPositionsAndWhatIsBetweenThem)
{
  start();
  showGrid();
  gesture().press(at(1, 2), noKeys);
  gesture().drag(at(3, 2), noKeys);
  gesture().drag(at(3, 1), noKeys);
  gesture().release(at(3, 1), noKeys);
  EXPECT_THAT(notes, ElementsAre("at 1 2 0", "window at 410 320", "by 2 0 0", "window by 20 0", "by 0 -1 0",
                                 "window by 0 -10", "end at 3 1 0", "end window at 430 310"));
  EXPECT_THAT(shell.positions, SizeIs(4));
}

TEST_F(ToolGestureTest, WhileSnappingIsOnPositionsAreCrossingsOfTheGrid)
{
  start();
  showGrid(/*snaps=*/true);
  click(at(1.2, 1.9));
  EXPECT_THAT(notes, ElementsAre("at 1 2 0", "window at 412 319", "end at 1 2 0", "end window at 412 319"));
}

TEST_F(ToolGestureTest, AToolThatPlantsGetsTheSurfaceAndNothingBesideIt)
{
  makeSquare(*object, 0, 0, 3.0, 4.0);
  auto& tool = start();
  tool.plants = true;
  showGrid();
  click(at(-9, -9));
  EXPECT_THAT(notes, IsEmpty());
  gesture().press(at(1, 1), noKeys);
  gesture().drag(at(2, 1), noKeys);
  gesture().drag(at(-9, 1), noKeys); // off the surface
  EXPECT_THAT(notes, ElementsAre("at 1 1 3", "window at 410 310", "by 1 0 0", "window by 10 0"));
  notes.clear();
  gesture().release(at(-9, 1), noKeys);
  EXPECT_THAT(notes, ElementsAre("end by 0 0 0", "end window at 310 310")) << "a tool can end what it has begun";
}

TEST_F(ToolGestureTest, AReleaseEndsTheGestureOfTheToolThatBeganIt)
{
  start();
  showGrid();
  gesture().press(at(1, 1), noKeys);
  notes.clear();
  gesture().release(at(1, 1), ctrl); // a key that came down meanwhile changes nothing
  EXPECT_THAT(notes, ElementsAre("end at 1 1 0", "end window at 410 310"));
}

TEST_F(ToolGestureTest, AToolThatComesInTheMiddleOfAGestureIsNotDragged)
{
  start();
  showGrid();
  gesture().press(at(1, 1), noKeys);
  start();
  notes.clear();
  gesture().drag(at(2, 2), noKeys);
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolGestureTest, WithoutAToolNothingHappens)
{
  showGrid();
  gesture().press(at(1, 1), noKeys);
  gesture().drag(at(2, 2), noKeys);
  gesture().release(at(2, 2), noKeys);
  EXPECT_THAT(shell.positions, IsEmpty());
}

// ---- Shift ---------------------------------------------------------------------------------------------------------

TEST_F(ToolGestureTest, WithShiftTheNearestCornerIsThePosition)
{
  makeSquare(*object, 0, 0, 2.0, 4.0);
  start();
  gesture().press(at({4, 4, 2}) + osg::Vec2d(3, 0), shift);
  EXPECT_THAT(notes, ElementsAre("at 4 4 2", "window at 443 340"));
  notes.clear();
  gesture().release(at({4, 4, 2}), shift);
  EXPECT_THAT(notes, ElementsAre("end at 4 4 2", "end window at 440 340"));
}

TEST_F(ToolGestureTest, WithShiftAndNoCornerNearbyNothingHappens)
{
  makeSquare(*object, 0, 0, 2.0, 4.0);
  start();
  showGrid();
  gesture().press(at(2, 2), shift);
  gesture().drag(at(4, 4), shift);
  gesture().release(at(2, 2), shift);
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolGestureTest, ADragWithShiftGoesFromCornerToCorner)
{
  makeSquare(*object, 0, 0, 0.0, 4.0);
  makeSquare(*object, 10, 0, 1.0, 4.0);
  start();
  gesture().press(at(4, 4), shift);
  notes.clear();
  gesture().drag(at(7, 4), shift);
  EXPECT_THAT(notes, IsEmpty());
  gesture().drag(at(10, 4), shift);
  EXPECT_THAT(notes, ElementsAre("by 6 0 1", "window by 60 0"));
}

TEST_F(ToolGestureTest, WhatIsSelectedDoesNotSnapToItselfWhileItIsDragged)
{
  auto* moved = makeSquare(*object, 0, 0, 0.0, 4.0);
  makeSquare(*object, 4, 0, 1.0, 4.0);
  model->selections().select(selectionOf(*moved));
  start();
  gesture().press(at(0, 0), shift); // taking hold of it is another matter
  EXPECT_THAT(notes, ElementsAre("at 0 0 0", "window at 400 300"));
  notes.clear();
  gesture().drag(at(4, 4), shift);
  EXPECT_THAT(notes, ElementsAre("by 4 4 1", "window by 40 40"));
}

// ---- Ctrl ----------------------------------------------------------------------------------------------------------

TEST_F(ToolGestureTest, WithCtrlThePivotMovesAndTheToolGetsNothing)
{
  auto* face = makeSquare(*object, 0, 0);
  model->selections().select(selectionOf(*face));
  start();
  showGrid();
  const auto commands = model->commandStack().undoCommands().size();
  gesture().press(at(3, 4), ctrl);
  gesture().drag(at(5, 5), ctrl);
  gesture().release(at(3, 4), ctrl);
  EXPECT_THAT(notes, ElementsAre("finish"));
  expectPivot(3, 4, 0);
  ASSERT_EQ(model->commandStack().undoCommands().size(), commands + 1);
  model->commandStack().undo();
  expectPivot(0.5, 0.5, 0);
  model->commandStack().redo();
  expectPivot(3, 4, 0);
}

TEST_F(ToolGestureTest, AToolThatFinishesWithCtrlKeepsThePivot)
{
  auto* face = makeSquare(*object, 0, 0);
  model->selections().select(selectionOf(*face));
  start().finishes = true;
  showGrid();
  click(at(3, 4), ctrl);
  EXPECT_THAT(notes, ElementsAre("finish"));
  expectPivot(0.5, 0.5, 0);
}

TEST_F(ToolGestureTest, WithShiftAndCtrlThePivotGoesToTheMiddleOfWhatIsHit)
{
  auto* face = makeSquare(*object, 0, 0);
  makeSquare(*object, 5, 5, 2.0, 2.0);
  model->selections().select(selectionOf(*face));
  click(at({5.5, 6.5, 2}), shiftAndCtrl);
  expectPivot(6, 6, 2);
  shell.mode = SelectionMode::vertex;
  click(at({7, 7, 2}), shiftAndCtrl);
  expectPivot(7, 7, 2);
  click(at(-20, -20), shiftAndCtrl);
  expectPivot(7, 7, 2);
}

// ---- gadgets -------------------------------------------------------------------------------------------------------

TEST_F(ToolGestureTest, AGadgetTakesTheWholeGestureAndTheToolNoPick)
{
  startWithGizmo();
  showGrid();
  gesture().press({100, 100}, noKeys);
  gesture().drag({600, 110}, noKeys); // beyond the gadget, which is held
  gesture().release({600, 120}, noKeys);
  EXPECT_THAT(notes, ElementsAre("begin 100 100", "drag 600 110", "released end 600 120"));
}

TEST_F(ToolGestureTest, BesideTheGadgetsTheToolIsPicked)
{
  startWithGizmo();
  click({500, 100});
  EXPECT_THAT(notes, ElementsAre("window at 500 100", "end by 0 0 0", "end window at 500 100"));
}

TEST_F(ToolGestureTest, WithShiftOrCtrlGadgetsArePassedThrough)
{
  makeSquare(*object, -20, 0, 0.0, 4.0);
  startWithGizmo();
  gesture().press(at(-20, 0), shift);
  EXPECT_THAT(notes, ElementsAre("at -20 0 0", "window at 200 300"));
  notes.clear();
  gesture().release(at(-20, 0), shift);
  notes.clear();
  click(at(-20, 0), ctrl);
  EXPECT_THAT(notes, ElementsAre("finish"));
}

TEST_F(ToolGestureTest, TheGadgetUnderTheMouseLightsUp)
{
  startWithGizmo();
  gesture().hover({100, 100});
  gesture().hover({200, 100});
  EXPECT_THAT(notes, ElementsAre("lit"));
  gesture().hover({500, 100});
  EXPECT_THAT(notes, ElementsAre("lit", "unlit"));
  gesture().hover({100, 100});
  gesture().leave();
  EXPECT_THAT(notes, ElementsAre("lit", "unlit", "lit", "unlit"));
}

TEST_F(ToolGestureTest, AGadgetWhoseToolWentIsNotTouchedByTheMouseThatLeavesIt)
{
  startWithGizmo();
  gesture().hover({100, 100});
  model->setTool(nullptr);
  notes.clear();
  gesture().hover({110, 100});
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolGestureTest, AGadgetWhoseToolWentIsForgotten)
{
  startWithGizmo();
  gesture().press({100, 100}, noKeys);
  model->setTool(nullptr);
  notes.clear();
  gesture().drag({110, 100}, noKeys);
  gesture().release({110, 100}, noKeys);
  EXPECT_THAT(notes, IsEmpty());
}

// ---- the grid ------------------------------------------------------------------------------------------------------

TEST_F(ToolGestureTest, AGridThatWaitsForAPointTakesItFromTheReleaseAndTheToolGetsNothing)
{
  start();
  showGrid();
  view().gridPlacement().startTranslating();
  EXPECT_EQ(shell.status, "Translating grid, set new origin point");
  gesture().press(at(2, 3), noKeys);
  gesture().drag(at(2, 4), noKeys);
  EXPECT_TRUE(view().gridPlacement().waits());
  gesture().release(at(2, 4), noKeys);
  EXPECT_NEAR((view().grid()->points().origin - osg::Vec3d(2, 4, 0)).length(), 0.0, 1e-6);
  EXPECT_EQ(shell.status, "");
  EXPECT_FALSE(view().gridPlacement().waits());
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolGestureTest, ThreeCornersAlignTheGrid)
{
  makeFace(*object, {{0, 0, 1}, {5, 0, 2}, {0, 5, 3}});
  showGrid();
  view().gridPlacement().toggleAligning();
  EXPECT_EQ(shell.status, "Aligning grid, set point 1");
  click(at({0, 0, 1}), shift);
  EXPECT_EQ(shell.status, "Aligning grid, set point 2");
  click(at({5, 0, 2}), shift);
  EXPECT_EQ(shell.status, "Aligning grid, set point 3");
  click(at({0, 5, 3}), shift);
  EXPECT_EQ(shell.status, "");
  EXPECT_EQ(view().grid()->points().origin, osg::Vec3d(0, 0, 1));
  EXPECT_EQ(view().grid()->points().onAxis, osg::Vec3d(5, 0, 2));
  EXPECT_EQ(view().grid()->points().third, osg::Vec3d(0, 5, 3));
}

} // namespace nalt
