// What references to other files show, where those are found, and what happens when they change.
#include "fltapi/AllRecords.h"
#include "fltapi/ExternalFiles.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/Scoped.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

/// A file of one group of that name.
std::string fileWith(const std::string& name)
{
  return flt::file(flt::group(name.substr(0, 7)) + flt::longId(name));
}

std::string referenceWithFlags(const std::string& path, std::uint32_t flags)
{
  auto bytes = flt::external(path);
  flt::patch(bytes, 208, flt::Bytes().u32(flags));
  return bytes;
}

class ExternalReferences : public testing::Test {
protected:
  ExternalReferences() { bench.host.externals = true; }

  void write(const std::string& name, const std::string& bytes) const
  {
    const std::filesystem::path path = bench.path(name);
    std::filesystem::create_directories(path.parent_path());
    writeFile(path.string(), bytes);
  }
  /// The file of that name newer on disk than whatever was read of it.
  void touch(const std::string& name, int seconds = 10) const
  {
    std::filesystem::last_write_time(bench.path(name),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(seconds));
  }
  static std::vector<ExternalRecord*> references(FltFile& file)
  {
    std::vector<ExternalRecord*> list;
    for (auto* record : file.header()->findDescendants(ExternalRecord::code, /*followInstances=*/true)) {
      if (record->file() == &file) list.push_back(static_cast<ExternalRecord*>(record));
    }
    return list;
  }
  /// The name of the first group that a reference shows, empty when it shows nothing.
  static std::string shown(const ExternalRecord& reference)
  {
    const auto* file = reference.referencedFile();
    if (!file) return {};
    const auto groups = file->header()->findDescendants(GroupRecord::code, /*followInstances=*/false);
    return groups.empty() ? std::string("no group") : groups.front()->getName();
  }
  std::string shownByFirst(FltFile& file)
  {
    const auto list = references(file);
    return list.empty() ? "no reference" : shown(*list.front());
  }

  Workbench bench;
  ScopedEnvironment noSearchPath{"NALT_FILE_PATH", std::nullopt};
};

// ---- finding the file -----------------------------------------------------------------------------------------------

TEST_F(ExternalReferences, areFoundByTheirAbsolutePath)
{
  write("elsewhere/tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::external(bench.path("elsewhere/tank.flt"))));
  EXPECT_EQ(shownByFirst(*file), "tank");
  EXPECT_EQ(references(*file).front()->resolvedPath(), bench.path("elsewhere/tank.flt"));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(ExternalReferences, areFoundFromTheCurrentFolderFirst)
{
  write("here/parts/tank.flt", fileWith("current"));
  write("parts/tank.flt", fileWith("beside"));
  const ScopedCurrentFolder inHere(bench.path("here"));
  const auto file = bench.load(flt::file(flt::external("parts/tank.flt")));
  EXPECT_EQ(shownByFirst(*file), "current");
}

TEST_F(ExternalReferences, areFoundBesideTheFileThatRefersToThem)
{
  write("parts/tank.flt", fileWith("joined"));
  write("tank.flt", fileWith("name alone"));
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("parts/tank.flt")))), "joined");
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("lost/tank.flt")))), "name alone");
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("/no/such/place/tank.flt")))), "name alone");
}

TEST_F(ExternalReferences, notFoundAtTheirAbsolutePathAreFoundOnTheSearchPathByTheirName)
{
  write("library/tank.flt", fileWith("library"));
  const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("library"));
  const auto file = bench.load(flt::file(flt::external("/no/such/place/tank.flt")));
  EXPECT_EQ(shownByFirst(*file), "library");
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(ExternalReferences, ofAnAbsolutePathAreFoundBelowTheSearchPathByAllOfIt)
{
  write("root/models/tank.flt", fileWith("joined"));
  write("root/tank.flt", fileWith("name alone"));
  const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("root"));
  const auto file = bench.load(flt::file(flt::external("/models/tank.flt")));
  EXPECT_EQ(shownByFirst(*file), "joined");
  EXPECT_EQ(references(*file).front()->resolvedPath(), bench.path("root/models/tank.flt"));
}

TEST_F(ExternalReferences, areFoundInTheFoldersOfTheSearchPathInTheirOrder)
{
  write("b/parts/tank.flt", fileWith("b, joined"));
  write("b/tank.flt", fileWith("b, name alone"));
  write("c/parts/tank.flt", fileWith("c, joined"));
  write("parts/tank.flt", fileWith("beside"));
  const auto bytes = flt::file(flt::external("parts/tank.flt"));
  for (const std::string separator : {";", ":"}) {
    const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("a") + separator + separator + bench.path("b") +
                                                             separator + bench.path("c"));
    EXPECT_EQ(shownByFirst(*bench.load(bytes)), "b, joined") << separator;
  }
  const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("c") + ";" + bench.path("b"));
  EXPECT_EQ(shownByFirst(*bench.load(bytes)), "c, joined");
  std::filesystem::remove(bench.path("b/parts/tank.flt"));
  const ScopedEnvironment onlyB("NALT_FILE_PATH", bench.path("b"));
  EXPECT_EQ(shownByFirst(*bench.load(bytes)), "b, name alone");
}

TEST_F(ExternalReferences, oneThatCannotBeReadLetsTheNextPlaceHaveItsTurn)
{
  write("library/tank.flt", "this is no model");
  write("tank.flt", fileWith("beside"));
  const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("library"));
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("tank.flt")))), "beside");
}

TEST_F(ExternalReferences, madeOnAnotherSystemAreFoundInSpiteOfSeparatorsAndLetterCase)
{
  write("Parts/Tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::external("parts\\TANK.FLT")));
  EXPECT_EQ(shownByFirst(*file), "tank");
  EXPECT_EQ(references(*file).front()->getName(), "parts\\TANK.FLT") << "the record's own text stays";
}

TEST_F(ExternalReferences, areFoundAsTheyAreSpelledBeforeTheyAreFoundInOtherLetterCase)
{
  write("library/TANK.flt", fileWith("other"));
  write("tank.flt", fileWith("exact"));
  const ScopedEnvironment searchPath("NALT_FILE_PATH", bench.path("library"));
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("tank.flt")))), "exact");
  std::filesystem::remove(bench.path("tank.flt"));
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("tank.flt")))), "other");
}

TEST_F(ExternalReferences, toOneNodeOfAFileShowTheWholeFile)
{
  write("tank.flt", fileWith("tank"));
  EXPECT_EQ(shownByFirst(*bench.load(flt::file(flt::external("tank.flt<turret>")))), "tank");
}

TEST_F(ExternalReferences, insideAnExternalAreFoundBesideThatExternal)
{
  write("sub/tank.flt", flt::file(flt::external("turret.flt")));
  write("sub/turret.flt", fileWith("turret"));
  const auto file = bench.load(flt::file(flt::external("sub/tank.flt")));
  auto* tank = references(*file).front()->referencedFile();
  ASSERT_TRUE(tank);
  EXPECT_EQ(shownByFirst(*tank), "turret");
}

TEST_F(ExternalReferences, whoseFileIsMissingStayEmptyWithAWarning)
{
  const auto file = bench.load(flt::file(flt::external("missing.flt") + flt::group("g1")));
  EXPECT_THAT(bench.host.warnings, ElementsAre("Failed reading external reference missing.flt"));
  EXPECT_EQ(shownByFirst(*file), "");
  EXPECT_EQ(file->header()->primaryChildCount(), 2) << "the rest of the model is there";
}

TEST_F(ExternalReferences, toOneMissingOrDamagedFileAreToldOfOnce)
{
  write("broken.flt", flt::header() + flt::push + flt::push.substr(0, 3));
  std::string content;
  for (int i = 0; i < 100; ++i)
    content += flt::external("missing.flt") + flt::external("broken.flt");
  bench.load(flt::file(content));
  EXPECT_THAT(bench.host.warnings,
              ElementsAre("Failed reading external reference missing.flt",
                          testing::StartsWith("Can't read broken.flt. The file is damaged at byte 328"),
                          "Failed reading external reference broken.flt"));
}

TEST_F(ExternalReferences, ofAQuietFileAreMissingWithoutAWord)
{
  bench.load(flt::file(flt::external("missing.flt")));
  bench.host.warnings.clear();
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->setQuiet(true);
  EXPECT_TRUE(file->load(bench.path()));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(ExternalReferences, makeTheFilesThatTheyShowQuietLikeTheirOwn)
{
  write("old.flt", flt::file(flt::group("g1"), 1570));
  bench.load(flt::file(flt::external("old.flt")));
  EXPECT_THAT(bench.host.warnings, ElementsAre("Converted old.flt from version 15.7 to version 16.2."));
  bench.host.warnings.clear();
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->setQuiet(true);
  ASSERT_TRUE(file->load(bench.path()));
  EXPECT_TRUE(references(*file).front()->referencedFile()->quiet());
  EXPECT_THAT(bench.host.warnings, IsEmpty());
}

TEST_F(ExternalReferences, withAnEmptyPathShowNothing)
{
  const auto file = bench.load(flt::file(flt::external("")));
  EXPECT_EQ(shownByFirst(*file), "");
  EXPECT_THAT(bench.host.warnings, ElementsAre("Failed reading external reference "));
}

TEST_F(ExternalReferences, toAFolderOrADeviceShowNothing)
{
  std::filesystem::create_directory(bench.path("folder.flt"));
  const auto file = bench.load(flt::file(flt::external("folder.flt") + flt::external("/dev/zero")));
  for (const auto* reference : references(*file))
    EXPECT_EQ(shown(*reference), "");
  EXPECT_EQ(bench.host.warnings.back(), "Failed reading external reference /dev/zero");
}

TEST_F(ExternalReferences, areLeftAloneWhereTheUserDoesNotWantThem)
{
  write("tank.flt", fileWith("tank"));
  bench.host.externals = false;
  const auto file = bench.load(flt::file(flt::external("tank.flt")));
  EXPECT_EQ(shownByFirst(*file), "");
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  bench.host.externals = true;
  file->readExternals();
  EXPECT_EQ(shownByFirst(*file), "tank");
}

TEST_F(ExternalReferences, madeInASessionAreLoadedWhenAskedFor)
{
  write("tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::group("g1")));
  auto* reference = file->create<ExternalRecord>();
  reference->set(ExternalRecord::fields.path, "tank.flt");
  file->header()->addChild(reference, /*append=*/true);
  file->readExternals();
  EXPECT_EQ(shown(*reference), "tank");
  EXPECT_EQ(reference->getName(), "tank.flt");
}

// ---- sharing --------------------------------------------------------------------------------------------------------

TEST_F(ExternalReferences, ofOnePathShareOneFile)
{
  write("tank.flt", fileWith("tank"));
  std::filesystem::create_symlink(bench.path("tank.flt"), bench.path("link.flt"));
  const auto file = bench.load(flt::file(flt::external("tank.flt") + flt::group("g1") +
                                         flt::level(flt::external("./tank.flt") + flt::external("link.flt"))));
  const auto list = references(*file);
  ASSERT_EQ(list.size(), 3u);
  ASSERT_TRUE(list[0]->referencedFile());
  EXPECT_EQ(list[0]->referencedFile(), list[1]->referencedFile());
  EXPECT_EQ(list[0]->referencedFile(), list[2]->referencedFile());
  EXPECT_EQ(list[0]->firstPrimaryChild(), list[2]->firstPrimaryChild());
}

TEST_F(ExternalReferences, withOtherFlagsLoadTheFileAgain)
{
  write("tank.flt", fileWith("tank"));
  const auto file =
      bench.load(flt::file(referenceWithFlags("tank.flt", 0xff000000) + referenceWithFlags("tank.flt", 0x80000000) +
                           referenceWithFlags("tank.flt", 0x80000000)));
  const auto list = references(*file);
  ASSERT_EQ(list.size(), 3u);
  ASSERT_TRUE(list[0]->referencedFile() && list[1]->referencedFile());
  EXPECT_NE(list[0]->referencedFile(), list[1]->referencedFile());
  EXPECT_EQ(list[1]->referencedFile(), list[2]->referencedFile());
}

TEST_F(ExternalReferences, aThousandOfTenFilesLoadTenTimes)
{
  std::string content;
  for (int i = 0; i < 1000; ++i) {
    const auto name = "part" + std::to_string(i % 10) + ".flt";
    if (i < 10) write(name, fileWith("g" + std::to_string(i)));
    content += flt::external(name);
  }
  const auto file = bench.load(flt::file(content));
  std::set<FltFile*> files;
  for (const auto* reference : references(*file)) {
    EXPECT_EQ("part" + shown(*reference).substr(1) + ".flt", reference->getName());
    files.insert(reference->referencedFile());
  }
  EXPECT_EQ(references(*file).size(), 1000u);
  EXPECT_EQ(files.size(), 10u);
}

TEST_F(ExternalReferences, ofTwoDocumentsShareOneFileWhileOneOfThemIsOpen)
{
  write("tank.flt", fileWith("tank"));
  const auto bytes = flt::file(flt::external("tank.flt"));
  auto one = bench.load(bytes);
  const auto two = bench.load(bytes);
  auto* shared = references(*two).front()->referencedFile();
  ASSERT_TRUE(shared);
  EXPECT_EQ(references(*one).front()->referencedFile(), shared);
  one = nullptr;
  EXPECT_EQ(shownByFirst(*two), "tank") << "the other document still shows it";
  EXPECT_EQ(references(*two).front()->firstPrimaryChild()->parent(), references(*two).front());
}

// ---- what hangs below a reference -----------------------------------------------------------------------------------

TEST_F(ExternalReferences, showTheHeaderOfTheirFileAsTheirChild)
{
  write("tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::external("tank.flt")));
  auto* reference = references(*file).front();
  ASSERT_EQ(reference->primaryChildCount(), 1);
  EXPECT_EQ(reference->firstPrimaryChild(), reference->referencedFile()->header());
}

TEST_F(ExternalReferences, stampEveryNodeThatCameInThroughThem)
{
  const auto instanced =
      flt::instanceDefinition(1) + flt::level(flt::group("body") + flt::group("more")) + flt::instanceReference(1);
  write("turret.flt", fileWith("turret"));
  write("tank.flt", flt::file(flt::group("tank") + flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {}))) +
                              instanced + flt::external("turret.flt")));
  const auto file = bench.load(flt::file(flt::group("mine") + flt::external("tank.flt")));
  auto* reference = references(*file).front();
  auto* tank = reference->referencedFile();
  ASSERT_TRUE(tank);
  EXPECT_EQ(reference->externalFile(), nullptr) << "the reference itself is the document's own";
  EXPECT_EQ(file->header()->firstPrimaryChild()->externalFile(), nullptr);
  for (const int opcode : {1, 2, 4, 5, 72, 61, 63}) {
    const auto found = tank->header()->findDescendants(opcode, /*followInstances=*/true);
    EXPECT_FALSE(found.empty()) << opcode;
    for (auto* record : found) {
      if (record->file() == tank) {
        EXPECT_EQ(record->asNode()->externalFile(), tank) << opcode;
      }
    }
  }
  auto* definition = tank->instanceDefinition(1);
  ASSERT_TRUE(definition);
  EXPECT_EQ(definition->externalFile(), tank);
  EXPECT_EQ(definition->primaryChildAt(1)->externalFile(), tank) << "also what no reference leads to";
}

TEST_F(ExternalReferences, insideAnExternalStampTheirContentWithItsOwnFile)
{
  write("turret.flt", fileWith("turret"));
  write("tank.flt", flt::file(flt::external("turret.flt")));
  const auto file = bench.load(flt::file(flt::external("tank.flt")));
  auto* tank = references(*file).front()->referencedFile();
  ASSERT_TRUE(tank);
  auto* inner = references(*tank).front();
  EXPECT_EQ(inner->externalFile(), tank);
  ASSERT_TRUE(inner->referencedFile());
  EXPECT_EQ(inner->firstPrimaryChild()->externalFile(), inner->referencedFile());
  EXPECT_EQ(first<GroupRecord>(*inner->referencedFile())->externalFile(), inner->referencedFile());
}

TEST_F(ExternalReferences, copiedWithATreeShowTheSameFile)
{
  write("tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::external("tank.flt"))));
  const osg::ref_ptr<PrimNodeRecord> copy = file->header()->firstPrimaryChild()->cloneTree(/*rename=*/true);
  file->header()->addChild(copy, /*append=*/true);
  const auto list = references(*file);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0]->referencedFile(), list[1]->referencedFile());
  EXPECT_EQ(shown(*list[1]), "tank") << "content of an external keeps its names";
  file->header()->removeChild(file->header()->firstPrimaryChild());
  auto* content = list[1]->firstPrimaryChild();
  ASSERT_TRUE(content);
  EXPECT_EQ(content->parent(), list[1]);
  EXPECT_THAT(content->parents(), IsEmpty());
}

// ---- whose palette counts -------------------------------------------------------------------------------------------

struct PaletteCase {
  const char* name;
  std::uint32_t bit;
  std::vector<int> opcodes;
};

class ExternalPalettes : public ExternalReferences, public testing::WithParamInterface<PaletteCase> {};

TEST_P(ExternalPalettes, areTheReferringFilesUnlessTheBitSaysOtherwise)
{
  const auto fileWithPalettes = [](int index, const std::string& content) {
    std::string entries;
    for (const int opcode : {64, 93, 97, 102, 112, 113, 128, 129, 133})
      entries += flt::padded(opcode, opcode == 112 ? 168 : 2000, flt::Bytes().i32(index));
    return flt::header() + flt::padded(32, 4228, flt::Bytes().zeros(128).u32(static_cast<std::uint32_t>(index))) +
           entries + flt::level(content);
  };
  write("tank.flt", fileWithPalettes(7, flt::group("tank")));
  const auto bit = GetParam().bit;
  const auto file = bench.load(
      fileWithPalettes(3, referenceWithFlags("tank.flt", bit) + referenceWithFlags("tank.flt", 0xff000000 & ~bit)));
  const auto list = references(*file);
  ASSERT_EQ(list.size(), 2u);
  const auto* own = list[0]->referencedFile();
  const auto* overridden = list[1]->referencedFile();
  ASSERT_TRUE(own && overridden);
  EXPECT_TRUE(list[0]->uses(static_cast<ExternalRecord::OwnPalette>(bit)));
  EXPECT_FALSE(list[1]->uses(static_cast<ExternalRecord::OwnPalette>(bit)));
  for (const int opcode : GetParam().opcodes) {
    if (opcode == 32) {
      EXPECT_EQ(own->colorPalette()->file(), own);
      EXPECT_EQ(overridden->colorPalette()->file(), file);
      continue;
    }
    ASSERT_EQ(own->palette(opcode).size(), 1u) << opcode;
    ASSERT_EQ(overridden->palette(opcode).size(), 1u) << opcode;
    EXPECT_EQ(own->palette(opcode).front()->file(), own) << opcode;
    EXPECT_EQ(overridden->palette(opcode).front()->file(), file) << opcode;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ExternalPalettes,
    testing::Values(PaletteCase{"colors", 0x80000000, {32}}, PaletteCase{"materials", 0x40000000, {113}},
                    PaletteCase{"textures", 0x20000000, {64, 112}}, PaletteCase{"lineStyles", 0x10000000, {97}},
                    PaletteCase{"sounds", 0x08000000, {93}}, PaletteCase{"lightSources", 0x04000000, {102}},
                    PaletteCase{"lightPoints", 0x02000000, {128, 129}}, PaletteCase{"shaders", 0x01000000, {133}}),
    [](const auto& kind) { return std::string(kind.param.name); });

TEST_F(ExternalReferences, haveTheirFlagsFromVersion14On)
{
  write("tank.flt", fileWith("tank"));
  const auto flagsIn = [&](int version) {
    const auto file = bench.load(flt::file(referenceWithFlags("tank.flt", 0x80000001), version));
    return references(*file).front()->get(ExternalRecord::fields.flags);
  };
  EXPECT_EQ(flagsIn(14), 0x80000001u);
  EXPECT_EQ(flagsIn(13), 0x01000080u) << "left as it is";
}

// ---- files that lead back -------------------------------------------------------------------------------------------

TEST_F(ExternalReferences, toTheirOwnFileAreEmptyWithAWarning)
{
  const auto file = bench.load(flt::file(flt::external("model.flt")));
  EXPECT_EQ(shownByFirst(*file), "");
  EXPECT_THAT(bench.host.warnings, ElementsAre("External reference leads back to a file that refers to it model.flt"));
}

TEST_F(ExternalReferences, ofTwoFilesToEachOtherEndWithAWarning)
{
  write("b.flt", flt::file(flt::group("b") + flt::external("model.flt")));
  const auto file = bench.load(flt::file(flt::external("b.flt")));
  EXPECT_EQ(shownByFirst(*file), "b");
  EXPECT_EQ(shownByFirst(*references(*file).front()->referencedFile()), "");
  EXPECT_THAT(bench.host.warnings, ElementsAre("External reference leads back to a file that refers to it model.flt"));
}

TEST_F(ExternalReferences, inAVeryLongChainEndWithAWarning)
{
  constexpr int chain = 600;
  for (int i = 0; i < chain; ++i)
    write(std::to_string(i) + ".flt", flt::file(flt::external(std::to_string(i + 1) + ".flt")));
  write(std::to_string(chain) + ".flt", fileWith("end"));
  const auto file = bench.load(flt::file(flt::external("0.flt")));
  int shownFiles = 0;
  for (auto* reference = references(*file).front(); reference && reference->referencedFile(); ++shownFiles)
    reference = references(*reference->referencedFile()).front();
  EXPECT_GE(shownFiles, 100) << "no honest model nests so many files";
  EXPECT_LT(shownFiles, chain);
  ASSERT_EQ(bench.host.warnings.size(), 1u);
  EXPECT_THAT(bench.host.warnings.front(), testing::StartsWith("Failed reading external reference "));
}

// ---- files that show one another along very many ways ---------------------------------------------------------------

TEST_F(ExternalReferences, ofFilesThatShowTheNextOneTwiceAreVisitedInShortTime)
{
  constexpr int chain = 60;
  const auto name = [](int i) { return std::to_string(i) + ".flt"; };
  for (int i = 0; i < chain; ++i) {
    write(name(i),
          flt::file(flt::group("g" + std::to_string(i)) + flt::external(name(i + 1)) + flt::external(name(i + 1))));
  }
  write(name(chain), fileWith("last"));
  const auto file = bench.load(flt::file(flt::external(name(0)) + flt::external(name(0))));
  EXPECT_THAT(bench.host.warnings, IsEmpty());

  std::set<std::string> groups;
  const auto found = file->header()->findDescendants(GroupRecord::code, /*followInstances=*/true);
  for (const auto* group : found)
    groups.insert(group->getName());
  EXPECT_EQ(groups.size(), chain + 1u);
  EXPECT_LT(found.size(), 2u * chain);
  EXPECT_TRUE(file->header()->isAncestorOf(*found.back()));
  EXPECT_FALSE(references(*file).front()->isAncestorOf(*file->header()));
  EXPECT_EQ(file->header()->center(), osg::Vec3d());

  EXPECT_THAT(file->changedExternals(), IsEmpty());
  touch(name(chain));
  EXPECT_THAT(file->changedExternals(), ElementsAre(name(0)));
  file->reloadExternals({name(0)});
  EXPECT_THAT(file->changedExternals(), IsEmpty());
}

TEST_F(ExternalReferences, thatAreLoadedWithEachReferrersPalettesAreLoadedNotWithoutEnd)
{
  // Two files on each level, each of which shows both of the next level: as many ways as there are bits to count them.
  constexpr int levels = 13;
  const auto name = [](int level, int i) { return std::to_string(level) + "ab"[i] + ".flt"; };
  const auto both = [&](int level) {
    return referenceWithFlags(name(level, 0), 0) + referenceWithFlags(name(level, 1), 0);
  };
  for (int level = 0; level < levels; ++level) {
    for (int i : {0, 1})
      write(name(level, i), level + 1 < levels ? flt::file(both(level + 1)) : fileWith("last"));
  }
  const auto file = bench.load(flt::file(both(0)));
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  std::set<const FltFile*> loaded;
  for (auto* record : file->header()->findDescendants(ExternalRecord::code, /*followInstances=*/true)) {
    const auto* shown = static_cast<const ExternalRecord*>(record)->referencedFile();
    ASSERT_TRUE(shown);
    loaded.insert(shown);
  }
  EXPECT_GT(loaded.size(), 4000u) << "each of a thousand referrers has its own palettes";
  EXPECT_LT(loaded.size(), 9000u) << "and not each of eight thousand";
}

// ---- changes on disk ------------------------------------------------------------------------------------------------

TEST_F(ExternalReferences, tellWhichFilesAreNewerOnDisk)
{
  write("tank.flt", fileWith("old"));
  write("jeep.flt", fileWith("jeep"));
  const auto file =
      bench.load(flt::file(flt::external("tank.flt") + flt::external("jeep.flt") + flt::external("tank.flt")));
  EXPECT_THAT(file->changedExternals(), IsEmpty());
  write("tank.flt", fileWith("new"));
  touch("tank.flt");
  EXPECT_THAT(file->changedExternals(), ElementsAre("tank.flt"));
  EXPECT_EQ(shownByFirst(*file), "old") << "nothing is read before somebody asks for it";
}

TEST_F(ExternalReferences, thatAreOlderOnDiskOrGoneHaveNotChanged)
{
  write("tank.flt", fileWith("tank"));
  write("jeep.flt", fileWith("jeep"));
  const auto file = bench.load(flt::file(flt::external("tank.flt") + flt::external("jeep.flt")));
  touch("tank.flt", -1000);
  std::filesystem::remove(bench.path("jeep.flt"));
  EXPECT_THAT(file->changedExternals(), IsEmpty());
}

TEST_F(ExternalReferences, changeWithWhatTheirFileRefersToInTurn)
{
  write("turret.flt", fileWith("old"));
  write("tank.flt", flt::file(flt::external("turret.flt")));
  write("jeep.flt", fileWith("jeep"));
  const auto file = bench.load(flt::file(flt::external("jeep.flt") + flt::external("tank.flt")));
  write("turret.flt", fileWith("new"));
  touch("turret.flt");
  EXPECT_THAT(file->changedExternals(), ElementsAre("tank.flt"));
  file->reloadExternals(file->changedExternals());
  auto* tank = references(*file)[1]->referencedFile();
  ASSERT_TRUE(tank);
  EXPECT_EQ(shownByFirst(*tank), "new");
  EXPECT_THAT(file->changedExternals(), IsEmpty());
}

TEST_F(ExternalReferences, changeWithAFileThatTheyBothShow)
{
  constexpr std::uint32_t ownPalettes = 0xff000000; // so that both show one and the same
  write("wheel.flt", fileWith("old"));
  for (const char* name : {"tank.flt", "jeep.flt"})
    write(name, flt::file(referenceWithFlags("wheel.flt", ownPalettes)));
  const auto file =
      bench.load(flt::file(referenceWithFlags("tank.flt", ownPalettes) + referenceWithFlags("jeep.flt", ownPalettes)));
  touch("wheel.flt");
  EXPECT_THAT(file->changedExternals(), ElementsAre("tank.flt", "jeep.flt"));
}

TEST_F(ExternalReferences, madeAfterAChangeShowTheNewContentAndLeaveOthersTheOld)
{
  write("turret.flt", fileWith("old"));
  write("tank.flt", flt::file(flt::external("turret.flt")));
  const auto bytes = flt::file(flt::external("turret.flt") + flt::external("tank.flt"));
  const auto before = bench.load(bytes);
  write("turret.flt", fileWith("new"));
  touch("turret.flt");
  const auto after = bench.load(bytes);
  EXPECT_EQ(shownByFirst(*before), "old");
  EXPECT_EQ(shownByFirst(*after), "new");
  EXPECT_EQ(shownByFirst(*references(*before)[1]->referencedFile()), "old");
  EXPECT_EQ(shownByFirst(*references(*after)[1]->referencedFile()), "new");
  EXPECT_THAT(before->changedExternals(), ElementsAre("turret.flt", "tank.flt"));
  EXPECT_THAT(after->changedExternals(), IsEmpty());
}

TEST_F(ExternalReferences, thatWereDeletedAskNothing)
{
  write("tank.flt", fileWith("tank"));
  const auto file = bench.load(flt::file(flt::external("tank.flt") + flt::external("tank.flt")));
  touch("tank.flt");
  const auto list = references(*file);
  const osg::ref_ptr<Record> one = list[0], two = list[1];
  file->header()->removeChild(list[0]);
  EXPECT_THAT(file->changedExternals(), ElementsAre("tank.flt")) << "one is left";
  file->header()->removeChild(list[1]);
  EXPECT_THAT(file->changedExternals(), IsEmpty());
  file->header()->addChild(one, /*append=*/true);
  EXPECT_THAT(file->changedExternals(), ElementsAre("tank.flt")) << "an undo brought it back";
}

TEST_F(ExternalReferences, showTheNewContentAfterAReload)
{
  write("tank.flt", fileWith("old"));
  write("jeep.flt", fileWith("jeep"));
  const auto file =
      bench.load(flt::file(flt::external("tank.flt") + flt::external("jeep.flt") + flt::external("tank.flt")));
  const auto* jeep = references(*file)[1]->referencedFile();
  write("tank.flt", fileWith("new"));
  touch("tank.flt");
  file->reloadExternals(file->changedExternals());
  const auto list = references(*file);
  EXPECT_EQ(shown(*list[0]), "new");
  EXPECT_EQ(list[0]->referencedFile(), list[2]->referencedFile());
  EXPECT_EQ(list[1]->referencedFile(), jeep) << "what didn't change stays";
  EXPECT_EQ(first<GroupRecord>(*list[0]->referencedFile())->externalFile(), list[0]->referencedFile());
  EXPECT_THAT(file->changedExternals(), IsEmpty());
}

TEST_F(ExternalReferences, whoseNewContentIsDamagedAreEmptyAfterAReload)
{
  write("tank.flt", fileWith("old"));
  const auto file = bench.load(flt::file(flt::external("tank.flt")));
  write("tank.flt", "damaged");
  touch("tank.flt");
  file->reloadExternals({"tank.flt"});
  EXPECT_EQ(shownByFirst(*file), "");
  EXPECT_EQ(bench.host.warnings.back(), "Failed reading external reference tank.flt");
}

// ---- saving ---------------------------------------------------------------------------------------------------------

TEST_F(ExternalReferences, areSavedAsOneRecordWithItsAncillaries)
{
  write("tank.flt", fileWith("tank"));
  const auto bytes = flt::file(flt::external("tank.flt") + flt::comment("a tank") + flt::group("g1"));
  const auto file = bench.load(bytes);
  ASSERT_EQ(shownByFirst(*file), "tank");
  const auto saved = bench.save(*file);
  EXPECT_EQ(flt::outline(saved), "1 32 67 [ 63 31 2 ]") << "no push, no pop, nothing of the content";
  EXPECT_TRUE(sameBytes(saved, bytes));
}

TEST_F(ExternalReferences, leaveTheirFilesOutOfTheVertexPalette)
{
  flt::VertexPool pool;
  const auto corner = pool.add(flt::plainVertex(1, 2, 3));
  write("tank.flt", flt::file(pool, flt::polygon("p1", {corner, corner, corner})));
  const auto bytes = flt::file(flt::external("tank.flt"));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

} // namespace
} // namespace fltapi
