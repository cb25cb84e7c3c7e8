#include "core/Tool.h"
#include "tests/scene/view/PickingFixture.h"
#include "tests/scene/view/VisitCount.h"

#include <FL/Fl.H>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Counts what arrives.
class CountingTool : public Tool {
public:
  CountingTool() : Tool(Writes::nothing) {}
  using Tool::drag;
  using Tool::firstPick;
  void firstPick(const osg::Vec2d& window) override { picks.push_back(window); }
  void drag(const osg::Vec2d& delta) override { drags.push_back(delta); }
  std::vector<osg::Vec2d> picks;
  std::vector<osg::Vec2d> drags;

protected:
  void run() override {}
};

/// FLTK's events, as a window gets them, with y downward.
class ViewportMouse : public PickingFixture {
protected:
  ViewportMouse() { one = makeSquare(*object, 0, 0)->getName(); }
  ~ViewportMouse() override
  {
    Fl::e_state = 0;
    Fl::e_clicks = 0;
    Fl::e_keysym = 0;
  }
  int send(int event, const osg::Vec2d& place, int button, int state = 0)
  {
    Fl::e_x = static_cast<int>(place.x());
    Fl::e_y = view().h() - static_cast<int>(place.y());
    Fl::e_keysym = FL_Button + button;
    Fl::e_state = state;
    return view().handle(event);
  }
  osg::Vec2d onOne() { return at(0.5, 0.5); }

  std::string one;
};

} // namespace

TEST_F(ViewportMouse, TheLeftButtonSelectsWhereTheMouseIs)
{
  EXPECT_EQ(send(FL_PUSH, onOne(), FL_LEFT_MOUSE), 1);
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_EQ(send(FL_RELEASE, onOne(), FL_LEFT_MOUSE), 1);
  EXPECT_THAT(selected(), ElementsAre(one));
}

TEST_F(ViewportMouse, ModifiersCountAtTheRelease)
{
  send(FL_PUSH, onOne(), FL_LEFT_MOUSE);
  send(FL_RELEASE, onOne(), FL_LEFT_MOUSE);
  send(FL_PUSH, onOne(), FL_LEFT_MOUSE);
  send(FL_RELEASE, onOne(), FL_LEFT_MOUSE, FL_ALT);
  EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(ViewportMouse, ASecondClickInARowIsADoubleClickAndAThirdIsNot)
{
  view();
  for (const int expected : {0, 1, 1}) {
    send(FL_PUSH, onOne(), FL_LEFT_MOUSE);
    send(FL_RELEASE, onOne(), FL_LEFT_MOUSE);
    EXPECT_EQ(shell.attributesOf.size(), static_cast<std::size_t>(expected));
    ++Fl::e_clicks; // as FLTK counts presses at one place
  }
}

TEST_F(ViewportMouse, AnotherButtonDiscardsTheBand)
{
  for (const int button : {FL_MIDDLE_MOUSE, FL_RIGHT_MOUSE}) {
    send(FL_PUSH, at(-1, -1), FL_LEFT_MOUSE);
    send(FL_DRAG, at(3, 3), FL_LEFT_MOUSE, FL_BUTTON1);
    EXPECT_TRUE(view().selectionGesture().band());
    send(FL_PUSH, at(3, 3), button, FL_BUTTON1);
    EXPECT_FALSE(view().selectionGesture().band());
    send(FL_RELEASE, at(3, 3), button, FL_BUTTON1);
    send(FL_RELEASE, at(3, 3), FL_LEFT_MOUSE);
    EXPECT_THAT(selected(), IsEmpty());
  }
}

TEST_F(ViewportMouse, TheMiddleButtonIsForTheTool)
{
  auto owned = std::make_unique<CountingTool>();
  auto& tool = *owned;
  model->setTool(std::move(owned));
  send(FL_PUSH, {100, 200}, FL_MIDDLE_MOUSE);
  send(FL_DRAG, {110, 230}, FL_MIDDLE_MOUSE, FL_BUTTON2);
  send(FL_RELEASE, {110, 230}, FL_MIDDLE_MOUSE);
  EXPECT_THAT(tool.picks, ElementsAre(osg::Vec2d(100, 200), osg::Vec2d(110, 230)));
  EXPECT_THAT(tool.drags, ElementsAre(osg::Vec2d(10, 30)));
}

TEST_F(ViewportMouse, WithTwoButtonsHeldEachDoesItsOwn)
{
  auto owned = std::make_unique<CountingTool>();
  auto& tool = *owned;
  model->setTool(std::move(owned));
  send(FL_PUSH, {100, 200}, FL_MIDDLE_MOUSE);
  send(FL_PUSH, at(-1, -1), FL_LEFT_MOUSE, FL_BUTTON2);
  send(FL_DRAG, at(3, 3), FL_LEFT_MOUSE, FL_BUTTON1 | FL_BUTTON2);
  send(FL_RELEASE, at(3, 3), FL_LEFT_MOUSE, FL_BUTTON2);
  EXPECT_THAT(selected(), ElementsAre(one));
  EXPECT_EQ(tool.drags.size(), 1U);
}

TEST_F(ViewportMouse, AFurtherButtonLeavesTheCameraDragAlone)
{
  constexpr int side = 8;
  send(FL_PUSH, {100, 200}, FL_RIGHT_MOUSE);
  send(FL_PUSH, {100, 200}, side, FL_BUTTON3);
  send(FL_RELEASE, {100, 200}, side, FL_BUTTON3);
  const auto before = view().camera().pose().orientation;
  send(FL_DRAG, {150, 200}, side, FL_BUTTON3);
  EXPECT_NE(view().camera().pose().orientation, before);
  send(FL_RELEASE, {150, 200}, FL_RIGHT_MOUSE);
  const auto after = view().camera().pose().orientation;
  send(FL_DRAG, {200, 200}, FL_RIGHT_MOUSE, FL_BUTTON3);
  EXPECT_EQ(view().camera().pose().orientation, after) << "the gesture is over";
}

TEST_F(ViewportMouse, ADragWithNoneOfTheThreeButtonsIsRefused)
{
  view();
  testing::internal::CaptureStderr();
  EXPECT_EQ(send(FL_DRAG, onOne(), 4, FL_SHIFT), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Unknown mouse button: " + std::to_string(FL_SHIFT) + "\n");
}

TEST_F(ViewportMouse, MovingTheMouseLooksAtNothingOfTheModel)
{
  view();
  const osg::ref_ptr<VisitCount> visits = new VisitCount;
  model->sceneRoot()->addChild(visits);
  model->setTool(std::make_unique<CountingTool>());
  send(FL_MOVE, at(0, 0), 0);
  send(FL_MOVE, onOne(), 0);
  send(FL_PUSH, at(-1, -1), FL_LEFT_MOUSE);
  send(FL_DRAG, at(3, 3), FL_LEFT_MOUSE, FL_BUTTON1);
  send(FL_PUSH, {100, 100}, FL_MIDDLE_MOUSE);
  send(FL_DRAG, {110, 130}, FL_MIDDLE_MOUSE, FL_BUTTON2);
  send(FL_RELEASE, {110, 130}, FL_MIDDLE_MOUSE);
  send(FL_PUSH, {100, 100}, FL_RIGHT_MOUSE);
  send(FL_DRAG, {110, 130}, FL_RIGHT_MOUSE, FL_BUTTON3);
  send(FL_RELEASE, {110, 130}, FL_RIGHT_MOUSE);
  EXPECT_EQ(visits->count, 0);
  send(FL_PUSH, onOne(), FL_LEFT_MOUSE);
  send(FL_RELEASE, onOne(), FL_LEFT_MOUSE);
  EXPECT_GT(visits->count, 0) << "it would be counted";
}

TEST_F(ViewportMouse, APressMakesTheViewportTheActiveOne)
{
  view();
  model->setActiveViewport(nullptr);
  send(FL_PUSH, onOne(), FL_LEFT_MOUSE);
  EXPECT_EQ(model->activeViewport(), &view());
  EXPECT_TRUE(view().isActive());
}

} // namespace nalt
