#include "scene/view/CameraMath.h"

#include <gtest/gtest.h>
#include <osg/Math>

#include <cmath>
#include <limits>

namespace nalt {

namespace {

constexpr double tight = 1e-9;

void expectNear(const osg::Vec3d& found, const osg::Vec3d& wanted, double tolerance = tight)
{
  EXPECT_NEAR(found.x(), wanted.x(), tolerance);
  EXPECT_NEAR(found.y(), wanted.y(), tolerance);
  EXPECT_NEAR(found.z(), wanted.z(), tolerance);
}

osg::BoundingBoxd box(double x0, double y0, double z0, double x1, double y1, double z1)
{
  return {x0, y0, z0, x1, y1, z1};
}

struct Frustum {
  double left, right, bottom, top, nearClip, farClip;
};

Frustum orthoOf(const osg::Matrixd& matrix)
{
  Frustum f{};
  EXPECT_TRUE(matrix.getOrtho(f.left, f.right, f.bottom, f.top, f.nearClip, f.farClip));
  return f;
}

} // namespace

TEST(CameraPose, LooksFromBehindItsCentreAlongMinusZ)
{
  CameraPose pose;
  pose.centre.set(1, 2, 3);
  expectNear(pose.eye(), {1, 2, 6});
  expectNear(pose.viewDirection(), {0, 0, -1});
  expectNear(osg::Vec3d(0, 0, 0) * pose.matrix(), {1, 2, 6});
}

TEST(CameraPose, ItsTwoMatricesUndoEachOther)
{
  CameraPose pose;
  pose.centre.set(10, -4, 7);
  pose.distance = 12.5;
  pose.orientation.makeRotate(1.1, osg::Vec3d(1, 2, 3));
  const osg::Matrixd product = pose.matrix() * pose.inverseMatrix();
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      EXPECT_NEAR(product(i, j), i == j ? 1.0 : 0.0, tight);
}

TEST(Projection, PerspectiveTakesTheFieldOfViewHorizontally)
{
  Lens lens;
  lens.aspect = 2.0;
  lens.fieldOfView = 60.0;
  double vertical = 0, aspect = 0, nearClip = 0, farClip = 0;
  ASSERT_TRUE(projectionMatrix(lens, 3.0).getPerspective(vertical, aspect, nearClip, farClip));
  EXPECT_NEAR(vertical, 30.0, tight);
  EXPECT_NEAR(aspect, 2.0, tight);
  EXPECT_NEAR(nearClip, 0.1, 1e-6);
  EXPECT_NEAR(farClip / 100000.0, 1.0, 1e-6);
}

TEST(Projection, ASliverOfAPanelStillHasAProjection)
{
  Lens lens;
  lens.aspect = 15.0 / 500.0; // 60 degrees across would be 2000 in height
  const osg::Matrixd matrix = projectionMatrix(lens, 3.0);
  EXPECT_GT(matrix(0, 0), 0.0);
  EXPECT_GT(matrix(1, 1), 0.0);
}

TEST(Projection, OrthographicScaleOfAWideWindow)
{
  Lens lens;
  lens.orthographic = true;
  lens.aspect = 2.0;
  const Frustum f = orthoOf(projectionMatrix(lens, 5.0));
  const double halfWidth = std::tan(osg::PI / 6.0) * 10.0;
  EXPECT_NEAR(f.right, halfWidth, tight);
  EXPECT_NEAR(f.left, -halfWidth, tight);
  EXPECT_NEAR(f.top, halfWidth / 2.0, tight);
}

TEST(Projection, OrthographicScaleOfATallWindow)
{
  Lens lens;
  lens.orthographic = true;
  lens.aspect = 0.5;
  const Frustum f = orthoOf(projectionMatrix(lens, 5.0));
  const double halfHeight = std::tan(0.5 * osg::PI / 3.0 / 2.0) * 10.0;
  EXPECT_NEAR(f.top, halfHeight, tight);
  EXPECT_NEAR(f.right, 0.5 * halfHeight, tight);
}

TEST(Projection, OrthographicBehindTheCentreIsNotMirrored)
{
  Lens lens;
  lens.orthographic = true;
  lens.aspect = 1.5;
  const Frustum before = orthoOf(projectionMatrix(lens, 4.0));
  const Frustum behind = orthoOf(projectionMatrix(lens, -4.0));
  EXPECT_NEAR(before.right, behind.right, tight);
  EXPECT_GT(behind.top, behind.bottom);
}

TEST(Projection, OrthographicAtDistanceZeroStaysFinite)
{
  Lens lens;
  lens.orthographic = true;
  const osg::Matrixd matrix = projectionMatrix(lens, 0.0);
  for (int i = 0; i < 16; ++i)
    EXPECT_TRUE(std::isfinite(matrix.ptr()[i]));
}

TEST(NamedView, KeepsCentreAndDistance)
{
  CameraPose before;
  before.centre.set(5, 6, 7);
  before.distance = 20.0;
  const CameraPose top = poseAlong({0, 0, -1}, {}, before, false);
  expectNear(top.centre, {5, 6, 7});
  EXPECT_NEAR(top.distance, 20.0, tight);
  expectNear(top.viewDirection(), {0, 0, -1});
  expectNear(top.up(), {0, 1, 0});
}

TEST(NamedView, SidesHaveZUp)
{
  const CameraPose front = poseAlong({0, -1, 0}, {}, CameraPose(), false);
  expectNear(front.viewDirection(), {0, -1, 0});
  expectNear(front.up(), {0, 0, 1});
  expectNear(front.right(), {-1, 0, 0});
  const CameraPose left = poseAlong({1, 0, 0}, {}, CameraPose(), false);
  expectNear(left.viewDirection(), {1, 0, 0});
  expectNear(left.up(), {0, 0, 1});
}

TEST(NamedView, DirectionMayHaveAnyLength)
{
  CameraPose before;
  before.distance = 4.0;
  const CameraPose pose = poseAlong({0, 30, 0}, {}, before, false);
  expectNear(pose.viewDirection(), {0, 1, 0});
  EXPECT_NEAR(pose.distance, 4.0, tight);
}

TEST(NamedView, IsAtLeastOneUnitAway)
{
  CameraPose before;
  before.distance = -8.0; // zoomed through the centre
  EXPECT_NEAR(poseAlong({0, 1, 0}, {}, before, false).distance, 1.0, tight);
}

TEST(NamedView, LeavesTheDistanceToTheFitThatFollows)
{
  CameraPose before;
  before.distance = 50.0;
  EXPECT_NEAR(poseAlong({0, 1, 0}, {}, before, true).distance, 1.0, tight);
}

TEST(NamedView, TakesAnUpVector)
{
  const CameraPose pose = poseAlong({0, 0, -1}, {1, 0, 0}, CameraPose(), false);
  expectNear(pose.up(), {1, 0, 0});
}

TEST(NamedView, AnUpVectorAlongTheViewIsReplaced)
{
  const CameraPose pose = poseAlong({0, 0, 1}, {0, 0, 1}, CameraPose(), false);
  expectNear(pose.viewDirection(), {0, 0, 1});
  EXPECT_NEAR(pose.up().length(), 1.0, tight);
  EXPECT_NEAR(pose.up() * pose.viewDirection(), 0.0, tight);
}

TEST(Fit, WideWindowIsLimitedByItsHeight)
{
  const osg::BoundingBoxd cube = box(-1, -1, -1, 1, 1, 1);
  const auto pose = poseFitting(cube, CameraPose(), Lens(), 1000, 500);
  ASSERT_TRUE(pose);
  const double radius = std::sqrt(3.0);
  EXPECT_NEAR(pose->distance, radius / (osg::PI / 3.0 * 0.5 / 2.0), tight);
  expectNear(pose->centre, {0, 0, 0});
}

TEST(Fit, TallWindowIsLimitedByItsWidth)
{
  const auto pose = poseFitting(box(9, 9, 9, 11, 11, 11), CameraPose(), Lens(), 500, 1000);
  ASSERT_TRUE(pose);
  EXPECT_NEAR(pose->distance, std::sqrt(3.0) / (osg::PI / 6.0), tight);
  expectNear(pose->centre, {10, 10, 10});
}

TEST(Fit, KeepsTheViewingAngle)
{
  CameraPose before;
  before.orientation.makeRotate(0.7, osg::Vec3d(1, 1, 0));
  const auto pose = poseFitting(box(0, 0, 0, 4, 4, 4), before, Lens(), 600, 600);
  ASSERT_TRUE(pose);
  expectNear(pose->viewDirection(), before.viewDirection());
  expectNear(pose->up(), before.up());
}

TEST(Fit, OneVertexIsGrownByTheNearClip)
{
  const auto pose = poseFitting(box(3, 3, 3, 3, 3, 3), CameraPose(), Lens(), 600, 600);
  ASSERT_TRUE(pose);
  const double radius = 0.1 * std::sqrt(3.0);
  EXPECT_NEAR(pose->distance, radius / (osg::PI / 6.0), tight);
  expectNear(pose->centre, {3, 3, 3});
}

TEST(Fit, WithoutAFieldOfViewItIsThreeRadii)
{
  Lens lens;
  lens.fieldOfView = 0.0;
  const auto pose = poseFitting(box(0, 0, 0, 2, 0, 0), CameraPose(), lens, 600, 600);
  ASSERT_TRUE(pose);
  EXPECT_NEAR(pose->distance, 3.0, tight);
}

TEST(Fit, AnEmptyOrInfiniteBoxGivesNothing)
{
  constexpr double infinite = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(poseFitting(osg::BoundingBoxd(), CameraPose(), Lens(), 600, 600));
  EXPECT_FALSE(poseFitting(box(-infinite, 0, 0, infinite, 1, 1), CameraPose(), Lens(), 600, 600));
}

TEST(StoredView, ComesBack)
{
  CameraPose pose;
  pose.centre.set(1.5, -2, 3);
  pose.distance = 7.25;
  pose.orientation.set(0, 0, 0.6, 0.8);
  EXPECT_EQ(textOf(pose), "1.5 -2 3 7.25 0 0 0.6 0.8");
  const auto back = poseFromText(textOf(pose));
  ASSERT_TRUE(back);
  expectNear(back->centre, pose.centre);
  EXPECT_NEAR(back->distance, 7.25, tight);
  EXPECT_NEAR(back->orientation.z(), 0.6, tight);
}

TEST(StoredView, HasSixDigits)
{
  CameraPose pose;
  pose.centre.set(1.23456789, 0, 0);
  EXPECT_EQ(textOf(pose).substr(0, 8), "1.23457 ");
}

TEST(StoredView, AnythingButEightNumbersIsRefused)
{
  EXPECT_FALSE(poseFromText(""));
  EXPECT_FALSE(poseFromText("1 2 3 4 0 0 1"));
  EXPECT_FALSE(poseFromText("1 2 3 4 0 0 0 1 9"));
  EXPECT_FALSE(poseFromText("1 2 3 four 0 0 0 1"));
  EXPECT_FALSE(poseFromText("1 2 3 4x 0 0 0 1"));
  EXPECT_TRUE(poseFromText("  1 2  3 4 0 0 0 1 "));
}

TEST(CameraSpeed, AutomaticFollowsTheModel)
{
  const CameraSpeed speed = cameraSpeed(Sensitivity(), 10.0, 0.1, 1.0);
  EXPECT_NEAR(speed.pan, 10.1, tight);
  EXPECT_NEAR(speed.zoom, 20.2, tight);
}

TEST(CameraSpeed, AutomaticWithoutAModelFollowsTheGrid)
{
  const CameraSpeed speed = cameraSpeed(Sensitivity(), 0.0, 0.1, 2.5);
  EXPECT_NEAR(speed.pan, 2.5, tight);
  EXPECT_NEAR(speed.zoom, 5.0, tight);
}

TEST(CameraSpeed, SlidersWhenNotAutomatic)
{
  Sensitivity sliders;
  sliders.autoPan = sliders.autoZoom = false;
  sliders.pan = 100;
  sliders.zoom = 0;
  const CameraSpeed speed = cameraSpeed(sliders, 10.0, 0.1, 1.0);
  EXPECT_NEAR(speed.pan, 2e7 + 0.1, 1e-6);
  EXPECT_NEAR(speed.zoom, 0.1, tight);
}

TEST(CameraSpeed, RotationRunsFromASixteenthOfPiToEightPi)
{
  Sensitivity sliders;
  sliders.rotate = 0;
  EXPECT_NEAR(cameraSpeed(sliders, 1, 0.1, 1).rotate, osg::PI / 16.0, tight);
  sliders.rotate = 100;
  EXPECT_NEAR(cameraSpeed(sliders, 1, 0.1, 1).rotate, osg::PI * 8.0, tight);
}

} // namespace nalt
