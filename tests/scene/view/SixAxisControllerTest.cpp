#include "scene/view/SixAxisController.h"

#include "tests/scene/view/ViewportFixture.h"

namespace nalt {
namespace {

using SixAxisControllerTest = ViewportFixture;

TEST_F(SixAxisControllerTest, AMotionMovesTheCameraByItsSpeeds)
{
  view->camera().setSpeed({.pan = 5000.0, .zoom = 10000.0, .rotate = 0.5});
  const CameraPose before = view->camera().pose();
  applySixAxisEvent(SixAxisMotion{{2, 3, 1}, {}}, *view);
  const CameraPose now = view->camera().pose();
  EXPECT_NEAR((before.centre - now.centre).x(), 2.0, 1e-9);
  EXPECT_NEAR((before.centre - now.centre).y(), 3.0, 1e-9);
  EXPECT_NEAR(before.distance - now.distance, 2.0, 1e-9);
}

TEST_F(SixAxisControllerTest, ATurnGoesRoundItsAxisByItsAmount)
{
  view->camera().setSpeed({.pan = 1.0, .zoom = 1.0, .rotate = 7.0});
  applySixAxisEvent(SixAxisMotion{{}, {0, 500, 0}}, *view);
  // The camera goes the other way round: the model seems to turn with the cap.
  EXPECT_NEAR(view->camera().pose().viewDirection().x(), std::sin(0.5), 1e-9);
  EXPECT_NEAR(view->camera().pose().viewDirection().y(), 0.0, 1e-9);
}

TEST_F(SixAxisControllerTest, RestDoesNothing)
{
  const std::string before = view->storedView();
  applySixAxisEvent(SixAxisMotion{}, *view);
  EXPECT_EQ(view->storedView(), before);
}

TEST_F(SixAxisControllerTest, TheFitButtonSetsTheAutomaticSpeedsOfAnEmptyModel)
{
  view->camera().setSpeed({.pan = 9.0, .zoom = 9.0, .rotate = 1.0});
  applySixAxisEvent(SixAxisButton{30, true}, *view);
  applySixAxisEvent(SixAxisButton{31, false}, *view);
  EXPECT_EQ(view->camera().speed().pan, 9.0);
  applySixAxisEvent(SixAxisButton{31, true}, *view);
  EXPECT_EQ(view->camera().speed().pan, 1.0);
  EXPECT_EQ(view->camera().speed().zoom, 2.0);
}

} // namespace
} // namespace nalt
