#include "tests/scene/image/LogCapture.h"
#include "tests/scene/image/SyncFixture.h"

#include <gmock/gmock.h>
#include <osg/MatrixTransform>
#include <osg/Switch>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

class SyncNodes : public SyncFixture {};

int childrenNamed(const osg::Group& node, const std::string& name)
{
  int count = 0;
  for (unsigned i = 0; i < node.getNumChildren(); ++i)
    count += node.getChild(i)->getName() == name;
  return count;
}

} // namespace

TEST_F(SyncNodes, EveryKindOfNodeWithASceneNodeIsFoundByItsRecord)
{
  auto& lod = build.add<LodRecord>(group);
  auto& dof = build.add<DofRecord>(group);
  auto& choice = build.add<SwitchRecord>(group);
  auto& external = build.add<ExternalRecord>(group);
  auto& system = build.add<LightPointSystemRecord>(group);
  auto& light = build.add<LightPointRecord>(system);
  auto& indexed = build.add<IndexedLightPointRecord>(system);
  for (const PrimNodeRecord* record : std::initializer_list<PrimNodeRecord*>{&group, &object, &lod, &dof, &choice,
                                                                             &external, &system, &light, &indexed}) {
    const auto* node = sync().nodeOf(*record);
    ASSERT_TRUE(node) << record->className();
    EXPECT_EQ(Sync::recordOf(*node), record);
  }
  EXPECT_EQ(sync().nodeOf(build.header()), sync().root());
}

TEST_F(SyncNodes, OtherRecordsHaveNoNode)
{
  auto& face = build.square(object, 0, 0);
  auto& reference = build.reference(group, 7);
  auto& road = build.add<RoadConstructionRecord>(group);
  EXPECT_FALSE(sync().nodeOf(face));
  EXPECT_FALSE(sync().nodeOf(*face.vertexList()));
  EXPECT_FALSE(sync().nodeOf(reference));
  EXPECT_FALSE(sync().nodeOf(road));
}

TEST_F(SyncNodes, ARecordWithoutASceneNodeAboveItIsLeftOut)
{
  const osg::ref_ptr<GroupRecord> loose = build.file().create<GroupRecord>();
  build.square(*loose, 0, 0);
  sync().translate(*loose);
  EXPECT_FALSE(sync().nodeOf(*loose));
  EXPECT_EQ(sync().root()->getNumChildren(), 1U);
}

TEST_F(SyncNodes, AMatrixMakesATransform)
{
  EXPECT_FALSE(sync().nodeOf(group)->asTransform());
  auto& matrix = build.translation(group, {1, 2, 3});
  sync().update(matrix);
  const auto* transform = dynamic_cast<osg::MatrixTransform*>(sync().nodeOf(group));
  ASSERT_TRUE(transform);
  EXPECT_EQ(transform->getMatrix().getTrans(), osg::Vec3d(1, 2, 3));
  EXPECT_EQ(sync().nodeOf(object)->getParent(0), transform);
  expectLikeFresh();

  group.removeChild(&matrix);
  sync().update(group);
  EXPECT_FALSE(sync().nodeOf(group)->asTransform());
  EXPECT_EQ(sync().nodeOf(object)->getParent(0), sync().nodeOf(group));
  expectLikeFresh();
}

TEST_F(SyncNodes, AMatrixWithoutNumbersDoesNoHarm)
{
  auto& matrix = build.translation(group, {1, 2, std::numeric_limits<double>::quiet_NaN()});
  sync().update(matrix);
  EXPECT_TRUE(dynamic_cast<osg::MatrixTransform*>(sync().nodeOf(group))->getMatrix().isIdentity());
}

TEST_F(SyncNodes, ADofMovesByItsCurrentValues)
{
  auto& dof = build.add<DofRecord>(group);
  dof.set(DofRecord::fields.pointInXYPlane, osg::Vec3d(0, 1, 0));
  dof.set(DofRecord::fields.x.current, 4.0);
  const auto* transform = dynamic_cast<osg::MatrixTransform*>(sync().nodeOf(dof));
  ASSERT_TRUE(transform);
  EXPECT_EQ(transform->getMatrix().getTrans(), osg::Vec3d(4, 0, 0));
  dof.set(DofRecord::fields.x.current, 5.0);
  sync().update(dof);
  EXPECT_EQ(transform->getMatrix().getTrans(), osg::Vec3d(5, 0, 0));
}

TEST_F(SyncNodes, AReplicateCountOfThreeShowsFourCopies)
{
  build.square(object, 0, 0);
  build.translation(group, {10, 0, 0});
  auto* replicate = build.file().create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, std::int16_t{3});
  group.insertAncillary(replicate);

  const auto& node = *sync().nodeOf(group)->asGroup();
  EXPECT_EQ(node.getNumChildren(), 4U);
  EXPECT_EQ(childrenNamed(node, "replication"), 3);
  for (unsigned i = 1; i < 4; ++i) {
    const auto& copy = dynamic_cast<const osg::MatrixTransform&>(*node.getChild(i));
    EXPECT_EQ(copy.getMatrix().getTrans(), osg::Vec3d(10 * i, 0, 0));
    EXPECT_EQ(copy.getChild(0), node.getChild(0));
  }
  EXPECT_NEAR(sync().root()->getBound().radius(), osg::Vec3(31, 1, 0).length() / 2, 0.75);

  replicate->set(ReplicateRecord::fields.count, std::int16_t{1});
  sync().update(*replicate);
  EXPECT_EQ(sync().nodeOf(group)->asGroup()->getNumChildren(), 2U);
  expectLikeFresh();
}

TEST_F(SyncNodes, ASwitchWithAnEmptyMaskShowsNoChild)
{
  auto& choice = build.add<SwitchRecord>(group);
  auto& first = build.add<ObjectRecord>(choice);
  auto& face = build.square(choice, 0, 0);
  choice.set(SwitchRecord::fields.currentMask, 0);
  choice.setBit(0, 0, false);
  choice.setBit(0, 1, false);
  const auto& node = dynamic_cast<osg::Switch&>(*sync().nodeOf(choice));
  EXPECT_FALSE(node.getChildValue(sync().nodeOf(first)));
  EXPECT_EQ(polygon(face).mask(), 0U);

  choice.setBit(0, 1, true);
  sync().update(choice);
  EXPECT_FALSE(node.getChildValue(sync().nodeOf(first)));
  EXPECT_EQ(polygon(face).mask(), ~0U);
  expectLikeFresh();
}

TEST_F(SyncNodes, ASwitchWithoutACurrentMaskShowsAll)
{
  auto& choice = build.add<SwitchRecord>(group);
  auto& first = build.add<ObjectRecord>(choice);
  choice.setBit(0, 0, false);
  EXPECT_EQ(choice.currentMask(), -1);
  EXPECT_TRUE(dynamic_cast<osg::Switch&>(*sync().nodeOf(choice)).getChildValue(sync().nodeOf(first)));
}

TEST_F(SyncNodes, TheBitsOfASwitchFollowItsChildren)
{
  auto& choice = build.add<SwitchRecord>(group);
  auto& first = build.add<ObjectRecord>(choice);
  auto& second = build.add<ObjectRecord>(choice);
  choice.set(SwitchRecord::fields.currentMask, 0);
  choice.setBit(0, 0, false);
  const auto& node = dynamic_cast<osg::Switch&>(*sync().nodeOf(choice));
  EXPECT_FALSE(node.getChildValue(sync().nodeOf(first)));
  const osg::ref_ptr<ObjectRecord> removed = &first;
  sync().remove(first);
  choice.removeChild(&first);
  sync().update(choice);
  EXPECT_TRUE(node.getChildValue(sync().nodeOf(second)));
  expectLikeFresh();
}

TEST_F(SyncNodes, ASwitchMayHaveAMatrix)
{
  auto& choice = build.add<SwitchRecord>(group);
  auto& child = build.add<ObjectRecord>(choice);
  choice.set(SwitchRecord::fields.currentMask, 0);
  choice.setBit(0, 0, false);
  sync();
  sync().update(build.translation(choice, {0, 0, 5}));
  const auto& top = *sync().nodeOf(choice);
  EXPECT_EQ(dynamic_cast<const osg::MatrixTransform&>(top).getMatrix().getTrans(), osg::Vec3d(0, 0, 5));
  const auto& inner = dynamic_cast<const osg::Switch&>(*top.asGroup()->getChild(0));
  EXPECT_FALSE(inner.getChildValue(sync().nodeOf(child)));
  expectLikeFresh();
}

TEST_F(SyncNodes, ReferencesToAnInstanceShareItsBody)
{
  auto& definition = build.definition(3);
  auto& one = build.reference(group, 3);
  auto& two = build.reference(object, 3);
  const auto* body = sync().nodeOf(*definition.firstPrimaryChild());
  ASSERT_TRUE(body);
  EXPECT_EQ(body->getParentalNodePaths().size(), 2U);
  EXPECT_THAT(sync().referencesTo(definition), testing::UnorderedElementsAre(&one, &two));

  sync().remove(one);
  EXPECT_EQ(body->getParentalNodePaths().size(), 1U);
  EXPECT_THAT(sync().referencesTo(definition), testing::ElementsAre(&two));
  sync().remove(two);
  EXPECT_FALSE(sync().nodeOf(*definition.firstPrimaryChild()));
  sync().translate(two);
  EXPECT_TRUE(sync().nodeOf(*definition.firstPrimaryChild()));
}

TEST_F(SyncNodes, AFaceCanBeTheBodyOfAnInstance)
{
  auto* definition = build.file().create<InstanceDefinitionRecord>();
  definition->set(InstanceDefinitionRecord::fields.instanceNumber, std::uint16_t{4});
  build.file().addInstanceDefinition(*definition);
  auto& face = build.square(*definition, 0, 0);
  build.reference(group, 4);
  EXPECT_TRUE(sync().polygonOf(face));
}

TEST_F(SyncNodes, AnInstanceThatLeadsBackToItselfIsShownOnce)
{
  auto& definition = build.definition(1);
  build.reference(definition, 1);
  auto& other = build.definition(2);
  build.reference(definition, 2);
  build.reference(other, 1);
  build.reference(group, 1);
  // A cycle in the scene would never end here.
  EXPECT_TRUE(sync().root()->getBound().valid());
  expectLikeFresh();
}

TEST_F(SyncNodes, AReferenceFindsADefinitionThatComesLater)
{
  auto& reference = build.reference(group, 9);
  EXPECT_EQ(sync().stateCount(), 0);
  auto& definition = build.definition(9);
  EXPECT_FALSE(sync().nodeOf(*definition.firstPrimaryChild()));
  sync().translate(definition);
  EXPECT_TRUE(sync().nodeOf(*definition.firstPrimaryChild()));
  EXPECT_THAT(sync().referencesTo(definition), testing::ElementsAre(&reference));
}

TEST_F(SyncNodes, RemovingASubtreeForgetsAllOfIt)
{
  auto& face = build.square(object, 0, 0);
  auto& inner = build.add<GroupRecord>(object);
  sync().remove(group);
  EXPECT_FALSE(sync().nodeOf(group));
  EXPECT_FALSE(sync().nodeOf(object));
  EXPECT_FALSE(sync().nodeOf(inner));
  EXPECT_FALSE(sync().polygonOf(face));
  EXPECT_EQ(sync().root()->getNumChildren(), 0U);
  sync().translate(group);
  EXPECT_TRUE(sync().polygonOf(face));
  expectLikeFresh();
}

TEST_F(SyncNodes, RemovingANodeIsLogged)
{
  sync();
  const LogCapture log(osg::INFO);
  sync().remove(object);
  EXPECT_EQ(log.text(), "After removing associations\nAfter removing node\n");
}

TEST_F(SyncNodes, TheHeaderCannotBeRemoved)
{
  sync().remove(build.header());
  EXPECT_TRUE(sync().nodeOf(group));
}

TEST_F(SyncNodes, RoadConstructionsAndOtherGatheringNodesAreGroups)
{
  auto& road = build.add<RoadConstructionRecord>(group);
  auto& onRoad = build.square(build.add<ObjectRecord>(road), 0, 0);
  auto& bsp = build.add<BspRecord>(group);
  auto& onBsp = build.square(build.add<ObjectRecord>(bsp), 0, 0);
  EXPECT_TRUE(sync().polygonOf(onRoad));
  EXPECT_TRUE(sync().polygonOf(onBsp));
}
