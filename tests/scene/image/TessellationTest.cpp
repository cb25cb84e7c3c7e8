#include "scene/image/Tessellation.h"

#include "scene/image/EarClipping.h"
#include "tests/support/ProcessorTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>

using namespace nalt;
using namespace nalt::tests;

namespace {

using Contour = std::vector<osg::Vec3>;

Contour ring(int corners, const std::function<double(int)>& radius)
{
  Contour contour;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * i / corners;
    const double distance = radius(i);
    contour.emplace_back(distance * std::cos(angle), distance * std::sin(angle), 0);
  }
  return contour;
}

Contour comb(int teeth)
{
  Contour contour;
  for (int i = 0; i <= 2 * teeth; ++i)
    contour.emplace_back(i % 2 ? 1000 : 1, i, 0);
  contour.emplace_back(0, 2 * teeth, 0);
  contour.emplace_back(0, 0, 0);
  return contour;
}

/// The triangles turn as the polygon does, and have its area together; so they neither overlap nor leave a gap.
void expectFilled(const Contour& contour, const std::vector<GLuint>& triangles)
{
  ASSERT_FALSE(triangles.empty());
  const auto normal = areaNormal(contour);
  double sum = 0;
  for (std::size_t i = 0; i < triangles.size(); i += 3) {
    const osg::Vec3d a = contour[triangles[i]];
    const auto area = ((osg::Vec3d(contour[triangles[i + 1]]) - a) ^ (osg::Vec3d(contour[triangles[i + 2]]) - a)) *
                      normal / normal.length();
    ASSERT_GT(area, -1e-7 * normal.length()) << "triangle " << i / 3 << " is turned over";
    sum += area;
  }
  EXPECT_NEAR(sum / normal.length(), 1, 1e-6);
}

void expectFilled(const Contour& contour)
{
  expectFilled(contour, tessellate(contour, areaNormal(contour)));
}

Contour turned(Contour contour, const osg::Quat& by)
{
  for (auto& corner : contour)
    corner = by * corner;
  return contour;
}

std::vector<GLuint> earsOf(const Contour& contour)
{
  std::vector<osg::Vec2d> places;
  for (const auto& corner : contour)
    places.emplace_back(corner.x(), corner.y());
  return clipEars(places);
}

} // namespace

TEST(Tessellation, FillsContoursOfTenThousandCornersAtOnce)
{
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(9, 10);
  for (const auto& contour : {ring(10'000, [](int i) { return i % 2 ? 10.0 : 1.0; }),
                              ring(10'000, [&](int) { return noise(random); }), comb(5'000)}) {
    std::vector<GLuint> triangles;
    EXPECT_LT(processorSeconds([&] { triangles = tessellate(contour, areaNormal(contour)); }), 2);
    expectFilled(contour, triangles);
  }
}

TEST(Tessellation, FillsWhatASweepWouldTakeTooLongFor)
{
  const auto contour = comb(20'000);
  std::vector<GLuint> triangles;
  EXPECT_LT(processorSeconds([&] { triangles = tessellate(contour, areaNormal(contour)); }), 2);
  expectFilled(contour, triangles);
}

TEST(Tessellation, FillsInAnyPlaneAndEitherWayRound)
{
  auto contour = comb(10'000);
  for (const auto& direction : {osg::Vec3d(0, 0, 1), osg::Vec3d(0, 0, -1), osg::Vec3d(1, 0, 0), osg::Vec3d(-1, 0, 0),
                                osg::Vec3d(0, 1, 0), osg::Vec3d(0, -1, 0), osg::Vec3d(1, 2, 3)}) {
    osg::Quat by;
    by.makeRotate(osg::Vec3d(0, 0, 1), direction);
    SCOPED_TRACE(testing::Message() << direction.x() << ' ' << direction.y() << ' ' << direction.z());
    expectFilled(turned(contour, by));
  }
  std::reverse(contour.begin(), contour.end());
  expectFilled(contour);
}

TEST(Ears, AreCutOffAroundAHoleAtTheEndOfABridge)
{
  const Contour contour = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {0, 0, 0},
                           {3, 3, 0}, {3, 7, 0},  {7, 7, 0},   {7, 3, 0},  {3, 3, 0}};
  expectFilled(contour, earsOf(contour));
}

TEST(Ears, AreCutOffWhereCornersLieOnEdgesAndOnEachOther)
{
  const Contour twoSquaresAtOneCorner = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {2, 1, 0},
                                         {2, 2, 0}, {1, 2, 0}, {1, 1, 0}, {0, 1, 0}};
  expectFilled(twoSquaresAtOneCorner, earsOf(twoSquaresAtOneCorner));
  const Contour notchToTheEdge = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {3, 4, 0}, {2, 0, 0}, {1, 4, 0}, {0, 4, 0}};
  expectFilled(notchToTheEdge, earsOf(notchToTheEdge));
  const Contour withASpike = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {9, 4, 0}, {4, 4, 0}, {0, 4, 0}, {0, 2, 0}};
  expectFilled(withASpike, earsOf(withASpike));
}

TEST(Ears, FillAllButThePlaceWhereEdgesCross)
{
  // A square of side 10 with a small loop in its upper edge.
  const Contour contour = {{0, 0, 0},        {10, 0, 0},      {10, 10, 0},   {5, 10, 0},
                           {5.2F, 10.1F, 0}, {5.1F, 9.9F, 0}, {5, 10.1F, 0}, {0, 10, 0}};
  const auto triangles = earsOf(contour);
  ASSERT_EQ(triangles.size(), 3 * (contour.size() - 2));
  double sum = 0;
  for (std::size_t i = 0; i < triangles.size(); i += 3) {
    const osg::Vec3d a = contour[triangles[i]];
    sum += ((osg::Vec3d(contour[triangles[i + 1]]) - a) ^ (osg::Vec3d(contour[triangles[i + 2]]) - a)).length() / 2;
  }
  EXPECT_NEAR(sum, 100, 2);
}

TEST(Ears, OfFewerThanThreeCornersAreNone)
{
  EXPECT_TRUE(earsOf({}).empty());
  EXPECT_TRUE(earsOf({{0, 0, 0}, {1, 0, 0}}).empty());
}

TEST(Ears, OfWhatIsNoNumberStayWithinTheirCorners)
{
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const std::vector<osg::Vec2d> places{{0, 0}, {nan, 0}, {1, 1}, {infinity, 2}, {0.5, -infinity}, {0, nan}};
  for (std::size_t first = 0; first < places.size(); ++first) {
    auto corners = places;
    std::ranges::rotate(corners, corners.begin() + static_cast<std::ptrdiff_t>(first));
    EXPECT_THAT(clipEars(corners), testing::Each(testing::Lt(corners.size())));
  }
}

TEST(Ears, OfAScribbleAreGivenUpInTime)
{
  std::mt19937 random(1);
  std::uniform_real_distribution<double> anywhere(0, 10);
  Contour contour;
  for (int i = 0; i < 30'000; ++i)
    contour.emplace_back(anywhere(random), anywhere(random), 0);
  EXPECT_LT(processorSeconds([&] { earsOf(contour); }), 10);
}
