#include "tests/fltapi/support/PolygonSummary.h"

#include <algorithm>
#include <cstdio>
#include <osg/Geometry>
#include <osg/NodeVisitor>
#include <osg/Notify>
#include <osg/Transform>
#include <osg/TriangleFunctor>
#include <osgDB/Options>
#include <osgDB/ReadFile>

namespace nalt::tests {

namespace {

struct CollectTriangles {
  const osg::Matrixd* toWorld = nullptr;
  std::vector<std::string>* lines = nullptr;

  void operator()(const osg::Vec3& a, const osg::Vec3& b, const osg::Vec3& c, bool = false) const
  {
    std::string line;
    for (const auto* corner : {&a, &b, &c}) {
      const auto point = osg::Vec3d(*corner) * *toWorld;
      char text[100];
      // -0 and 0 are one place.
      std::snprintf(text, sizeof text, "(%.4f %.4f %.4f)", point.x() + 0.0, point.y() + 0.0, point.z() + 0.0);
      line += text;
    }
    lines->push_back(line);
  }
};

class TriangleCollector : public osg::NodeVisitor {
public:
  TriangleCollector() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) {}

  void apply(osg::Drawable& drawable) override
  {
    const auto toWorld = osg::computeLocalToWorld(getNodePath());
    osg::TriangleFunctor<CollectTriangles> collect;
    collect.toWorld = &toWorld;
    collect.lines = &lines;
    drawable.accept(collect);
  }
  std::vector<std::string> lines;
};

} // namespace

std::vector<std::string> polygonSummary(const std::string& path)
{
  const auto level = osg::getNotifyLevel();
  osg::setNotifyLevel(osg::ALWAYS); // missing textures are none of our business
  const osg::ref_ptr<osgDB::Options> options = new osgDB::Options("noTextureFiles");
  options->setObjectCacheHint(osgDB::Options::CACHE_NONE);
  const osg::ref_ptr<osg::Node> node = osgDB::readRefNodeFile(path, options);
  osg::setNotifyLevel(level);
  if (!node) return {};
  TriangleCollector collector;
  node->accept(collector);
  std::ranges::sort(collector.lines);
  return collector.lines;
}

} // namespace nalt::tests
