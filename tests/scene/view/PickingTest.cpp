#include "core/Shell.h"
#include "scene/image/ModUserData.h"
#include "tests/scene/view/PickingFixture.h"

#include <limits>

namespace nalt {
namespace {

using namespace fltapi;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

constexpr double unit = 10.0; // pixels

class Picking : public PickingFixture {
protected:
  std::string nameOf(const PrimNodeRecord* node) { return node->getName(); }

  LodRecord* makeLevel(double from, double to)
  {
    auto* level = make<LodRecord>(*group);
    level->set(LodRecord::fields.switchOut, from);
    level->set(LodRecord::fields.switchIn, to);
    return level;
  }
  template <class LightPoint = LightPointRecord>
  LightPoint* makeLight(PrimNodeRecord& parent, const osg::Vec3d& position)
  {
    return withCorners(make<LightPoint>(parent), {position});
  }
  MeshRecord* makeMesh(PrimNodeRecord& parent, const std::vector<osg::Vec3d>& positions)
  {
    using Pool = LocalVertexPoolRecord;
    auto* mesh = make<MeshRecord>(parent);
    auto* pool = model->fltFile()->create<Pool>();
    mesh->addChild(pool, /*append=*/true);
    pool->resize(12 + Pool::stride(Pool::position) * positions.size());
    pool->set(Pool::fields.vertexCount, static_cast<std::uint32_t>(positions.size()));
    pool->set(Pool::fields.attributeMask, std::uint32_t{Pool::position});
    auto* primitive = model->fltFile()->create<MeshPrimitiveRecord>();
    mesh->addChild(primitive, /*append=*/true);
    primitive->resize(12 + 4 * positions.size());
    primitive->set(MeshPrimitiveRecord::fields.type, std::int16_t{MeshPrimitiveRecord::triangleStrip});
    primitive->set(MeshPrimitiveRecord::fields.indexSize, std::int16_t{4});
    primitive->set(MeshPrimitiveRecord::fields.vertexCount, static_cast<std::uint32_t>(positions.size()));
    for (std::size_t i = 0; i < positions.size(); ++i) {
      FieldTraits<osg::Vec3d>::store(pool->data() + pool->offsetOf(static_cast<int>(i), Pool::position), positions[i]);
      storeAt(primitive->data() + 12 + 4 * i, static_cast<std::uint32_t>(i));
    }
    return mesh;
  }
  /// A definition with one square at the origin below an object.
  InstanceDefinitionRecord* makeDefinition(int number)
  {
    auto* definition = model->fltFile()->create<InstanceDefinitionRecord>();
    definition->set(InstanceDefinitionRecord::fields.instanceNumber, static_cast<std::uint16_t>(number));
    model->fltFile()->addInstanceDefinition(*definition);
    return definition;
  }
  InstanceReferenceRecord* makeReference(PrimNodeRecord& parent, int number)
  {
    auto* reference = make<InstanceReferenceRecord>(parent);
    reference->set(InstanceReferenceRecord::fields.instanceNumber, static_cast<std::uint16_t>(number));
    return reference;
  }
};

} // namespace

// ---- from the model to the window and back -------------------------------------------------------------------------

TEST_F(Picking, TheFixtureLooksDownAtTenPixelsForAUnit)
{
  EXPECT_NEAR(at(0, 0).x(), 400.0, 1e-6);
  EXPECT_NEAR(at(0, 0).y(), 300.0, 1e-6);
  EXPECT_NEAR(at(3, -2).x(), 430.0, 1e-6);
  EXPECT_NEAR(at(3, -2).y(), 280.0, 1e-6);
}

TEST_F(Picking, ARayLeadsThroughItsPixelInBothProjections)
{
  makeSquare(*object, 0, 0);
  for (const bool orthographic : {true, false}) {
    lookDown(orthographic);
    const osg::Vec2d pixel(123.0, 456.0);
    const auto ray = view().projection().rayAt(pixel);
    ASSERT_TRUE(ray);
    for (const auto& point : {ray->nearPoint, ray->farPoint}) {
      const auto back = view().projection().toWindow(point);
      ASSERT_TRUE(back);
      EXPECT_NEAR(back->x(), pixel.x(), 1e-4);
      EXPECT_NEAR(back->y(), pixel.y(), 1e-4);
    }
    EXPECT_GT(ray->nearPoint.z(), ray->farPoint.z());
  }
}

TEST_F(Picking, AWindowThatCannotBeLedBackIsReportedAndFindsNothing)
{
  makeSquare(*object, 0, 0);
  view();
  CameraPose pose;
  pose.centre.set(std::numeric_limits<double>::quiet_NaN(), 0, 0);
  view().camera().setPose(pose);
  for (const auto mode : {SelectionMode::polygon, SelectionMode::vertex}) {
    shell.mode = mode;
    shell.messages.clear();
    EXPECT_THAT(underMouse({400, 300}), IsEmpty());
    EXPECT_THAT(shell.messages, ElementsAre("WARNING: Couldn't project window coordinates into object coordinates"));
  }
}

TEST_F(Picking, WhatTheAutomaticClipShowsCanBePickedHoweverFarAwayItIs)
{
  const auto* face = makeSquare(*object, -1e6, -1e6, 0.0, 2e6);
  lookDown(/*orthographic=*/false);
  CameraPose pose;
  pose.distance = 3e6; // far beyond the far clip plane of the preferences
  view().camera().setPose(pose);
  EXPECT_THAT(underMouse({400, 300}), ElementsAre(nameOf(face)));
}

TEST_F(Picking, WhatTheAutomaticClipShowsCanBePickedHoweverNearItIs)
{
  const auto* face = makeSquare(*object, -0.005, -0.005, 0.0, 0.01);
  lookDown(/*orthographic=*/false);
  CameraPose pose;
  pose.distance = 0.02; // nearer than the near clip plane of the preferences
  view().camera().setPose(pose);
  EXPECT_THAT(underMouse({400, 300}), ElementsAre(nameOf(face)));
}

TEST_F(Picking, ClipPlanesOfThePreferencesHideFromPicksToo)
{
  makeSquare(*object, -1, -1, 0.0, 2.0);
  lookDown(/*orthographic=*/false);
  auto preferences = view().preferences();
  preferences.automaticClip = false;
  preferences.farClip = 50.0;
  view().setPreferences(preferences);
  EXPECT_THAT(underMouse({400, 300}), IsEmpty());
  preferences.farClip = 150.0;
  view().setPreferences(preferences);
  EXPECT_THAT(underMouse({400, 300}), SizeIs(1));
}

// ---- tolerance -----------------------------------------------------------------------------------------------------

TEST_F(Picking, AVertexIsHitFivePixelsAwayAndNotSeven)
{
  makeSquare(*object, 0, 0, 0.0, 20.0);
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(0, 0) - osg::Vec2d(5, 0)), SizeIs(1));
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(0, 5)), SizeIs(1));
  EXPECT_THAT(underMouse(at(0, 0) - osg::Vec2d(7, 0)), IsEmpty());
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(0, 7)), IsEmpty());
}

TEST_F(Picking, TheToleranceIsThatOfThePreferences)
{
  makeSquare(*object, 0, 0, 0.0, 20.0);
  shell.mode = SelectionMode::vertex;
  view();
  Preferences::get().pickTolerance = 20;
  EXPECT_THAT(underMouse(at(0, 0) - osg::Vec2d(19, 0)), SizeIs(1));
  Preferences::get().pickTolerance = 0;
  EXPECT_THAT(underMouse(at(0, 0) - osg::Vec2d(1, 0)), IsEmpty());
  EXPECT_THAT(underMouse(at(0, 0)), SizeIs(1));
}

TEST_F(Picking, AClickInVertexModeFindsAllCornersThatMeetThere)
{
  const auto* left = makeSquare(*object, -1, 0);
  const auto* right = makeSquare(*object, 0, 0);
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(0, 0)), UnorderedElementsAre(nameOf(left) + "/V1", nameOf(right) + "/V0"));
}

TEST_F(Picking, AnEdgeNeedsOnlyComeNearTheMouse)
{
  const auto* face = makeSquare(*object, 0, 0, 0.0, 20.0);
  shell.mode = SelectionMode::edge;
  EXPECT_THAT(underMouse(at(10, 0) - osg::Vec2d(0, 5)), ElementsAre(nameOf(face) + "/E0"));
  EXPECT_THAT(underMouse(at(20, 10)), ElementsAre(nameOf(face) + "/E1"));
  EXPECT_THAT(underMouse(at(0, 10)), ElementsAre(nameOf(face) + "/E3")); // the one back to the first corner
  EXPECT_THAT(underMouse(at(10, 10)), IsEmpty());
  EXPECT_THAT(underMouse(at(10, 0) - osg::Vec2d(0, 7)), IsEmpty());
}

TEST_F(Picking, APolygonMustBeUnderTheMouse)
{
  makeSquare(*object, 0, 0);
  EXPECT_THAT(underMouse(at(0, 0) - osg::Vec2d(1, 0)), IsEmpty());
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(1, 1)), SizeIs(1));
}

// ---- clicks on surfaces --------------------------------------------------------------------------------------------

TEST_F(Picking, AClickFindsTheNearestPolygonAndADragAllThroughTheBox)
{
  makeSquare(*object, 0, 0, 0.0);
  const auto* top = makeSquare(*object, 0, 0, 5.0);
  makeSquare(*object, 0, 0, -5.0);
  for (const bool orthographic : {true, false}) {
    lookDown(orthographic);
    const auto middle = at({0.5, 0.5, 5.0});
    EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(top)));
    EXPECT_THAT(inRect(middle, middle + osg::Vec2d(1, 0)), SizeIs(3));
  }
}

TEST_F(Picking, ABandFromRightToLeftFindsTheSame)
{
  const auto* one = makeSquare(*object, 0, 0);
  const auto* two = makeSquare(*object, 5, 5);
  makeSquare(*object, 20, 20);
  const auto low = at(-1, -1);
  const auto high = at(7, 7);
  const auto both = UnorderedElementsAre(nameOf(one), nameOf(two));
  EXPECT_THAT(inRect(low, high), both);
  EXPECT_THAT(inRect(high, low), both);
  EXPECT_THAT(inRect({low.x(), high.y()}, {high.x(), low.y()}), both);
  EXPECT_THAT(inRect({high.x(), low.y()}, {low.x(), high.y()}), both);
}

TEST_F(Picking, BackFacesAreHit)
{
  const auto* face = makeFace(*object, {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}}); // seen from below
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(face)));
  EXPECT_THAT(inRect(at(0.2, 0.2), at(0.8, 0.8)), ElementsAre(nameOf(face)));
}

TEST_F(Picking, OfTwoInOnePlaneTheOneThatFacesTheViewerIsHit)
{
  const std::vector<osg::Vec3d> away = {{0, 0, 0}, {0, 4, 0}, {3, 3, 0}, {4, 0, 0}};
  makeFace(*object, away);
  const auto* facing = makeSquare(*object, 0, 0, 0.0, 4.0);
  makeFace(*object, away);
  EXPECT_THAT(underMouse(at(1.3, 1.7)), ElementsAre(nameOf(facing)));
}

TEST_F(Picking, ASubfaceIsHitBeforeThePolygonThatItLiesOn)
{
  auto* face = makeSquare(*object, 0, 0, 0.0, 4.0);
  const auto* subface = makeSquare(*face, 1, 1, 0.0, 2.0);
  EXPECT_THAT(underMouse(at(2.1, 2.3)), ElementsAre(nameOf(subface)));
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(face)));
}

TEST_F(Picking, TheNotchOfAConcavePolygonIsNoPartOfIt)
{
  const auto* face = makeFace(*object, {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {2, 1, 0}, {0, 4, 0}});
  EXPECT_THAT(underMouse(at(2, 3)), IsEmpty());
  EXPECT_THAT(inRect(at(1.9, 1.5), at(2.1, 1.6)), ElementsAre(nameOf(face))); // six pixels around reach it
  Preferences::get().pickTolerance = 0;
  EXPECT_THAT(inRect(at(1.9, 1.5), at(2.1, 1.6)), IsEmpty());
  EXPECT_THAT(underMouse(at(2, 0.5)), ElementsAre(nameOf(face)));
}

TEST_F(Picking, WhatLiesBehindTheEyeIsNotFound)
{
  makeSquare(*object, 0, 0, 500.0);
  const auto* below = makeSquare(*object, 0, 0, 0.0);
  lookDown(/*orthographic=*/false);
  const auto middle = at(0.5, 0.5);
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(below)));
  EXPECT_THAT(inRect({0, 0}, {800, 600}), ElementsAre(nameOf(below)));
}

TEST_F(Picking, WithoutASurfaceThereIsNothing)
{
  EXPECT_THAT(underMouse({400, 300}), IsEmpty());
  EXPECT_THAT(inRect({0, 0}, {800, 600}), IsEmpty());
}

// ---- boxes ---------------------------------------------------------------------------------------------------------

TEST_F(Picking, ABoxInTheMiddleOfALargePolygonFindsIt)
{
  const auto* face = makeSquare(*object, -30, -30, 0.0, 60.0);
  for (const bool orthographic : {true, false}) {
    lookDown(orthographic);
    EXPECT_THAT(inRect({400, 300}, {402, 302}), ElementsAre(nameOf(face)));
  }
}

TEST_F(Picking, ABoxThatOnlyAnEdgeCrossesFindsThePolygonAndTheEdge)
{
  const auto* face = makeFace(*object, {{-20, 0, 0}, {20, 0, 0}, {20, -10, 0}, {-20, -10, 0}});
  EXPECT_THAT(inRect(at(0, 0.2), at(1, 5)), ElementsAre(nameOf(face)));
  shell.mode = SelectionMode::edge;
  EXPECT_THAT(inRect(at(0, 0.2), at(1, 5)), ElementsAre(nameOf(face) + "/E0"));
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(inRect(at(0, 0.2), at(1, 5)), IsEmpty());
}

TEST_F(Picking, ABoxBesideAPolygonsCornerMissesIt)
{
  // A triangle whose box covers the rectangle while the triangle itself doesn't.
  makeFace(*object, {{0, 0, 0}, {20, 0, 0}, {0, 20, 0}});
  EXPECT_THAT(inRect(at(15, 15), at(18, 18)), IsEmpty());
}

TEST_F(Picking, ALineIsFoundByABoxAndNotByAClick)
{
  auto* line = makeFace(*object, {{0, 0, 0}, {10, 0, 0}});
  EXPECT_THAT(underMouse(at(5, 0)), IsEmpty());
  EXPECT_THAT(inRect(at(4, -1), at(6, 1)), ElementsAre(nameOf(line)));
  shell.mode = SelectionMode::edge;
  EXPECT_THAT(underMouse(at(5, 0)), SizeIs(1));
}

// ---- modes ---------------------------------------------------------------------------------------------------------

TEST_F(Picking, EachModeFindsTheNearestNodeOfItsKindAboveThePolygon)
{
  auto* level = makeLevel(0.0, 1e9);
  auto* dof = make<DofRecord>(*level);
  auto* choice = make<SwitchRecord>(*dof);
  auto* inner = make<GroupRecord>(*choice);
  auto* innermost = make<ObjectRecord>(*inner);
  const auto* face = makeSquare(*innermost, 0, 0);
  const std::vector<std::pair<SelectionMode, const PrimNodeRecord*>> expected = {
      {SelectionMode::polygon, face},
      {SelectionMode::object, innermost},
      {SelectionMode::group, inner},
      {SelectionMode::lod, level},
      {SelectionMode::dof, dof},
      {SelectionMode::switchNode, choice},
      {SelectionMode::header, model->fltFile()->header()},
  };
  for (const auto& [mode, node] : expected) {
    SCOPED_TRACE(infoOf(mode).name);
    shell.mode = mode;
    EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(node)));
    EXPECT_THAT(inRect(at(-1, -1), at(2, 2)), ElementsAre(nameOf(node)));
  }
  for (const auto mode : {SelectionMode::external, SelectionMode::lightPoint, SelectionMode::lightPointSystem}) {
    SCOPED_TRACE(infoOf(mode).name);
    shell.mode = mode;
    EXPECT_THAT(underMouse(at(0.5, 0.5)), IsEmpty());
    EXPECT_THAT(inRect(at(-1, -1), at(2, 2)), IsEmpty());
  }
}

TEST_F(Picking, TheNearestSurfaceDecidesEvenWhenNothingOfTheKindIsAboveIt)
{
  auto* dof = make<DofRecord>(*group);
  makeSquare(*make<ObjectRecord>(*dof), 0, 0, 0.0);
  makeSquare(*object, 0, 0, 5.0);
  shell.mode = SelectionMode::dof;
  EXPECT_THAT(underMouse(at(0.5, 0.5)), IsEmpty());
  EXPECT_THAT(inRect(at(0.2, 0.2), at(0.8, 0.8)), ElementsAre(nameOf(dof)));
}

TEST_F(Picking, LightPointsAreFoundNearTheMouseInTheirOwnModes)
{
  auto* system = make<LightPointSystemRecord>(*group);
  const auto* light = makeLight(*system, {0, 0, 0});
  const auto* indexed = makeLight<IndexedLightPointRecord>(*group, {10, 0, 0});
  shell.mode = SelectionMode::lightPoint;
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(5, 0)), ElementsAre(nameOf(light)));
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(7, 0)), IsEmpty());
  EXPECT_THAT(underMouse(at(10, 0)), ElementsAre(nameOf(indexed)));
  shell.mode = SelectionMode::lightPointSystem;
  EXPECT_THAT(underMouse(at(0, 0) + osg::Vec2d(5, 0)), ElementsAre(nameOf(system)));
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(10, 0)), ElementsAre(nameOf(indexed) + "/V0"));
  for (const auto mode : {SelectionMode::polygon, SelectionMode::group, SelectionMode::edge}) {
    shell.mode = mode;
    EXPECT_THAT(inRect(at(-1, -1), at(11, 1)), IsEmpty());
  }
}

TEST_F(Picking, AMeshIsASurfaceOfItsObjectAndHasNoVerticesOfItsOwn)
{
  makeMesh(*object, {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {2, 2, 0}});
  shell.mode = SelectionMode::object;
  EXPECT_THAT(underMouse(at(1.5, 1.5)), ElementsAre(nameOf(object)));
  EXPECT_THAT(inRect(at(0.8, 0.8), at(0.9, 0.9)), ElementsAre(nameOf(object)));
  for (const auto mode : {SelectionMode::polygon, SelectionMode::vertex, SelectionMode::edge}) {
    shell.mode = mode;
    EXPECT_THAT(underMouse(at(0.1, 0.1)), IsEmpty());
  }
}

// ---- what stands above ---------------------------------------------------------------------------------------------

TEST_F(Picking, MatricesMoveWhatIsHit)
{
  const auto* face = makeSquare(*object, 0, 0);
  makeTranslation(*object, {10, 0, 0});
  makeTranslation(*group, {0, 5, 0});
  EXPECT_THAT(underMouse(at(0.5, 0.5)), IsEmpty());
  EXPECT_THAT(underMouse(at(10.5, 5.5)), ElementsAre(nameOf(face)));
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(10, 5)), ElementsAre(nameOf(face) + "/V0"));
}

TEST_F(Picking, ADofMovesWhatIsHit)
{
  auto* dof = make<DofRecord>(*group);
  dof->set(DofRecord::fields.pointOnXAxis, osg::Vec3d(1, 0, 0));
  dof->set(DofRecord::fields.pointInXYPlane, osg::Vec3d(0, 1, 0));
  dof->set(DofRecord::fields.x.current, 7.0);
  const auto* face = makeSquare(*make<ObjectRecord>(*dof), 0, 0);
  EXPECT_THAT(underMouse(at(7.5, 0.5)), ElementsAre(nameOf(face)));
  EXPECT_THAT(underMouse(at(0.5, 0.5)), IsEmpty());
}

TEST_F(Picking, WhatASwitchOrALevelOfDetailHidesIsNotHit)
{
  auto* choice = make<SwitchRecord>(*group);
  makeSquare(*make<ObjectRecord>(*choice), 0, 0, 5.0);
  choice->set(SwitchRecord::fields.currentMask, 0);
  choice->setBit(0, 0, false);
  const auto* near = makeSquare(*make<ObjectRecord>(*makeLevel(0.0, 100.0)), 0, 0, 0.0);
  const auto* far = makeSquare(*make<ObjectRecord>(*makeLevel(100.0, 1000.0)), 0, 0, 2.0);
  const auto middle = at(0.5, 0.5);
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(near)));
  EXPECT_THAT(inRect(at(-1, -1), at(2, 2)), ElementsAre(nameOf(near)));
  model->sync()->setLodState(0);
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(far)));
}

TEST_F(Picking, WhatIsHiddenInThisViewportIsNotHit)
{
  auto* face = makeSquare(*object, 0, 0, 5.0);
  const auto* below = makeSquare(*object, 0, 0, 0.0);
  view();
  const auto middle = at(0.5, 0.5);
  ModUserData::of(*face).setVisible(false, 2U, *model->sync(), /*traverse=*/true); // in some other viewport
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(face)));
  ModUserData::of(*face).setVisible(false, 1U, *model->sync(), /*traverse=*/true);
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(below)));
  EXPECT_THAT(inRect(at(-1, -1), at(2, 2)), ElementsAre(nameOf(below)));
}

TEST_F(Picking, EveryCopyOfAReplicatedFaceIsTheFace)
{
  auto* face = makeSquare(*object, 0, 0);
  auto* replicate = model->fltFile()->create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, std::int16_t{2});
  face->insertAncillary(replicate);
  makeTranslation(*face, {5, 0, 0});
  for (const double x : {0.5, 5.5, 10.5})
    EXPECT_THAT(underMouse(at(x, 0.5)), ElementsAre(nameOf(face)));
  EXPECT_THAT(inRect(at(-1, -1), at(12, 2)), ElementsAre(nameOf(face)));
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(10, 0)), ElementsAre(nameOf(face) + "/V0"));
  EXPECT_EQ(view().picker().cornerNear(at(10, 0)), osg::Vec3d(10, 0, 0));
}

TEST_F(Picking, AnInstanceIsHitThroughEachReferenceWithWhatStandsAboveThat)
{
  auto* definition = makeDefinition(1);
  const auto* face = makeSquare(*make<ObjectRecord>(*definition), 0, 0);
  auto* left = make<GroupRecord>(*group);
  auto* right = make<GroupRecord>(*group);
  makeTranslation(*right, {10, 0, 0});
  makeReference(*left, 1);
  makeReference(*right, 1);
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(face)));
  EXPECT_THAT(underMouse(at(10.5, 0.5)), ElementsAre(nameOf(face)));
  shell.mode = SelectionMode::group;
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(left)));
  EXPECT_THAT(underMouse(at(10.5, 0.5)), ElementsAre(nameOf(right)));
  EXPECT_THAT(inRect(at(-1, -1), at(12, 2)), UnorderedElementsAre(nameOf(left), nameOf(right)));
}

TEST_F(Picking, ContentOfAnExternalReferenceIsHitAndSoIsTheReference)
{
  const osg::ref_ptr<FltFile> other = new FltFile;
  other->initNew();
  auto* inside = make<GroupRecord>(*other->header());
  const auto* face = makeSquare(*make<ObjectRecord>(*inside), 0, 0);
  auto* external = make<ExternalRecord>(*group);
  external->set(ExternalRecord::fields.path, std::string("other.flt"));
  external->show(other, "other.flt");
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(face)));
  shell.mode = SelectionMode::group;
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre(nameOf(inside)));
  shell.mode = SelectionMode::external;
  EXPECT_THAT(underMouse(at(0.5, 0.5)), ElementsAre("other.flt"));
}

TEST_F(Picking, WhatHangsBesideTheModelIsNotHit)
{
  const auto* face = makeSquare(*object, 0, 0);
  const osg::ref_ptr<osg::Geometry> shield = osg::createTexturedQuadGeometry({-5, -5, 5}, {10, 0, 0}, {0, 10, 0});
  model->sceneExtras()->addChild(shield);
  const auto middle = at(0.5, 0.5);
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(face)));
  model->sceneRoot()->addChild(shield); // stands for no record
  EXPECT_THAT(underMouse(middle), ElementsAre(nameOf(face)));
}

// ---- positions -----------------------------------------------------------------------------------------------------

TEST_F(Picking, TheSurfaceUnderTheMouseIsTheNearestOne)
{
  makeSquare(*object, 0, 0, 0.0);
  makeSquare(*object, 0, 0, 5.0);
  const auto point = view().picker().surfaceAt(at(0.25, 0.5));
  ASSERT_TRUE(point);
  EXPECT_NEAR(point->x(), 0.25, 1e-5);
  EXPECT_NEAR(point->y(), 0.5, 1e-5);
  EXPECT_NEAR(point->z(), 5.0, 1e-5);
  EXPECT_FALSE(view().picker().surfaceAt(at(3, 3)));
}

TEST_F(Picking, TheCornerNextToTheMouseHasAllDigitsOfTheRecord)
{
  const osg::Vec3d exact(0.1234567890123, 0.2, 0.3);
  makeFace(*object, {exact, {0.5, 0.2, 0.3}, {0.5, 3.2, 0.3}});
  makeTranslation(*object, {8, 0, 0});
  const auto corner = view().picker().cornerNear(at({8.12, 0.2, 0.3}) - osg::Vec2d(1, 0));
  ASSERT_TRUE(corner);
  EXPECT_EQ(*corner, exact + osg::Vec3d(8, 0, 0));
  EXPECT_FALSE(view().picker().cornerNear(at(20, 20)));
}

TEST_F(Picking, ACornerThatIsDrawnElsewhereIsWhereTheRecordHasIt)
{
  const auto* face = makeSquare(*object, 0, 0, 0.0, 4.0);
  view();
  const auto* polygon = model->sync()->polygonOf(*face);
  auto& drawn = static_cast<osg::Vec3Array&>(*polygon->geometry()->getVertexArray());
  drawn[static_cast<std::size_t>(polygon->getFirst())].set(1, 1, 0); // as when polygons are drawn shrunk
  const auto corner = view().picker().cornerNear(at(1, 1));
  ASSERT_TRUE(corner);
  EXPECT_EQ(*corner, osg::Vec3d(0, 0, 0));
}

TEST_F(Picking, ShrunkPolygonsAreHitWhereTheyAreDrawn)
{
  const auto* left = makeSquare(*object, -10, 0, 0.0, 10.0);
  makeSquare(*object, 0, 0, 0.0, 10.0);
  EXPECT_EQ(underMouse(at(-0.1, 5)), std::vector{left->getName()});
  auto style = view().style();
  style.shrunkPolygons = true;
  view().setStyle(style);
  EXPECT_THAT(underMouse(at(-0.1, 5)), testing::IsEmpty()) << "the gap between the two";
  EXPECT_EQ(underMouse(at(-0.6, 5)), std::vector{left->getName()});

  Preferences::get().pickTolerance = 2;
  shell.mode = SelectionMode::vertex;
  EXPECT_THAT(underMouse(at(0, 0)), testing::IsEmpty());
  EXPECT_EQ(underMouse(at(-0.5, 0.5)).size(), 1U) << "one corner of the two that meet";
  EXPECT_EQ(view().picker().cornerNear(at(0.5, 0.5)), osg::Vec3d(0, 0, 0)) << "where the record has it";
  shell.mode = SelectionMode::edge;
  EXPECT_EQ(underMouse(at(-0.5, 5)).size(), 1U);
  const auto edge = view().picker().edgeIn({at(0.5, 5), at(0.5, 5)});
  ASSERT_TRUE(edge);
  EXPECT_EQ(edge->from, osg::Vec3d(0, 10, 0));
  EXPECT_EQ(edge->to, osg::Vec3d(0, 0, 0));
}

TEST_F(Picking, OfTwoCornersInLineTheOneInFrontIsTaken)
{
  makeSquare(*object, 0, 0, 0.0, 9.0);
  makeSquare(*object, 0, 0, 4.0, 9.0);
  makeSquare(*object, 0, 0, -4.0, 9.0);
  const auto corner = view().picker().cornerNear(at(0, 0));
  ASSERT_TRUE(corner);
  EXPECT_EQ(corner->z(), 4.0);
}

TEST_F(Picking, TheEdgeOfARectangleIsInTheModelsCoordinates)
{
  makeSquare(*object, 0, 0, 0.0, 20.0);
  makeTranslation(*group, {0, 5, 0});
  const auto edge = view().picker().edgeIn({at(10, 5), at(10, 5)});
  ASSERT_TRUE(edge);
  EXPECT_EQ(edge->from, osg::Vec3d(0, 5, 0));
  EXPECT_EQ(edge->to, osg::Vec3d(20, 5, 0));
}

TEST_F(Picking, PlacesFarFromTheOriginAreHitAsWell)
{
  // Coordinates as maps have them, where a corner of the scene is right to half a unit.
  const auto* face = makeSquare(*object, 500000.0, 5400000.0, 0.0, 16.0);
  view();
  CameraPose pose = view().camera().pose();
  pose.centre.set(500008.0, 5400008.0, 0.0);
  view().camera().setPose(pose);
  EXPECT_THAT(underMouse({400, 300}), ElementsAre(nameOf(face)));
  EXPECT_THAT(underMouse(osg::Vec2d(400, 300) + osg::Vec2d(9 * unit, 0)), IsEmpty());
  EXPECT_THAT(inRect({300, 200}, {500, 400}), ElementsAre(nameOf(face)));
}

} // namespace nalt
