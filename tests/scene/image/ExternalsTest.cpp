#include "fltapi/visitors/MakeExternalVisitor.h"
#include "scene/image/UpdateExternalsVisitor.h"
#include "tests/scene/image/SyncFixture.h"

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

/// A model with two references to one file, which has one square.
class Externals : public SyncFixture {
protected:
  TreeBuilder other;
  FaceRecord& square = other.square(other.header(), 0, 0, red);
  ExternalRecord& one = build.add<ExternalRecord>(group);
  ExternalRecord& two = build.add<ExternalRecord>(group);

  void SetUp() override
  {
    MakeExternalVisitor mark(&other.file());
    other.header().traverse(mark);
    one.show(&other.file(), "other.flt");
    two.show(&other.file(), "other.flt");
  }
  osg::Group& nodeOf(const ExternalRecord& external) { return *sync().nodeOf(external)->asGroup(); }
};

} // namespace

TEST_F(Externals, ReferencesShareTheNodesOfOneFile)
{
  ASSERT_EQ(nodeOf(one).getNumChildren(), 1U);
  EXPECT_EQ(nodeOf(one).getChild(0), nodeOf(two).getChild(0));
  EXPECT_EQ(polygon(square).getCount(), 4);
}

TEST_F(Externals, TheirContentCannotBeChanged)
{
  sync();
  square.vertexAt(0)->setPosition({-5, -5, 0});
  sync().update(square);
  sync().translate(square);
  EXPECT_EQ(corner(square, 0), osg::Vec3(0, 0, 0));
  sync().remove(square);
  EXPECT_NE(sync().polygonOf(square), nullptr);
}

TEST_F(Externals, WhatIsReloadedTakesThePlaceOfWhatWas)
{
  sync();
  TreeBuilder newer;
  auto& face = newer.square(newer.header(), 7, 0);
  one.show(&newer.file(), "other.flt");
  two.show(&newer.file(), "other.flt");
  UpdateExternalsVisitor visitor(sync());
  build.header().accept(visitor);
  EXPECT_EQ(sync().polygonOf(square), nullptr);
  EXPECT_EQ(corner(face, 0), osg::Vec3(7, 0, 0));
  expectLikeFresh();
}

TEST_F(Externals, TheContentGoesWithTheLastReference)
{
  sync();
  one.show(nullptr, "");
  sync().update(one);
  EXPECT_EQ(nodeOf(one).getNumChildren(), 0U);
  EXPECT_NE(sync().polygonOf(square), nullptr);
  sync().remove(two);
  EXPECT_EQ(sync().polygonOf(square), nullptr);
}

TEST_F(Externals, AFileThatShowsItselfIsShownOnce)
{
  auto& inner = other.add<ExternalRecord>(other.header());
  inner.show(&other.file(), "other.flt");
  sync();
  EXPECT_EQ(polygon(square).getCount(), 4);
  EXPECT_LT(sync().root()->getBound().radius(), 2);
  inner.show(nullptr, ""); // or the two files would keep each other
}

TEST_F(Externals, AreMovedByTheirMatrix)
{
  build.translation(two, {10, 0, 0});
  EXPECT_NEAR(sync().root()->getBound().center().x(), 5.5, 0.01);
}
