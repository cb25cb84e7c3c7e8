#include "scene/view/ModManipulator.h"

#include "scene/view/FLTKActionAdapter.h"
#include "scene/view/FLTKEventAdapter.h"

#include <gtest/gtest.h>
#include <osg/Math>

namespace nalt {

namespace {

constexpr double tight = 1e-6; // event coordinates are single precision

void expectNear(const osg::Vec3d& found, const osg::Vec3d& wanted)
{
  EXPECT_NEAR(found.x(), wanted.x(), tight);
  EXPECT_NEAR(found.y(), wanted.y(), tight);
  EXPECT_NEAR(found.z(), wanted.z(), tight);
}

/// A camera in a window of 200 by 200 pixels: 100 pixels are one unit of mouse travel.
class ModManipulatorTest : public testing::Test {
protected:
  void SetUp() override
  {
    camera->setProjectionTarget(&projection);
    camera->setSpeed({10.0, 4.0, osg::PI_2});
    events->resize(200, 200);
  }

  void drag(CameraButton button, double x0, double y0, double x1, double y1)
  {
    camera->handle(events->press(x0, y0, button), actions);
    camera->handle(events->drag(x1, y1), actions);
  }

  osg::Matrixd projection;
  osg::ref_ptr<ModManipulator> camera = new ModManipulator(nullptr);
  osg::ref_ptr<FLTKEventAdapter> events = new FLTKEventAdapter;
  FLTKActionAdapter actions;
};

} // namespace

TEST_F(ModManipulatorTest, StartsThreeUnitsAway)
{
  EXPECT_EQ(camera->pose().distance, 3.0);
  EXPECT_TRUE(camera->pose().orientation.zeroRotation());
  EXPECT_EQ(ModManipulator(nullptr).speed().pan, 50.0);
}

TEST_F(ModManipulatorTest, PanDragsTheSceneWithTheMouse)
{
  drag(CameraButton::pan, 100, 100, 150, 100);
  expectNear(camera->pose().centre, {-5, 0, 0});
  camera->handle(events->drag(150, 50), actions); // half a unit upward
  expectNear(camera->pose().centre, {-5, -5, 0});
  EXPECT_EQ(camera->gesture(), CameraGesture::pan);
}

TEST_F(ModManipulatorTest, PanFollowsTheViewAxes)
{
  CameraPose pose;
  pose.orientation.makeRotate(osg::PI_2, osg::Vec3d(0, 0, 1)); // right is +y, up is -x
  camera->setPose(pose);
  drag(CameraButton::pan, 100, 100, 200, 100);
  expectNear(camera->pose().centre, {0, -10, 0});
}

TEST_F(ModManipulatorTest, ZoomDownGoesNearer)
{
  drag(CameraButton::zoom, 100, 100, 100, 150);
  EXPECT_NEAR(camera->pose().distance, 1.0, tight);
  EXPECT_EQ(camera->gesture(), CameraGesture::zoomIn);
  camera->handle(events->drag(100, 100), actions);
  EXPECT_NEAR(camera->pose().distance, 3.0, tight);
  EXPECT_EQ(camera->gesture(), CameraGesture::zoomOut);
}

TEST_F(ModManipulatorTest, PerspectiveZoomGoesThroughTheCentre)
{
  drag(CameraButton::zoom, 100, 0, 100, 200);
  EXPECT_NEAR(camera->pose().distance, -5.0, tight);
  expectNear(camera->pose().eye(), {0, 0, -5});
}

TEST_F(ModManipulatorTest, OrthographicZoomStopsAtTheCentre)
{
  camera->setOrthographic(true);
  drag(CameraButton::zoom, 100, 0, 100, 200);
  EXPECT_EQ(camera->pose().distance, 0.0);
}

TEST_F(ModManipulatorTest, DragInTheMiddleTumbles)
{
  // Equal steps to both sides of the middle, so that the edge shares of the roll are small; the press is the middle.
  camera->setSpeed({10.0, 4.0, 1.0});
  camera->handle(events->press(90, 100, CameraButton::rotate), actions);
  camera->handle(events->drag(100, 100), actions);
  // 0.1 radians about the vertical axis: the eye goes to the left, so the scene follows the mouse.
  expectNear(camera->pose().eye(), {-3.0 * std::sin(0.1), 0, 3.0 * std::cos(0.1)});
}

TEST_F(ModManipulatorTest, DragUpTurnsTheSceneUp)
{
  camera->setSpeed({10.0, 4.0, 1.0});
  camera->handle(events->press(100, 110, CameraButton::rotate), actions);
  camera->handle(events->drag(100, 100), actions);
  expectNear(camera->pose().eye(), {0, -3.0 * std::sin(0.1), 3.0 * std::cos(0.1)});
}

TEST_F(ModManipulatorTest, DragAlongTheUpperEdgeRolls)
{
  camera->setSpeed({10.0, 4.0, 1.0});
  camera->handle(events->press(90, 0, CameraButton::rotate), actions);
  camera->handle(events->drag(100, 0), actions);
  osg::Vec3d axis(0, 0.3, -0.7);
  axis.normalize();
  const osg::Quat wanted(-0.1, axis);
  expectNear(camera->pose().up(), wanted * osg::Vec3d(0, 1, 0));
  expectNear(camera->pose().viewDirection(), wanted * osg::Vec3d(0, 0, -1));
}

TEST_F(ModManipulatorTest, LowerEdgeRollsTheOtherWay)
{
  camera->setSpeed({10.0, 4.0, 1.0});
  camera->handle(events->press(90, 200, CameraButton::rotate), actions);
  camera->handle(events->drag(100, 200), actions);
  osg::Vec3d axis(0, 0.3, 0.7);
  axis.normalize();
  expectNear(camera->pose().up(), osg::Quat(-0.1, axis) * osg::Vec3d(0, 1, 0));
}

TEST_F(ModManipulatorTest, ALongDragKeepsTheOrientationAUnit)
{
  camera->handle(events->press(100, 100, CameraButton::rotate), actions);
  for (int i = 0; i < 10000; ++i)
    camera->handle(events->drag(100 + i % 77, 100 + i % 53), actions);
  EXPECT_NEAR(camera->pose().orientation.length(), 1.0, 1e-12);
  EXPECT_NEAR((camera->pose().eye() - camera->pose().centre).length(), 3.0, tight);
}

TEST_F(ModManipulatorTest, ReleaseEndsTheGesture)
{
  drag(CameraButton::rotate, 100, 100, 120, 100);
  EXPECT_EQ(camera->gesture(), CameraGesture::rotate);
  camera->handle(events->release(120, 100), actions);
  EXPECT_EQ(camera->gesture(), CameraGesture::none);
}

TEST_F(ModManipulatorTest, WheelWithShiftMovesTenTimesLess)
{
  camera->turnWheel(1.0, false);
  EXPECT_NEAR(camera->pose().distance, 3.0 - 0.4, tight);
  camera->turnWheel(-1.0, true);
  EXPECT_NEAR(camera->pose().distance, 3.0 - 0.4 + 0.04, tight);
}

TEST_F(ModManipulatorTest, WheelIsNeverClamped)
{
  camera->setOrthographic(true);
  camera->turnWheel(10.0, false);
  EXPECT_NEAR(camera->pose().distance, -1.0, tight);
  double left = 0, right = 0, bottom = 0, top = 0, nearClip = 0, farClip = 0;
  ASSERT_TRUE(projection.getOrtho(left, right, bottom, top, nearClip, farClip));
  EXPECT_GT(right, left);
}

TEST_F(ModManipulatorTest, EveryChangeRewritesTheProjection)
{
  camera->setOrthographic(true);
  const osg::Matrixd before = projection;
  camera->turnWheel(1.0, false);
  EXPECT_NE(projection, before);
  const osg::Matrixd wheeled = projection;
  camera->setFieldOfView(30.0);
  EXPECT_NE(projection, wheeled);
}

TEST_F(ModManipulatorTest, MatrixSetsCentreAndOrientationAndKeepsTheDistance)
{
  CameraPose pose;
  pose.centre.set(4, 5, 6);
  pose.orientation.makeRotate(0.8, osg::Vec3d(0, 1, 1));
  osg::ref_ptr<ModManipulator> other = new ModManipulator(nullptr);
  other->setByMatrix(pose.matrix());
  expectNear(other->pose().centre, {4, 5, 6});
  EXPECT_EQ(other->pose().distance, 3.0);
  osg::ref_ptr<ModManipulator> third = new ModManipulator(nullptr);
  third->setByInverseMatrix(pose.inverseMatrix());
  expectNear(third->pose().centre, {4, 5, 6});
}

TEST_F(ModManipulatorTest, LookAtSetsEyeCentreAndUp)
{
  camera->lookAt({0, -5, 0}, {0, 0, 0}, {0, 0, 1});
  expectNear(camera->pose().eye(), {0, -5, 0});
  expectNear(camera->pose().viewDirection(), {0, 1, 0});
  expectNear(camera->pose().up(), {0, 0, 1});
}

TEST_F(ModManipulatorTest, ControllerMovesAgainstItsCap)
{
  camera->moveByController({500, 0, 0}, {}, 0.0);
  expectNear(camera->pose().centre, {-1, 0, 0});
  camera->moveByController({0, 0, 1250}, {}, 0.0);
  EXPECT_NEAR(camera->pose().distance, 2.0, tight);
}

TEST_F(ModManipulatorTest, ControllerAtRestChangesNothing)
{
  const CameraPose before = camera->pose();
  camera->moveByController({}, {}, 0.0);
  EXPECT_EQ(textOf(camera->pose()), textOf(before));
}

TEST_F(ModManipulatorTest, ControllerZoomStopsAtTheCentreInOrthographic)
{
  camera->setOrthographic(true);
  camera->moveByController({0, 0, 1e6}, {}, 0.0);
  EXPECT_EQ(camera->pose().distance, 0.0);
}

TEST_F(ModManipulatorTest, ControllerTurnsByItsAngle)
{
  camera->setSpeed({10.0, 4.0, 7.0});
  camera->moveByController({}, {0, 1, 0}, 100.0); // k = 0.1
  expectNear(camera->pose().viewDirection(), osg::Quat(-0.1, osg::Vec3d(0, 1, 0)) * osg::Vec3d(0, 0, -1));
}

} // namespace nalt
