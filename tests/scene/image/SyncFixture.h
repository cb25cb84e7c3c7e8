#pragma once

#include "scene/image/FaceGeometry.h"
#include "scene/image/Sync.h"
#include "tests/scene/image/SceneText.h"
#include "tests/scene/image/TreeBuilder.h"

#include <gtest/gtest.h>
#include <osg/TriangleFunctor>

#include <memory>

namespace nalt::tests {

/// A document with one object below one group, and its image, which is made when it is first asked for.
class SyncFixture : public testing::Test {
protected:
  TreeBuilder build;
  fltapi::GroupRecord& group = build.add<fltapi::GroupRecord>(build.header());
  fltapi::ObjectRecord& object = build.add<fltapi::ObjectRecord>(group);

  Sync& sync()
  {
    if (!sync_) {
      sync_ = std::make_unique<Sync>(build.file());
      sync_->translateAll();
    }
    return *sync_;
  }
  void dropSync() { sync_.reset(); }
  int faceGeodes(const fltapi::PrimNodeRecord& record)
  {
    return FaceGeodeParentUserData::of(*sync().nodeOf(record))->faceGeodeCount();
  }
  const NaltPolygon& polygon(const fltapi::PrimNodeRecord& face) { return *sync().polygonOf(face); }
  const FaceGeometry& geometry(const fltapi::PrimNodeRecord& face) { return *polygon(face).geometry(); }
  const osg::StateSet& stateSet(const fltapi::PrimNodeRecord& face)
  {
    return *geometry(face).getParent(0)->getStateSet();
  }
  osg::Vec3 corner(const fltapi::PrimNodeRecord& face, int i)
  {
    const auto& positions = static_cast<const osg::Vec3Array&>(*geometry(face).getVertexArray());
    return positions[static_cast<std::size_t>(polygon(face).getFirst() + i)];
  }
  osg::Vec4ub color(const fltapi::PrimNodeRecord& face, int i = 0)
  {
    const auto& colors = static_cast<const osg::Vec4ubArray&>(*geometry(face).getColorArray());
    return colors[static_cast<std::size_t>(polygon(face).getFirst() + i)];
  }
  /// The image as it became step by step shows what one made at once does.
  void expectLikeFresh()
  {
    Sync fresh(build.file());
    fresh.translateAll();
    fresh.setShowsAllLods(sync().showsAllLods());
    fresh.setLodState(sync().lodState());
    EXPECT_EQ(textOf(*sync().root()), textOf(*fresh.root()));
  }

private:
  std::unique_ptr<Sync> sync_;
};

/// Area of all triangles of a drawable.
inline double areaOf(const osg::Drawable& drawable)
{
  struct Sum {
    double area = 0;
    void operator()(const osg::Vec3& a, const osg::Vec3& b, const osg::Vec3& c)
    {
      area += ((b - a) ^ (c - a)).length() / 2;
    }
  };
  osg::TriangleFunctor<Sum> sum;
  drawable.accept(sum);
  return sum.area;
}

} // namespace nalt::tests
