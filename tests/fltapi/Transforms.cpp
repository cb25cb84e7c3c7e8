// Steps of transformations, the chains that they form, and their repair.
#include "fltapi/transforms/TransformRecords.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/transforms/Frame.h"
#include "fltapi/transforms/TransformChain.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

#include <cmath>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string corrected = "At least one transformation was corrected.";
const std::string zeroed = "At least one N/A value was changed to zero.";

MATCHER_P3(IsNear, x, y, z, "")
{
  return (arg - osg::Vec3d(x, y, z)).length() < 1e-5;
}

class TransformSteps : public testing::Test {
protected:
  TransformSteps() { file->initNew(); }
  template <class T>
  osg::ref_ptr<T> step()
  {
    return file->create<T>();
  }
  osg::ref_ptr<FltFile> file = new FltFile;
};

TEST_F(TransformSteps, ofNewRecordsChangeNothing)
{
  EXPECT_TRUE(step<MatrixRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<GeneralMatrixRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<TranslateRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<ScaleRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<RotateAboutPointRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<RotateAboutEdgeRecord>()->matrix().isIdentity());
  EXPECT_TRUE(step<PutTransformRecord>()->matrix().isIdentity());
}

TEST_F(TransformSteps, translateByTheirDelta)
{
  const auto record = step<TranslateRecord>();
  record->set(TranslateRecord::fields.from, {100, 100, 100});
  record->set(TranslateRecord::fields.delta, {1, 2, 3});
  EXPECT_THAT(osg::Vec3d(10, 10, 10) * record->matrix(), IsNear(11, 12, 13));
}

TEST_F(TransformSteps, scaleAboutTheirCenter)
{
  const auto record = step<ScaleRecord>();
  record->set(ScaleRecord::fields.center, {1, 1, 1});
  record->set(ScaleRecord::fields.scale, {2, 3, 0.5f});
  EXPECT_THAT(osg::Vec3d(1, 1, 1) * record->matrix(), IsNear(1, 1, 1));
  EXPECT_THAT(osg::Vec3d(2, 2, 3) * record->matrix(), IsNear(3, 4, 2));
  record->set(ScaleRecord::fields.center, {-1.0e8, -1.0e8, -1.0e8}); // not available
  EXPECT_THAT(osg::Vec3d(2, 2, 2) * record->matrix(), IsNear(4, 6, 1));
}

TEST_F(TransformSteps, rotateAboutAPoint)
{
  const auto record = step<RotateAboutPointRecord>();
  record->set(RotateAboutPointRecord::fields.center, {1, 0, 0});
  record->set(RotateAboutPointRecord::fields.axis, {0, 0, 3});
  record->set(RotateAboutPointRecord::fields.angle, 90.0f);
  EXPECT_THAT(osg::Vec3d(2, 0, 5) * record->matrix(), IsNear(1, 1, 5));
  EXPECT_THAT(osg::Vec3d(1, 0, 7) * record->matrix(), IsNear(1, 0, 7));
}

TEST_F(TransformSteps, rotateAboutAnEdge)
{
  const auto record = step<RotateAboutEdgeRecord>();
  record->set(RotateAboutEdgeRecord::fields.point1, {0, 0, 1});
  record->set(RotateAboutEdgeRecord::fields.point2, {5, 0, 1});
  record->set(RotateAboutEdgeRecord::fields.angle, -90.0f);
  EXPECT_THAT(osg::Vec3d(3, 0, 1) * record->matrix(), IsNear(3, 0, 1));
  EXPECT_THAT(osg::Vec3d(3, 2, 1) * record->matrix(), IsNear(3, 0, -1));
  record->set(RotateAboutEdgeRecord::fields.point2, {0, 0, 1}); // no edge
  EXPECT_TRUE(record->matrix().isIdentity());
}

TEST_F(TransformSteps, turnAndStretchOnePointOntoAnother)
{
  const auto record = step<RotateScaleToPointRecord>();
  const auto& fields = RotateScaleToPointRecord::fields;
  record->set(fields.center, {1, 1, 1});
  record->set(fields.reference, {3, 1, 1});
  record->set(fields.to, {1, 4, 1});
  record->set(fields.angle, 90.0f);
  record->set(fields.overallScale, 1.0f);
  record->set(fields.directionScale, 1.5f);
  const auto matrix = record->matrix();
  EXPECT_THAT(osg::Vec3d(1, 1, 1) * matrix, IsNear(1, 1, 1));
  EXPECT_THAT(osg::Vec3d(3, 1, 1) * matrix, IsNear(1, 4, 1));  // stretched along its own direction, then turned
  EXPECT_THAT(osg::Vec3d(1, 3, 1) * matrix, IsNear(-1, 1, 1)); // across only turned
  record->set(fields.overallScale, 2.0f);
  EXPECT_THAT(osg::Vec3d(1, 3, 1) * record->matrix(), IsNear(-3, 1, 1));
}

TEST_F(TransformSteps, putOneFrameOntoAnother)
{
  const auto record = step<PutTransformRecord>();
  const auto& fields = PutTransformRecord::fields;
  record->set(fields.fromOrigin, {1, 0, 0});
  record->set(fields.fromAlign, {2, 0, 0});
  record->set(fields.fromTrack, {1, 1, 0});
  record->set(fields.toOrigin, {0, 0, 5});
  record->set(fields.toAlign, {0, 10, 5});
  record->set(fields.toTrack, {0, 0, 9});
  const auto matrix = record->matrix();
  EXPECT_THAT(osg::Vec3d(1, 0, 0) * matrix, IsNear(0, 0, 5));
  EXPECT_THAT(osg::Vec3d(2, 0, 0) * matrix, IsNear(0, 1, 5)); // rigid: the distance of the align point doesn't scale
  EXPECT_THAT(osg::Vec3d(1, 1, 0) * matrix, IsNear(0, 0, 6));
  EXPECT_THAT(osg::Vec3d(1, 0, 1) * matrix, IsNear(1, 0, 5));
}

TEST_F(TransformSteps, takeGeneralMatricesAsTheyStand)
{
  const auto record = step<GeneralMatrixRecord>();
  osg::Matrixd matrix(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  record->setMatrix(matrix);
  EXPECT_EQ(record->matrix(), matrix);
  EXPECT_EQ(loadAt<float>(record->data() + 4 + 4 * 12), 13.0f); // row after row
}

TEST(Frames, haveTheirAxesThroughTheirPoints)
{
  const auto frame = frameOf({1, 2, 3}, {1, 7, 3}, {1, 2, 4});
  EXPECT_THAT(osg::Vec3d(0, 0, 0) * frame, IsNear(1, 2, 3));
  EXPECT_THAT(osg::Vec3d(1, 0, 0) * frame, IsNear(1, 3, 3));
  EXPECT_THAT(osg::Vec3d(0, 1, 0) * frame, IsNear(1, 2, 4));
  EXPECT_THAT(osg::Vec3d(0, 0, 1) * frame, IsNear(2, 2, 3));
}

TEST(Frames, withoutDirectionsAreThoseOfTheWorld)
{
  for (const auto& frame : {frameOf({1, 2, 3}, {1, 2, 3}, {5, 5, 5}), frameOf({1, 2, 3}, {2, 3, 4}, {3, 4, 5})}) {
    EXPECT_THAT(osg::Vec3d(1, 0, 0) * frame, IsNear(2, 2, 3));
    EXPECT_THAT(osg::Vec3d(0, 0, 1) * frame, IsNear(1, 2, 4));
  }
}

// ---- degrees of freedom
// ----------------------------------------------------------------------------------------------

class DegreesOfFreedom : public TransformSteps {
protected:
  osg::ref_ptr<DofRecord> dof = file->create<DofRecord>();
  const DofFields& fields = DofRecord::fields;
};

TEST_F(DegreesOfFreedom, atRestChangeNothing)
{
  EXPECT_THAT(osg::Vec3d(1, 2, 3) * dof->matrix(), IsNear(1, 2, 3));
}

TEST_F(DegreesOfFreedom, moveInTheirOwnFrame)
{
  dof->set(fields.origin, {10, 0, 0});
  dof->set(fields.pointOnXAxis, {10, 1, 0});
  dof->set(fields.pointInXYPlane, {9, 0, 0}); // so y is the world's -x
  dof->set(fields.x.current, 5.0);
  EXPECT_THAT(osg::Vec3d(1, 1, 1) * dof->matrix(), IsNear(1, 6, 1));
  dof->set(fields.x.current, 0.0);
  dof->set(fields.yaw.current, 90.0);
  EXPECT_THAT(osg::Vec3d(10, 0, 0) * dof->matrix(), IsNear(10, 0, 0));
  EXPECT_THAT(osg::Vec3d(11, 0, 2) * dof->matrix(), IsNear(10, 1, 2));
  dof->set(fields.yaw.current, 0.0);
  dof->set(fields.scaleX.current, 3.0);
  EXPECT_THAT(osg::Vec3d(11, 2, 4) * dof->matrix(), IsNear(11, 6, 4));
}

TEST_F(DegreesOfFreedom, scaleFirstThenTurnThenMove)
{
  dof->set(fields.scaleX.current, 2.0);
  dof->set(fields.yaw.current, 90.0);
  dof->set(fields.pitch.current, 90.0);
  dof->set(fields.z.current, 10.0);
  // Along x: scaled to 2, turned by yaw to y, by pitch to z, then moved up.
  EXPECT_THAT(osg::Vec3d(1, 0, 0) * dof->matrix(), IsNear(0, 0, 12));
  dof->set(fields.pitch.current, 0.0);
  dof->set(fields.yaw.current, 0.0);
  dof->set(fields.roll.current, 90.0);
  EXPECT_THAT(osg::Vec3d(1, 0, 0) * dof->matrix(), IsNear(0, 0, 8));
}

TEST_F(DegreesOfFreedom, takeTheWorldsAxesForPointsThatAreNotAvailable)
{
  for (const auto* point : {&fields.origin, &fields.pointOnXAxis, &fields.pointInXYPlane})
    dof->set(*point, {-1.0e8, -1.0e8, -1.0e8});
  dof->set(fields.x.current, 5.0);
  EXPECT_THAT(osg::Vec3d(1, 2, 3) * dof->matrix(), IsNear(6, 2, 3));
}

// ---- chains
// ----------------------------------------------------------------------------------------------------------

std::string translate(double x, double y, double z)
{
  return flt::record(78, flt::Bytes().u32(0).vector(0, 0, 0).vector(x, y, z));
}

std::string scale(float factor)
{
  return flt::record(79, flt::Bytes().u32(0).vector(0, 0, 0).f32(factor).f32(factor).f32(factor).u32(0));
}

/// A half turn about the edge from the origin along z.
std::string halfTurn()
{
  return flt::record(76, flt::Bytes().u32(0).vector(0, 0, 0).vector(0, 0, 1).f32(180).u32(0));
}

std::string put()
{
  return flt::record(
      82, flt::Bytes().u32(0).vector(0, 0, 0).vector(1, 0, 0).vector(0, 1, 0).vector(0, 0, 0).vector(1, 0, 0).vector(
              0, 1, 0));
}

std::string scaleAndMove(float factor, float x, float y, float z)
{
  return flt::matrix({factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, factor, 0, x, y, z, 1});
}

class TransformChains : public testing::Test {
protected:
  osg::ref_ptr<FltFile> groupWith(const std::string& ancillaries)
  {
    bench.host.warnings.clear();
    return bench.load(flt::file(flt::group("g1") + ancillaries + flt::level(flt::object("o1"))));
  }
  std::vector<int> opcodesIn(FltFile& file)
  {
    auto found = childOpcodes(*first<GroupRecord>(file));
    std::erase(found, opcodes::object);
    return found;
  }
  Workbench bench;
};

TEST_F(TransformChains, areMultipliedInFromTheLeft)
{
  const auto file = groupWith(translate(1, 2, 3) + scale(2));
  const auto steps = transformChain(*first<GroupRecord>(*file));
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_THAT(osg::Vec3d(1, 1, 1) * composeTransforms(steps), IsNear(3, 4, 5)); // the scale acts first
  EXPECT_TRUE(composeTransforms({}).isIdentity());
}

TEST_F(TransformChains, thatGiveTheirMatrixAreLeftAlone)
{
  const auto bytes = flt::generatedFile("transform-chain");
  const auto file = bench.load(bytes);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  EXPECT_FALSE(file->modified());
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(TransformChains, areNotMissedWhereAMatrixStandsAlone)
{
  const auto file = groupWith(scaleAndMove(3, 1, 2, 3));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  EXPECT_FALSE(file->modified());
  EXPECT_THAT(opcodesIn(*file), ElementsAre(49));
}

TEST_F(TransformChains, withoutAMatrixAreLeftAlone)
{
  const auto file = groupWith(translate(1, 2, 3) + halfTurn());
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  EXPECT_THAT(opcodesIn(*file), ElementsAre(78, 76));
}

TEST_F(TransformChains, inReverseOrderAreTurnedRound)
{
  const auto file = groupWith(scaleAndMove(2, 1, 2, 3) + scale(2) + translate(1, 2, 3));
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
  EXPECT_TRUE(file->modified());
  EXPECT_THAT(opcodesIn(*file), ElementsAre(49, 78, 79));
  const auto saved = bench.save(*file);
  EXPECT_EQ(flt::outline(saved), "1 32 67 [ 2 49 78 79 [ 4 ] ]");
  bench.host.warnings.clear();
  EXPECT_FALSE(bench.load(saved)->modified());
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(TransformChains, inFrontOfTheirMatrixAreMendedToo)
{
  const auto file = groupWith(scale(2) + translate(1, 2, 3) + flt::comment("text") + scaleAndMove(2, 1, 2, 3));
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
  EXPECT_THAT(opcodesIn(*file), ElementsAre(31, 49, 78, 79));
}

TEST_F(TransformChains, withARotationAboutAnEdgeReplaceAWrongMatrix)
{
  const auto file = groupWith(scaleAndMove(7, 7, 7, 7) + halfTurn() + translate(1, 2, 3));
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
  EXPECT_TRUE(file->modified());
  EXPECT_THAT(opcodesIn(*file), ElementsAre(49, 78, 76));
  const auto* matrix = first<GroupRecord>(*file)->findChild<MatrixRecord>();
  // In the new order the half turn acts first.
  EXPECT_THAT(osg::Vec3d(1, 1, 1) * matrix->matrix(), IsNear(0, 1, 4));
}

TEST_F(TransformChains, thatDoNotGiveTheirMatrixAreLeftAloneOtherwise)
{
  for (const auto& chain : {scale(2) + translate(1, 2, 3), put(), halfTurn() + put(),
                            halfTurn() + flt::sampleRecord(81), flt::record(94, flt::sampleRecord(49).substr(4))}) {
    const auto file = groupWith(scaleAndMove(7, 7, 7, 7) + chain);
    EXPECT_THAT(bench.host.warnings, IsEmpty());
    EXPECT_FALSE(file->modified());
    EXPECT_THAT(osg::Vec3d(1, 1, 1) * first<MatrixRecord>(*file)->matrix(), IsNear(14, 14, 14));
  }
}

TEST_F(TransformChains, mayDifferFromTheirMatrixByALittle)
{
  groupWith(scaleAndMove(2.00009f, 1, 2, 3) + translate(1, 2, 3) + scale(2));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  groupWith(scaleAndMove(2.0002f, 1, 2, 3) + translate(1, 2, 3) + scale(2) + halfTurn());
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
}

TEST_F(TransformChains, areToldOfOncePerFile)
{
  const auto wrong = scaleAndMove(2, 1, 2, 3) + scale(2) + translate(1, 2, 3);
  const auto file = bench.load(flt::file(flt::group("g1") + wrong + flt::group("g2") + wrong));
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
  for (const auto* group : file->header()->primaryChildren())
    EXPECT_THAT(childOpcodes(*group), ElementsAre(49, 78, 79));
}

TEST_F(TransformChains, areMendedForEachMatrixInTurn)
{
  // The first matrix wants the chain turned round, the second one turns it back.
  const auto file = groupWith(scaleAndMove(2, 1, 2, 3) + scaleAndMove(2, 2, 4, 6) + scale(2) + translate(1, 2, 3));
  EXPECT_THAT(bench.host.warnings, ElementsAre(corrected));
  EXPECT_THAT(opcodesIn(*file), ElementsAre(49, 49, 79, 78));
}

TEST_F(TransformChains, areMendedInAQuietFileWithoutAWord)
{
  writeFile(bench.path(), flt::file(flt::group("g1") + scaleAndMove(2, 1, 2, 3) + scale(2) + translate(1, 2, 3)));
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->setQuiet(true);
  EXPECT_TRUE(file->load(bench.path()));
  EXPECT_TRUE(file->modified());
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

// ---- values that are not available
// -----------------------------------------------------------------------------------

class NotAvailable : public TransformChains {
protected:
  osg::Vec3d fromPoint(double x, double y, double z)
  {
    const auto file = groupWith(flt::record(78, flt::Bytes().u32(0).vector(x, y, z).vector(1, 2, 3)));
    modified = file->modified();
    return first<TranslateRecord>(*file)->get(TranslateRecord::fields.from);
  }
  bool modified = false;
};

TEST_F(NotAvailable, coordinatesBecomeZeroIfTheUserWants)
{
  EXPECT_EQ(fromPoint(-1.0e8, 0, 5), osg::Vec3d(0, 0, 5));
  EXPECT_TRUE(modified);
  EXPECT_THAT(bench.host.warnings, ElementsAre(zeroed));
  EXPECT_EQ(fromPoint(-1.0e8, -1.0e8, -1.0e8), osg::Vec3d());
  EXPECT_THAT(bench.host.warnings, ElementsAre(zeroed));
  bench.host.repairs = false;
  EXPECT_EQ(fromPoint(-1.0e8, 0, 5), osg::Vec3d(-1.0e8, 0, 5));
  EXPECT_FALSE(modified);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(NotAvailable, coordinatesAreMarkedByOneValueOnly)
{
  EXPECT_EQ(fromPoint(-1.0e8 - 1, 1.0e8, -0.99999e8), osg::Vec3d(-1.0e8 - 1, 1.0e8, -0.99999e8));
  EXPECT_FALSE(modified);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

} // namespace
} // namespace fltapi
