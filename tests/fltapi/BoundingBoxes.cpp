// The box of what a model shows.
#include "fltapi/AllRecords.h"
#include "fltapi/visitors/FltBoundingSphereVisitor.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/ProcessorTime.h"

#include <gtest/gtest.h>

#include <limits>

namespace fltapi {
namespace {

using namespace nalt::tests;

class BoundingBoxes : public testing::Test {
protected:
  /// A matrix record that moves by (x, y, z).
  static std::string moved(float x, float y, float z)
  {
    return flt::matrix({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1});
  }
  /// A polygon with corners at (0, 0, 0), (1, 0, 0) and (1, 2, 3).
  std::string polygon() { return flt::polygon("p1", {corners[0], corners[1], corners[2]}); }

  void measure(const std::string& content, const osg::Matrixd& above = {})
  {
    file = bench.load(flt::file(pool, content));
    FltBoundingSphereVisitor visitor(above);
    file->header()->accept(visitor);
    box = visitor.box();
    vertexCount = visitor.vertexCount();
  }
  void expectBox(const osg::Vec3d& least, const osg::Vec3d& most) const
  {
    EXPECT_LT((box._min - least).length(), 1e-6) << box._min.x() << " " << box._min.y() << " " << box._min.z();
    EXPECT_LT((box._max - most).length(), 1e-6) << box._max.x() << " " << box._max.y() << " " << box._max.z();
  }

  Workbench bench;
  flt::VertexPool pool;
  const std::vector<std::uint32_t> corners = {pool.add(flt::plainVertex(0, 0, 0)), pool.add(flt::plainVertex(1, 0, 0)),
                                              pool.add(flt::plainVertex(1, 2, 3))};
  osg::ref_ptr<FltFile> file;
  osg::BoundingBoxd box;
  int vertexCount = 0;
};

TEST_F(BoundingBoxes, ofNothingAreNotValid)
{
  measure(flt::group("g1"));
  EXPECT_FALSE(box.valid());
  EXPECT_EQ(vertexCount, 0);
}

TEST_F(BoundingBoxes, holdAllCorners)
{
  measure(polygon());
  expectBox({0, 0, 0}, {1, 2, 3});
  EXPECT_EQ(vertexCount, 3);
}

TEST_F(BoundingBoxes, goThroughAllMatrices)
{
  measure(flt::group("g1") + moved(10, 0, 0) + flt::level(flt::group("g2") + moved(0, 5, 0) + flt::level(polygon())),
          osg::Matrixd::scale(2, 2, 2));
  expectBox({20, 10, 0}, {22, 14, 6});
}

TEST_F(BoundingBoxes, holdWhatSwitchesShow)
{
  measure(flt::switchNode("sw1", 1, 1, {2}) + flt::level(flt::group("off") + flt::level(polygon()) + flt::group("on") +
                                                         moved(7, 0, 0) + flt::level(polygon())));
  expectBox({7, 0, 0}, {8, 2, 3});
  EXPECT_EQ(vertexCount, 3);
}

TEST_F(BoundingBoxes, leaveOutWhatIsHidden)
{
  class Hidden : public UserData {
    bool hidden() const override { return true; }
  };
  measure(flt::group("g1") + flt::level(polygon()));
  file->header()->firstPrimaryChild()->setUserData(std::make_unique<Hidden>());
  FltBoundingSphereVisitor visitor;
  file->header()->accept(visitor);
  EXPECT_FALSE(visitor.box().valid());
}

TEST_F(BoundingBoxes, holdEachPlaceOfAnInstance)
{
  measure(flt::instanceDefinition(1) + flt::level(polygon()) + flt::instanceReference(1) + flt::instanceReference(1) +
          moved(0, 0, 100));
  expectBox({0, 0, 0}, {1, 2, 103});
  EXPECT_EQ(vertexCount, 6);
}

TEST_F(BoundingBoxes, ofInstancesOfInstancesAreFoundQuickly)
{
  // Each one shows the one before twice, the second time a little further on.
  constexpr int doublings = 60;
  std::string content = flt::instanceDefinition(0) + flt::level(polygon());
  for (int i = 1; i <= doublings; ++i) {
    content += flt::instanceDefinition(i) +
               flt::level(flt::group("g") +
                          flt::level(flt::instanceReference(i - 1) + flt::instanceReference(i - 1) + moved(1, 0, 0)));
  }
  EXPECT_LT(processorSeconds([&] { measure(content + flt::instanceReference(doublings)); }), 5.0);
  expectBox({0, 0, 0}, {1 + doublings, 2, 3});
  EXPECT_EQ(vertexCount, std::numeric_limits<int>::max());
}

TEST_F(BoundingBoxes, leaveOutInstancesThatAreHidden)
{
  class Hidden : public UserData {
    bool hidden() const override { return true; }
  };
  measure(flt::instanceDefinition(1) + flt::level(polygon()) + flt::instanceReference(1));
  first<InstanceReferenceRecord>(*file)->setUserData(std::make_unique<Hidden>());
  FltBoundingSphereVisitor visitor;
  file->header()->accept(visitor);
  EXPECT_FALSE(visitor.box().valid());
}

TEST_F(BoundingBoxes, holdEachPlaceOfAnotherFile)
{
  bench.host.externals = true;
  writeFile(bench.path("part.flt"), flt::file(pool, polygon()));
  measure(flt::external("part.flt") + flt::external("part.flt") + moved(0, 0, 100));
  expectBox({0, 0, 0}, {1, 2, 103});
  EXPECT_EQ(vertexCount, 6);
}

TEST_F(BoundingBoxes, ofFilesThatShowTheNextOneTwiceAreFoundQuickly)
{
  bench.host.externals = true;
  constexpr int doublings = 60;
  const auto name = [](int i) { return std::to_string(i) + ".flt"; };
  writeFile(bench.path(name(0)), flt::file(pool, polygon()));
  for (int i = 1; i <= doublings; ++i) {
    writeFile(bench.path(name(i)), flt::file(flt::external(name(i - 1)) + flt::external(name(i - 1)) + moved(1, 0, 0)));
  }
  EXPECT_LT(processorSeconds([&] { measure(flt::external(name(doublings))); }), 5.0);
  expectBox({0, 0, 0}, {1 + doublings, 2, 3});
  EXPECT_EQ(vertexCount, std::numeric_limits<int>::max());
}

TEST_F(BoundingBoxes, ofInstancesThatShowThemselvesEnd)
{
  measure(flt::instanceDefinition(1) + flt::level(flt::group("g") + flt::level(flt::instanceReference(1) + polygon())) +
          flt::instanceReference(1));
  expectBox({0, 0, 0}, {1, 2, 3});
}

} // namespace
} // namespace fltapi
