// How a tree grows from the records of a file, and what is said on the way.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string start = flt::header() + flt::padded(32, 4228) + flt::VertexPool().records();

class Loading : public testing::Test {
protected:
  Workbench bench;
};

TEST_F(Loading, saysNothingAboutASoundFile)
{
  const auto file = bench.load(flt::file(flt::group("g1")));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  EXPECT_THAT(bench.host.errors, IsEmpty());
  EXPECT_EQ(file->loadedVersion(), 1620);
  EXPECT_EQ(file->path(), bench.path());
  EXPECT_FALSE(file->modified());
  EXPECT_FALSE(file->reading());
}

TEST_F(Loading, reportsItsProgress)
{
  bench.load(flt::generatedFile("every-kind"));
  ASSERT_FALSE(bench.host.fractions.empty());
  EXPECT_TRUE(std::ranges::is_sorted(bench.host.fractions));
  EXPECT_GT(bench.host.fractions.front(), 0.0);
  EXPECT_EQ(bench.host.fractions.back(), 1.0);
}

TEST_F(Loading, ofAnEmptyPathFailsSilently)
{
  const osg::ref_ptr<FltFile> file = new FltFile;
  EXPECT_FALSE(file->load(""));
  EXPECT_THAT(bench.host.errors, IsEmpty());
}

TEST_F(Loading, ofAMissingFileFails)
{
  const osg::ref_ptr<FltFile> file = new FltFile;
  EXPECT_FALSE(file->load("/nowhere/at all.flt"));
  EXPECT_THAT(bench.host.errors, ElementsAre("Failed opening file /nowhere/at all.flt for reading."));
}

TEST_F(Loading, needsAHeaderAsTheFirstRecord)
{
  EXPECT_FALSE(bench.tryToLoad(flt::group("g1") + flt::header()));
  EXPECT_THAT(bench.host.errors, ElementsAre("Failed creating header record while reading " + bench.path() + "."));
}

TEST_F(Loading, isSilentForAQuietFile)
{
  writeFile(bench.path(), flt::header(1570) + flt::level(flt::comment("stray")));
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->setQuiet(true);
  EXPECT_FALSE(file->load(bench.path()));
  EXPECT_FALSE(file->load("/nowhere.flt"));
  EXPECT_FALSE(file->save("/nowhere/at/all.flt"));
  EXPECT_THAT(bench.host.errors, IsEmpty());
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  EXPECT_THAT(bench.host.fractions, IsEmpty());
}

TEST_F(Loading, leavesNothingOfAFileThatFailed)
{
  writeFile(bench.path(), start + flt::push + flt::instanceDefinition(1) + flt::group("g7") + flt::comment("c") +
                              flt::comment("c") + flt::push + flt::comment("stray"));
  const osg::ref_ptr<FltFile> file = new FltFile;
  EXPECT_FALSE(file->load(bench.path()));
  EXPECT_EQ(file->header(), nullptr);
  EXPECT_TRUE(file->instanceDefinitions().empty());
  EXPECT_EQ(file->totalBytes(), 0u);
  EXPECT_EQ(file->nextNumber(NameCounter::group), 1u);
}

TEST_F(Loading, replacesWhatTheFileHeldBefore)
{
  const auto file = bench.load(flt::generatedFile("nested-instances"));
  file->isNameTaken("g1");
  writeFile(bench.path(), flt::file(flt::group("g4")));
  EXPECT_TRUE(file->load(bench.path()));
  EXPECT_TRUE(file->instanceDefinitions().empty());
  EXPECT_FALSE(file->isNameTaken("g1"));
  EXPECT_TRUE(file->isNameTaken("g4"));
  EXPECT_TRUE(sameBytes(bench.save(*file), flt::file(flt::group("g4"))));
}

TEST_F(Loading, stopsAtAnAncillaryAmongNodes)
{
  EXPECT_FALSE(bench.tryToLoad(start + flt::level(flt::object("o1") + flt::level("") + flt::comment("stray"))));
  EXPECT_THAT(bench.host.warnings,
              ElementsAre("Can't read model.flt. Non-primary record found as child (31, CommentRecord)."));
  EXPECT_THAT(bench.host.errors, IsEmpty());
}

TEST_F(Loading, tellsWhereAFileIsDamaged)
{
  const auto sound = start + flt::push + flt::group("g1") + flt::push;
  EXPECT_FALSE(bench.tryToLoad(sound + flt::Bytes().i16(4).i16(3).str()));
  EXPECT_FALSE(bench.tryToLoad(sound + flt::object("o1").substr(0, 20)));
  EXPECT_FALSE(bench.tryToLoad(sound + std::string(3, '\0')));
  const auto at = std::to_string(sound.size());
  EXPECT_THAT(
      bench.host.warnings,
      ElementsAre("Can't read model.flt. The file is damaged at byte " + at + ": record length 3 is below 4.",
                  "Can't read model.flt. The file is damaged at byte " + at +
                      ": record length 28 reaches behind the end of the file.",
                  "Can't read model.flt. The file is damaged at byte " + at + ": the file ends inside a record."));
}

TEST_F(Loading, takesWhatStandsInFrontOfDamageOutsideOfAllLevels)
{
  const auto file = bench.load(flt::header() + flt::sampleRecord(113) + flt::Bytes().i16(113).i16(3).str());
  EXPECT_THAT(childOpcodes(*file->header()), ElementsAre(opcodes::materialPalette));
  EXPECT_THAT(bench.host.warnings,
              ElementsAre(HasSubstr("Can't read all of model.flt. The file is damaged at byte 408: record length 3")));
}

TEST_F(Loading, closesAllLevelsAtTheEndOfTheFile)
{
  const auto whole = flt::file(flt::group("g1") + flt::level(flt::object("o1") + flt::level(flt::face("p1"))));
  const auto saved = bench.roundTrip(whole);
  for (int missing = 1; missing <= 3; ++missing) {
    const auto cut = whole.substr(0, whole.size() - static_cast<std::size_t>(missing) * flt::pop.size());
    EXPECT_TRUE(sameBytes(bench.roundTrip(cut), saved)) << missing;
  }
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(Loading, ignoresWhatStandsBehindTheHeadersLevel)
{
  const auto whole = flt::file(flt::group("g1"));
  EXPECT_TRUE(sameBytes(bench.roundTrip(whole + flt::group("g2") + flt::pop + "no record at all"), whole));
  EXPECT_TRUE(sameBytes(bench.roundTrip(whole + flt::pop + flt::pop), whole));
}

TEST_F(Loading, endsALevelAtAStrayPop)
{
  const auto bytes = flt::header() + flt::level(flt::group("g1") + flt::pop + flt::group("g2"));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), "1 67 [ 2 ]");
}

TEST_F(Loading, ignoresAPushWithItsPopInsideALevel)
{
  const auto bytes = flt::file(flt::group("g1") + flt::level(flt::object("o1") + flt::level("") +
                                                             flt::level(flt::object("o2")) + flt::object("o3")));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), "1 32 67 [ 2 [ 4 4 4 ] ]");
}

TEST_F(Loading, takesTheChildrenOfAnUnknownNodeIntoItsLevel)
{
  const auto unknown = flt::record(151, flt::Bytes().text("unknown", 20));
  const auto bytes = flt::file(flt::group("g1") +
                               flt::level(flt::object("o1") + flt::push + flt::pop + unknown +
                                          flt::level(flt::object("o2")) + flt::object("o3")) +
                               flt::group("g2"));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), "1 32 67 [ 2 [ 4 4 4 ] 2 ]");
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(Loading, keepsUnknownRecordsBesideANode)
{
  const auto bytes = flt::generatedFile("unknown-ancillaries");
  const auto file = bench.load(bytes);
  int unknown = 0;
  for (const auto* child : file->header()->children())
    unknown += child->opcode() == 0;
  EXPECT_EQ(unknown, 10);
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(Loading, dropsExtensionsAndAttributes)
{
  const auto saved = bench.roundTrip(flt::generatedFile("skipped-sections"));
  EXPECT_EQ(flt::outline(saved), "1 32 67 [ 2 31 [ 4 ] ]");
}

TEST_F(Loading, endsAnAttributeSectionAtTheFirstPop)
{
  const auto pushAttribute = flt::padded(122, 8), popAttribute = flt::record(123);
  const auto bytes = flt::file(flt::group("g1") + pushAttribute + pushAttribute + flt::comment("gone") + popAttribute +
                               flt::comment("kept"));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), "1 32 67 [ 2 31 ]");
}

TEST_F(Loading, readsSubfacesOfSubfaces)
{
  const auto file = bench.load(flt::generatedFile("nested-subfaces"));
  auto* p1 = named(*file->header(), "p1");
  auto* p2 = named(*p1, "p2");
  EXPECT_EQ(p2->parent(), p1);
  EXPECT_EQ(named(*p2, "p3")->parent(), p2);
  EXPECT_EQ(named(*p1, "p4")->parent(), p1);
  EXPECT_EQ(named(*file->header(), "p7")->parent()->getName(), "p6");
}

TEST_F(Loading, dropsWhatIsNoNodeAmongSubfaces)
{
  const auto bytes =
      flt::file(flt::object("o1") +
                flt::level(flt::face("p1") + flt::pushSubface + flt::comment("gone") + flt::push + flt::record(4711) +
                           flt::face("p2") + flt::comment("kept") + flt::pop + flt::popSubface));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), "1 32 67 [ 4 [ 5 [ ] { 5 31 } ] ]");
}

TEST_F(Loading, readsLightPointsAsSubfacesToo)
{
  const auto bytes =
      flt::file(flt::object("o1") + flt::level(flt::face("p1") + flt::level("") +
                                               flt::subfaces(flt::node(111, "lp1") + flt::node(130, "lp2"))));
  EXPECT_EQ(flt::outline(bench.roundTrip(bytes)), flt::outline(bytes));
}

TEST_F(Loading, entersDefinitionsInTheFileInsteadOfTheTree)
{
  const auto file = bench.load(flt::generatedFile("nested-instances"));
  EXPECT_EQ(file->instanceDefinitions().size(), 2u);
  EXPECT_THAT(file->header()->findDescendants(opcodes::instanceDefinition, true), IsEmpty());
  EXPECT_EQ(file->instanceDefinition(1)->firstPrimaryChild()->getName(), "g1");
  EXPECT_EQ(file->instanceDefinition(1)->parent(), nullptr);
  EXPECT_EQ(file->instanceDefinition(3), nullptr);
}

TEST_F(Loading, warnsOfTwoDefinitionsWithOneNumberAndUsesTheFirst)
{
  const auto file = bench.load(flt::generatedFile("double-instance"));
  EXPECT_THAT(bench.host.warnings, ElementsAre("Instance 4 is defined more than once. The first definition is used."));
  EXPECT_EQ(file->instanceDefinition(4)->firstPrimaryChild()->getName(), "first");
}

TEST_F(Loading, takesRecordsOfAnyLongerLength)
{
  const auto file = bench.load(flt::generatedFile("padded-records"));
  EXPECT_EQ(first<GroupRecord>(*file)->length(), 48u);
  EXPECT_EQ(first<ObjectRecord>(*file)->length(), 32u);
  EXPECT_EQ(file->colorPalette()->length(), 4232u);
  EXPECT_EQ(first<FaceRecord>(*file)->vertexCount(), 3);
}

TEST_F(Loading, mendsFacesOf84BytesFromVersion1600On)
{
  const auto face84 = [](int opcode) {
    auto bytes = flt::padded(opcode, 84, flt::face("p1").substr(4));
    flt::patch(bytes, 76, flt::Bytes().i16(11).i16(22).i16(33).i16(44));
    return bytes;
  };
  for (const int version : {1580, 1600, 1620}) {
    const auto file = bench.load(flt::file(flt::object("o1") + flt::level(face84(5)), version));
    const auto* face = first<FaceRecord>(*file);
    EXPECT_EQ(face->length(), version < 1600 ? 84u : 80u) << version;
    EXPECT_EQ(face->get(FaceRecord::fields.shader), version < 1600 ? 22 : 33) << version;
  }
}

TEST_F(Loading, ofATwoDefinedShaderIndexGoesByItsVersion)
{
  // Before 16.0 the place is reserved.
  for (const int version : {1570, 1580}) {
    auto bytes = flt::face("p1");
    flt::patch(bytes, 78, flt::Bytes().i16(0));
    const auto file = bench.load(flt::file(flt::object("o1") + flt::level(bytes), version));
    EXPECT_EQ(first<FaceRecord>(*file)->get(FaceRecord::fields.shader), -1);
    const auto saved = flt::recordsOf(bench.save(*file, version), 5);
    EXPECT_EQ(saved.front().bytes(78, 2), std::string(2, '\0'));
  }
  auto bytes = flt::face("p1");
  flt::patch(bytes, 78, flt::Bytes().i16(0));
  const auto file = bench.load(flt::file(flt::object("o1") + flt::level(bytes), 1600));
  EXPECT_EQ(first<FaceRecord>(*file)->get(FaceRecord::fields.shader), 0);
}

TEST_F(Loading, givesShortRecordsTheDefaultsOfWhatTheyLack)
{
  const auto file = bench.load(flt::generatedFile("version-1570"));
  const auto* group = first<GroupRecord>(*file);
  EXPECT_EQ(group->length(), 44u);
  EXPECT_EQ(group->get(GroupRecord::fields.loopCount), 0);
  EXPECT_EQ(group->get(GroupRecord::fields.loopDuration), 0.0f);
  EXPECT_EQ(group->get(GroupRecord::fields.lastFrameDuration), 0.0f);
  EXPECT_EQ(first<LodRecord>(*file)->get(LodRecord::fields.significantSize), 0.0);
  EXPECT_EQ(file->header()->length(), 324u);

  const auto old = bench.load(flt::generatedFile("version-1420"));
  const auto* face = first<FaceRecord>(*old);
  EXPECT_EQ(face->get(FaceRecord::fields.textureMapping), -1);
  EXPECT_EQ(face->get(FaceRecord::fields.shader), -1);
}

// ---- versions
// --------------------------------------------------------------------------------------------------------

struct VersionMessages {
  int version;
  std::vector<std::string> messages;
};

TEST_F(Loading, tellsOfOtherVersions)
{
  const std::string unsupported = "model.flt is of an unsupported flight version (";
  const std::string behind = ".\nNalt will try to load it, but the file may not appear as expected.";
  const auto converted = [](const std::string& version) {
    return "Converted model.flt from version " + version + " to version 16.2.";
  };
  const std::vector<VersionMessages> table = {
      {1620, {}},
      {1600, {converted("16")}},
      {1580, {converted("15.8")}},
      {1575, {converted("15.75")}},
      {1570, {converted("15.7")}},
      {1569, {unsupported + "15.69) prior to 15.7" + behind, converted("15.69")}},
      {1420, {unsupported + "14.2) prior to 15.7" + behind, converted("14.2")}},
      {1000, {unsupported + "10) prior to 15.7" + behind, converted("10")}},
      {999, {unsupported + "999) prior to 15.7" + behind, converted("999")}},
      {12, {unsupported + "12) prior to 15.7" + behind, converted("12")}},
      {0, {unsupported + "0) prior to 15.7" + behind, converted("0")}},
      {-3, {unsupported + "-3) prior to 15.7" + behind, converted("-3")}},
      {1621, {unsupported + "16.21) after 16.2" + behind, converted("16.21")}},
      {1650, {unsupported + "16.5) after 16.2" + behind, converted("16.5")}},
  };
  for (const auto& [version, messages] : table) {
    bench.host.warnings.clear();
    const auto file = bench.load(flt::file(flt::group("g1"), version));
    EXPECT_EQ(bench.host.warnings, messages);
    EXPECT_EQ(file->loadedVersion(), version);
    EXPECT_EQ(file->header()->get(HeaderRecord::fields.formatRevision), 1620);
  }
  EXPECT_THAT(bench.host.errors, IsEmpty());
}

TEST_F(Loading, takesAHeaderThatEndsBeforeItsVersionAsACurrentOne)
{
  const auto file = bench.load(flt::record(1, flt::Bytes().text("db", 8)) + flt::level(flt::group("g1")));
  EXPECT_EQ(file->loadedVersion(), 1620);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(Loading, ofAHeaderOfVersion12LeavesTheBytesFrom164On)
{
  for (const int version : {12, 13}) {
    auto header = flt::sampleRecord(1);
    flt::patch(header, 12, flt::Bytes().i32(version));
    const auto file = bench.load(header);
    const auto* bytes = reinterpret_cast<const char*>(file->header()->data());
    EXPECT_EQ(std::string(bytes + 188, 8) == header.substr(188, 8), version == 12);
    EXPECT_EQ(file->header()->get(HeaderRecord::fields.nextSound),
              version == 12 ? loadAt<std::uint16_t>(reinterpret_cast<const std::byte*>(header.data()) + 164)
                            : flt::bigEndian(header, 164, 2));
    EXPECT_EQ(file->header()->get(HeaderRecord::fields.vertexStorageType), flt::bigEndian(header, 126, 2));
  }
}

TEST_F(Loading, findsTheVerticesOfOldFilesByTheirOffsets)
{
  for (const int version : {1420, 1520, 1540, 1560, 1570, 1580, 1600, 1620}) {
    const auto file = bench.load(flt::generatedFile("version-" + std::to_string(version)));
    const auto* face = first<FaceRecord>(*file);
    ASSERT_EQ(face->vertexCount(), 4) << version;
    const int kinds[] = {opcodes::vertex, opcodes::normalVertex, opcodes::normalTextureVertex, opcodes::textureVertex};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(face->vertexAt(i)->opcode(), kinds[i]) << version;
      EXPECT_EQ(face->vertexAt(i)->position().x(), i + 1) << version;
      EXPECT_EQ(face->vertexAt(i)->length(), opcodeLength(kinds[i])) << version;
    }
    EXPECT_EQ(*face->vertexAt(2)->uv(), osg::Vec2f(0.25f, 0.75f)) << version;
  }
}

TEST_F(Loading, ofAnOldFileTellsOfOffsetsThatLeadNowhere)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  const auto bytes = flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a, 4711, a})), 1570);
  testing::internal::CaptureStderr();
  const auto file = bench.load(bytes);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to find offset in map: 4711\n");
  EXPECT_EQ(first<FaceRecord>(*file)->vertexCount(), 2);
  EXPECT_EQ(first<VertexListRecord>(*file)->offsetAt(1), 4711u);
}

TEST_F(Loading, ofANewFileSkipsCornersWithoutAVertex)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  testing::internal::CaptureStderr();
  const auto file =
      bench.load(flt::file(pool, flt::object("o1") + flt::level(flt::polygon("p1", {a, 4711, 0xffffffff, 0, 12, a}))));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(first<FaceRecord>(*file)->vertexCount(), 2);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

} // namespace
} // namespace fltapi
