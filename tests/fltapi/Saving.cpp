// What a save writes in each version, and what it leaves alone when it fails.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/RecordLayouts.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/OrdinaryUser.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <sys/resource.h>

namespace fltapi {
namespace {

namespace fs = std::filesystem;
using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Saving : public testing::Test {
protected:
  std::vector<std::string> namesInFolder() const
  {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(bench.folder.path()))
      names.push_back(entry.path().filename().string());
    return names;
  }
  Workbench bench;
};

// ---- versions
// --------------------------------------------------------------------------------------------------------

struct LengthsInVersions {
  int opcode;
  std::size_t in1570, in1580, in1600;
};

constexpr LengthsInVersions lengthsInVersions[] = {
    {1, 304, 324, 324},   {2, 32, 44, 44},  {73, 72, 80, 80},  {130, 0, 28, 28}, {132, 0, 12, 12}, {128, 0, 408, 412},
    {129, 0, 1352, 1352}, {131, 0, 24, 24}, {133, 0, 0, 1036}, {69, 52, 56, 56}, {70, 60, 64, 64}, {64, 216, 216, 216},
};

TEST_F(Saving, writesEachRecordWithTheLengthOfItsVersion)
{
  for (const auto& [opcode, in1570, in1580, in1600] : lengthsInVersions) {
    const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcode));
    for (const int version : {1570, 1579})
      EXPECT_EQ(record->size(version), in1570) << opcode;
    for (const int version : {1580, 1599})
      EXPECT_EQ(record->size(version), in1580) << opcode;
    for (const int version : {1600, 1610, 1620})
      EXPECT_EQ(record->size(version), in1600) << opcode;
  }
  const osg::ref_ptr<Record> texture = makeRecord(defaultBuffer(opcodes::texturePalette));
  EXPECT_EQ(texture->size(13), 96u);
  EXPECT_EQ(texture->size(14), 216u);
}

TEST_F(Saving, writesAllOtherRecordsAsLongAsTheyAre)
{
  std::set<int> special = {opcodes::textureMappingPalette, opcodes::vertexList};
  for (const auto& row : lengthsInVersions)
    special.insert(row.opcode);
  for (const auto& layout : flt::recordLayouts()) {
    if (special.contains(layout.opcode)) continue;
    const osg::ref_ptr<Record> record = makeRecord(allocateBuffer(layout.opcode, layout.length + 6));
    for (const int version : {1570, 1580, 1600, 1620})
      EXPECT_EQ(record->size(version), layout.length + 6) << layout.className;
  }
}

TEST_F(Saving, statesTheVersionThatItWrites)
{
  const auto file = bench.load(flt::generatedFile("every-kind"));
  for (const int version : {1570, 1580, 1600, 1620}) {
    const auto saved = bench.save(*file, version);
    EXPECT_EQ(flt::bigEndian(saved, 12, 4), static_cast<unsigned>(version));
    EXPECT_EQ(file->header()->get(HeaderRecord::fields.formatRevision), 1620);
  }
}

TEST_F(Saving, keepsTheDateAndTheEditRevision)
{
  const auto before = flt::recordsOf(flt::generatedFile("every-kind")).front();
  const auto after = flt::recordsOf(bench.roundTrip(flt::generatedFile("every-kind"))).front();
  EXPECT_EQ(after.bytes(16, 36), before.bytes(16, 36));
}

TEST_F(Saving, cutsWhatAnOlderVersionDoesNotHave)
{
  const auto file = bench.load(flt::generatedFile("every-kind"));
  std::map<std::pair<int, int>, std::size_t> lengths;
  for (const int version : {1570, 1580, 1600}) {
    for (const auto& record : flt::recordsOf(bench.save(*file, version)))
      lengths[{version, record.opcode}] = record.length;
  }
  for (const auto& [opcode, in1570, in1580, in1600] : lengthsInVersions) {
    EXPECT_EQ((lengths[{1570, opcode}]), in1570) << opcode;
    EXPECT_EQ((lengths[{1580, opcode}]), in1580) << opcode;
    EXPECT_EQ((lengths[{1600, opcode}]), in1600) << opcode;
  }
}

TEST_F(Saving, cutsBytesOnlyInTheFile)
{
  const auto bytes = flt::generatedFile("every-kind");
  const auto file = bench.load(bytes);
  const auto before = bench.save(*file);
  bench.save(*file, 1570);
  bench.save(*file, 1580);
  EXPECT_TRUE(sameBytes(bench.save(*file), before));
}

TEST_F(Saving, ofAnOldVersionHasTheSameBytesUpToWhereARecordIsCut)
{
  const auto whole = flt::recordsOf(bench.roundTrip(flt::generatedFile("every-kind"), 1600));
  const auto cut = flt::recordsOf(bench.roundTrip(flt::generatedFile("every-kind"), 1580));
  std::size_t i = 0;
  for (const auto& record : cut) {
    while (i < whole.size() && whole[i].opcode != record.opcode)
      ++i;
    ASSERT_LT(i, whole.size());
    // The version and, before 16.0, the place of the shader index differ.
    const auto same = record.opcode == opcodes::header ? 8
                      : record.opcode == opcodes::face ? 74
                                                       : record.content.size();
    EXPECT_TRUE(sameBytes(record.content.substr(0, same), whole[i].content.substr(0, same))) << record.opcode;
    ++i;
  }
}

TEST_F(Saving, ofVersion1570LosesTheTailsOfGroupsAndLodsAndItsIndexedLightPoints)
{
  const auto file = bench.load(flt::generatedFile("light-points"));
  EXPECT_EQ(flt::outline(bench.save(*file, 1570)), "1 32 67 68 [ 2 [ 111 31 [ 72 ] ] ]");
  EXPECT_EQ(flt::outline(bench.save(*file, 1580)), "1 32 128 129 67 68 [ 2 [ 131 [ 130 [ 72 ] ] 130 31 [ 72 ] ] ]");
}

TEST_F(Saving, dropsShadersBelowVersion1600)
{
  const auto file = bench.load(flt::generatedFile("shaders"));
  EXPECT_EQ(flt::outline(bench.save(*file, 1580)), "1 32 67 [ 2 ]");
  EXPECT_EQ(flt::outline(bench.save(*file, 1600)), "1 32 133 133 133 67 [ 2 ]");
}

TEST_F(Saving, ofATypeOfDrawingThatNobodyKnowsWrites0)
{
  for (const int drawType : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 200, 255}) {
    auto bytes = flt::face("p1");
    flt::patch(bytes, 18, flt::Bytes().u8(static_cast<unsigned>(drawType)));
    const auto file = bench.load(flt::file(flt::object("o1") + flt::level(bytes)));
    const auto saved = flt::recordsOf(bench.save(*file), 5).front();
    const bool known = drawType <= 4 || (drawType >= 8 && drawType <= 10);
    EXPECT_EQ(flt::bigEndian(saved.content, 14, 1), known ? static_cast<unsigned>(drawType) : 0u);
    EXPECT_EQ(first<FaceRecord>(*file)->get(FaceRecord::fields.drawType), drawType);
  }
}

// ---- order of records
// ------------------------------------------------------------------------------------------------

TEST_F(Saving, writesAncillariesInFrontOfTheLevelWhereverTheyStand)
{
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::object("o1"))));
  first<GroupRecord>(*file)->addChild(file->create<BoundingBoxRecord>(), /*append=*/true);
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 2 74 [ 4 ] ]");
}

TEST_F(Saving, givesAFaceWithNothingButSubfacesAnEmptyLevel)
{
  const auto file =
      bench.load(flt::file(flt::object("o1") + flt::level(flt::face("p1") + flt::subfaces(flt::face("p2")))));
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 4 [ 5 [ ] { 5 } ] ]");
}

TEST_F(Saving, dropsSubfacesWhenTheLastChildIsNone)
{
  const auto file =
      bench.load(flt::file(flt::object("o1") + flt::level(flt::face("p1") + flt::level(flt::vertexList({})) +
                                                          flt::subfaces(flt::face("p2")))));
  auto* face = first<FaceRecord>(*file);
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 4 [ 5 [ 72 ] { 5 } ] ]");
  face->addChild(file->create<CommentRecord>(), /*append=*/true);
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 4 [ 5 31 [ 72 ] ] ]");
}

TEST_F(Saving, givesAGroupThatHoldsFacesAPlainLevel)
{
  const auto bytes = flt::file(flt::group("g1") + flt::level(flt::face("p1") + flt::face("p2")));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(Saving, leavesOutTheContentOfExternalReferences)
{
  const osg::ref_ptr<FltFile> shown = new FltFile;
  shown->initNew();
  const auto bytes = flt::file(flt::external("shown.flt") + flt::comment("kept"));
  const auto file = bench.load(bytes);
  first<ExternalRecord>(*file)->show(shown, "shown.flt");
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(Saving, makesAVertexPaletteWhereThereIsNone)
{
  EXPECT_EQ(flt::outline(bench.roundTrip(flt::header() + flt::level(flt::group("g1")))), "1 67 [ 2 ]");
  EXPECT_EQ(flt::outline(bench.roundTrip(flt::header())), "1 67");
}

TEST_F(Saving, writesOneSetOfVerticesForSeveralPalettes)
{
  flt::VertexPool pool;
  const auto a = pool.add(flt::plainVertex(1, 2, 3));
  const auto file =
      bench.load(flt::header() + pool.records() + flt::VertexPool().records() +
                 flt::level(flt::object("o1") + flt::VertexPool().records() + flt::level(flt::polygon("p1", {a}))));
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 67 68 67 [ 4 67 [ 5 [ 72 ] ] ]");
}

TEST_F(Saving, writesAHeaderInsideALevelLikeANode)
{
  const auto bytes = flt::file(flt::group("g1") + flt::level(flt::header() + flt::level(flt::object("o1"))));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

// ---- the file on disk
// ------------------------------------------------------------------------------------------------

TEST_F(Saving, leavesTheDocumentAsItIs)
{
  const auto file = bench.load(flt::generatedFile("every-kind"));
  bench.save(*file, 1570);
  EXPECT_EQ(file->path(), bench.path());
  EXPECT_EQ(file->loadedVersion(), 1620);
  EXPECT_EQ(first<FaceRecord>(*file)->file(), file);
  EXPECT_EQ(named(*file->header(), "p1")->asNode()->primaryChildCount(), 1);
}

TEST_F(Saving, reportsItsProgress)
{
  const auto file = bench.load(flt::generatedFile("every-kind"));
  bench.host.fractions.clear();
  bench.save(*file);
  ASSERT_FALSE(bench.host.fractions.empty());
  EXPECT_TRUE(std::ranges::is_sorted(bench.host.fractions));
  EXPECT_LE(bench.host.fractions.back(), 1.0);
  EXPECT_GT(bench.host.fractions.back(), 0.9);
}

TEST_F(Saving, withoutAHeaderFails)
{
  const osg::ref_ptr<FltFile> empty = new FltFile;
  EXPECT_FALSE(empty->save(bench.path("x.flt")));
  EXPECT_THAT(bench.host.errors, ElementsAre("No header record found while writing " + bench.path("x.flt") + "."));
  EXPECT_FALSE(fs::exists(bench.path("x.flt")));
}

TEST_F(Saving, ofAnEmptyPathFailsSilently)
{
  const auto file = bench.load(flt::file(""));
  EXPECT_FALSE(file->save(""));
  EXPECT_THAT(bench.host.errors, IsEmpty());
}

TEST_F(Saving, whereNothingCanBeWrittenFails)
{
  const auto file = bench.load(flt::file(""));
  const auto inFile = bench.path() + "/x.flt", inNoFolder = bench.path("nowhere/x.flt");
  EXPECT_FALSE(file->save(inFile));
  EXPECT_FALSE(file->save(inNoFolder));
  EXPECT_FALSE(file->save(bench.folder.path()));
  EXPECT_THAT(bench.host.errors, ElementsAre("Failed opening file " + inFile + " for writing.",
                                             "Failed opening file " + inNoFolder + " for writing.",
                                             "Failed opening file " + bench.folder.path() + " for writing."));
}

TEST_F(Saving, takesNamesWithSpacesAndLettersOfAllScripts)
{
  const auto file = bench.load(flt::file(flt::group("g1")));
  const auto target = bench.path("Größe 10 – Панцер 戦車.flt");
  EXPECT_TRUE(file->save(target));
  EXPECT_TRUE(sameBytes(readFile(target), bench.save(*file)));
  const osg::ref_ptr<FltFile> again = new FltFile;
  EXPECT_TRUE(again->load(target));
  EXPECT_THAT(bench.host.errors, IsEmpty());
}

TEST_F(Saving, intoAFolderWithoutRightsFailsAndLeavesTheOldFile)
{
  const auto file = bench.load(flt::file(flt::group("g1")));
  fs::create_directory(bench.path("locked"));
  const auto target = bench.path("locked/model.flt");
  writeFile(target, "the old file");
  fs::permissions(bench.folder.path(), fs::perms::all);
  fs::permissions(bench.path("locked"), fs::perms(0555));
  {
    const OrdinaryUser user;
    EXPECT_FALSE(file->save(target));
  }
  EXPECT_THAT(bench.host.errors, ElementsAre("Failed opening file " + target + " for writing."));
  EXPECT_EQ(readFile(target), "the old file");
}

/// No file of this process can grow beyond that size until the end of the scope, as on a full disk.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
  {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit()
  {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(Saving, onAFullDiskFailsAndLeavesTheOldFile)
{
  const auto file = bench.load(flt::generatedFile("long-comment"));
  const auto target = bench.path("old.flt");
  writeFile(target, "the old file");
  for (const rlim_t room : {0, 100, 65536, 200000}) {
    bench.host.errors.clear();
    bool saved = true;
    {
      const FileSizeLimit limit(room);
      saved = file->save(target);
    }
    EXPECT_FALSE(saved) << room;
    EXPECT_THAT(bench.host.errors, ElementsAre("Failed writing records in file " + target + "."));
    EXPECT_EQ(readFile(target), "the old file") << room;
    EXPECT_THAT(namesInFolder(), UnorderedElementsAre("model.flt", "old.flt"));
  }
  EXPECT_TRUE(file->save(target));
}

TEST_F(Saving, keepsSymbolicLinks)
{
  const auto file = bench.load(flt::file(flt::group("g1")));
  writeFile(bench.path("real.flt"), "the old file");
  fs::create_symlink("real.flt", bench.path("link.flt"));
  EXPECT_TRUE(file->save(bench.path("link.flt")));
  EXPECT_TRUE(fs::is_symlink(bench.path("link.flt")));
  EXPECT_TRUE(sameBytes(readFile(bench.path("real.flt")), flt::file(flt::group("g1"))));
}

TEST_F(Saving, overTheFileThatWasLoadedWorks)
{
  const auto bytes = flt::generatedFile("every-kind");
  const auto file = bench.load(bytes);
  EXPECT_TRUE(file->save(bench.path()));
  EXPECT_TRUE(file->save(bench.path()));
  EXPECT_TRUE(sameBytes(readFile(bench.path()), bytes));
}

} // namespace
} // namespace fltapi
