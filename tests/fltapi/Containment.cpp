// Which nodes an edit may put below which.
#include "fltapi/Containment.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Record.h"

#include <gtest/gtest.h>

#include <set>

namespace fltapi {
namespace {

bool isNode(int opcode)
{
  const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcode));
  return record->isPrimary();
}

std::set<int> allowedBelow(int parent)
{
  std::set<int> children;
  for (int child = 0; child <= lastOpcode + 1; ++child) {
    if (canContain(parent, child)) children.insert(child);
  }
  return children;
}

TEST(Containment, ofGroupsAndTheirLikeIsEveryNodeThatCanStandByItself)
{
  std::set<int> free;
  const std::set parts = {1, 72, 85, 86, 89};
  for (int opcode = 1; opcode <= lastOpcode; ++opcode) {
    if (isNode(opcode) && !parts.contains(opcode)) free.insert(opcode);
  }
  for (const int parent : {1, 2, 14, 55, 62, 73, 96, 98, 115, 127})
    EXPECT_EQ(allowedBelow(parent), free) << parent;
}

TEST(Containment, ofObjectsIsGeometry)
{
  EXPECT_EQ(allowedBelow(4), (std::set{5, 84, 95, 111, 130}));
}

TEST(Containment, ofPolygonsAndLightPointsIsWhatCanBeASubface)
{
  for (const int parent : {5, 111, 130})
    EXPECT_EQ(allowedBelow(parent), (std::set{5, 111, 130})) << parent;
}

TEST(Containment, ofLightPointSystemsIsLightPoints)
{
  EXPECT_EQ(allowedBelow(131), (std::set{111, 130}));
}

TEST(Containment, ofAllOthersIsNothing)
{
  const std::set parents = {1, 2, 4, 5, 14, 55, 62, 73, 96, 98, 111, 115, 127, 130, 131};
  for (int parent = 0; parent <= lastOpcode + 1; ++parent) {
    if (!parents.contains(parent)) {
      EXPECT_EQ(allowedBelow(parent), std::set<int>{}) << parent;
    }
  }
}

} // namespace
} // namespace fltapi
