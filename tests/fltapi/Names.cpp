// Names, comments, and the numbers that default names come from.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

class Names : public testing::Test {
protected:
  Names()
  {
    file->initNew();
    file->header()->addChild(group, /*append=*/true);
  }
  std::string idOf(const Record& record) const { return {reinterpret_cast<const char*>(record.data()) + 4, 8}; }
  GroupRecord* anotherGroup()
  {
    auto* another = file->create<GroupRecord>();
    file->header()->addChild(another, /*append=*/true);
    return another;
  }

  osg::ref_ptr<FltFile> file = new FltFile;
  osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
};

TEST_F(Names, of7CharactersFitIntoTheRecord)
{
  EXPECT_TRUE(group->setName("seven77"));
  EXPECT_EQ(idOf(*group), std::string("seven77\0", 8));
  EXPECT_EQ(group->getName(), "seven77");
  EXPECT_THAT(childOpcodes(*group), IsEmpty());
  EXPECT_EQ(group->longId(), "");
}

TEST_F(Names, of8CharactersGetARecordOfTheirOwn)
{
  EXPECT_TRUE(group->setName("eight888"));
  EXPECT_EQ(idOf(*group), std::string("eight88\0", 8));
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::longId));
  EXPECT_EQ(group->childAt(0)->length(), 8u + 5u);
  EXPECT_EQ(group->longId(), "eight888");
  EXPECT_EQ(group->getName(), "eight888");
}

TEST_F(Names, thatAreLongStandInFrontOfTheNodes)
{
  group->addChild(file->create<BoundingBoxRecord>(), /*append=*/true);
  group->addChild(file->create<ObjectRecord>(), /*append=*/true);
  group->setName("a rather long name");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::longId, opcodes::object));
  group->setName("another long name");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::longId, opcodes::object));
  EXPECT_EQ(group->getName(), "another long name");
  group->setName("short");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::object));
  EXPECT_EQ(group->getName(), "short");
}

TEST_F(Names, thatAreLongEndAtTheirFirstZero)
{
  auto* record = file->create<LongIDRecord>();
  record->resize(20);
  std::memcpy(record->data() + 4, "cut\0 here, please", 16);
  group->addChild(record, /*append=*/true);
  EXPECT_EQ(group->getName(), "cut");
}

TEST_F(Names, comeFromTheRecordWhenTheLongOneIsEmpty)
{
  group->setName("plain");
  group->addChild(file->create<LongIDRecord>(), /*append=*/true);
  EXPECT_EQ(group->getName(), "plain");
}

TEST_F(Names, of8CharactersInTheRecordItselfAreReadWhole)
{
  std::memcpy(group->data() + 4, "12345678", 8);
  EXPECT_EQ(group->getName(), "12345678");
}

TEST_F(Names, thatAreTakenChangeNothing)
{
  group->setName("taken");
  auto* another = anotherGroup();
  another->setName("mine");
  EXPECT_FALSE(another->setName("taken", /*allowDuplicate=*/false));
  EXPECT_EQ(another->getName(), "mine");
  EXPECT_TRUE(file->isNameTaken("mine"));
  EXPECT_TRUE(another->setName("taken", /*allowDuplicate=*/true));
  EXPECT_EQ(another->getName(), "taken");
  EXPECT_FALSE(file->isNameTaken("mine"));
}

TEST_F(Names, areTakenAsOftenAsTheyWereGiven)
{
  group->setName("twice");
  auto* another = anotherGroup();
  another->setName("twice");
  group->setName("other");
  EXPECT_TRUE(file->isNameTaken("twice"));
  another->setName("different");
  EXPECT_FALSE(file->isNameTaken("twice"));
}

TEST_F(Names, givenAgainStayTakenOnce)
{
  group->setName("same");
  EXPECT_TRUE(group->setName("same"));
  EXPECT_FALSE(group->setName("same", /*allowDuplicate=*/false)); // taken by itself
  group->setName("other");
  EXPECT_FALSE(file->isNameTaken("same"));
}

TEST_F(Names, mayAlwaysBeEmpty)
{
  group->setName("");
  auto* another = anotherGroup();
  EXPECT_TRUE(another->setName("", /*allowDuplicate=*/false));
  EXPECT_FALSE(file->isNameTaken(""));
}

TEST_F(Names, ofALoadedFileAreTaken)
{
  Workbench bench;
  const auto loaded = bench.load(flt::generatedFile("nested-instances"));
  for (const auto* name : {"db", "g1", "g3", "o1"})
    EXPECT_TRUE(loaded->isNameTaken(name)) << name;
  EXPECT_FALSE(loaded->isNameTaken("g4"));
}

TEST_F(Names, withoutAFileChangeNothing)
{
  const osg::ref_ptr<Record> loose = makeRecord(defaultBuffer(opcodes::group));
  EXPECT_TRUE(loose->setName("name"));
  EXPECT_EQ(loose->getName(), "");
}

struct DefaultName {
  int opcode;
  const char* first;
  std::size_t counterInHeader;
};

// What each kind is called first, and where the header keeps its next number.
constexpr DefaultName defaultNames[] = {
    {opcodes::group, "g1", 52},
    {opcodes::object, "o1", 56},
    {opcodes::face, "p1", 58},
    {opcodes::lod, "l1", 54},
    {opcodes::dof, "dof1", 124},
    {opcodes::switchNode, "sw1", 182},
    {opcodes::lightSource, "ls1", 252},
    {opcodes::lightPoint, "lp1", 254},
    {opcodes::indexedLightPoint, "lp1", 254},
    {opcodes::lightPointSystem, "lps1", 302},
    {opcodes::mesh, "m1", 300},
    {opcodes::bsp, "bsp1", 180},
    {opcodes::sound, "s1", 164},
    {opcodes::text, "t1", 178},
    {opcodes::roadPath, "pth1", 166},
    {opcodes::roadConstruction, "R1.0", 256},
    {opcodes::clipRegion, "c1", 176},
    {opcodes::cat, "cat1", 258},
    {opcodes::curve, "cv1", 274},
};

TEST_F(Names, byDefaultCountUpForEachKind)
{
  for (const auto& [opcode, first, unused] : defaultNames) {
    const osg::ref_ptr<FltFile> fresh = new FltFile;
    fresh->initNew();
    for (int i = 1; i <= 3; ++i) {
      const osg::ref_ptr<Record> record = fresh->createRecord(opcode);
      record->assignUniqueName();
      auto expected = std::string(first);
      expected[expected.find('1')] = static_cast<char>('0' + i);
      EXPECT_EQ(record->getName(), expected);
    }
  }
}

TEST_F(Names, ofTheDefaultShapeRaiseTheirCounterAndTheHeadersField)
{
  for (const auto& [opcode, first, offset] : defaultNames) {
    if (opcode == opcodes::roadConstruction) continue;
    const osg::ref_ptr<FltFile> fresh = new FltFile;
    fresh->initNew();
    const osg::ref_ptr<Record> record = fresh->createRecord(opcode);
    record->setName(std::string(first) + "2"); // twelve
    EXPECT_EQ(fresh->nextNumber(opcodeInfo(opcode).counter), 13u) << first;
    EXPECT_EQ(loadAt<std::uint16_t>(fresh->header()->data() + offset), 12) << first;
    const osg::ref_ptr<Record> next = fresh->createRecord(opcode);
    next->assignUniqueName();
    EXPECT_EQ(next->getName(), opcodeInfo(opcode).prefix + std::string("13"));
  }
}

TEST_F(Names, ofAnyOtherShapeRaiseNoCounter)
{
  for (const auto* name : {"g", "g12a", "a12", "G12", "g 12", "g-1", "12", "gg12"}) {
    group->setName(name);
    EXPECT_EQ(file->nextNumber(NameCounter::group), 1u) << name;
  }
  const osg::ref_ptr<ObjectRecord> object = file->create<ObjectRecord>();
  object->setName("g12"); // the shape of another kind
  EXPECT_EQ(file->nextNumber(NameCounter::group), 1u);
  const osg::ref_ptr<Record> road = file->createRecord(opcodes::roadConstruction);
  road->setName("R3.0");
  EXPECT_EQ(file->nextNumber(NameCounter::road), 1u);
}

TEST_F(Names, raiseTheHeadersFieldButNeverLowerIt)
{
  file->header()->set(HeaderRecord::fields.nextGroup, std::uint16_t{500});
  group->setName("g12");
  EXPECT_EQ(file->header()->get(HeaderRecord::fields.nextGroup), 500);
  group->setName("g501");
  EXPECT_EQ(file->header()->get(HeaderRecord::fields.nextGroup), 501);
}

TEST_F(Names, withHugeNumbersAreOnlyNames)
{
  group->setName("g99999999999999999999");
  EXPECT_EQ(file->header()->get(HeaderRecord::fields.nextGroup), 65535);
  auto* another = anotherGroup();
  another->assignUniqueName();
  EXPECT_EQ(another->getName(), ""); // no number is left
}

TEST_F(Names, byDefaultSkipWhatIsTaken)
{
  const osg::ref_ptr<FaceRecord> face = file->create<FaceRecord>();
  face->setName("g1"); // another kind's, so the counter of groups doesn't know
  group->assignUniqueName();
  EXPECT_EQ(group->getName(), "g2");
}

TEST_F(Names, byDefaultNeedAHeader)
{
  const osg::ref_ptr<FltFile> empty = new FltFile;
  const osg::ref_ptr<GroupRecord> orphan = empty->create<GroupRecord>();
  orphan->assignUniqueName();
  EXPECT_EQ(orphan->getName(), "");
}

TEST_F(Names, areNoneForKindsWithoutAnId)
{
  for (const int opcode :
       {opcodes::instanceReference, opcodes::instanceDefinition, opcodes::vertexList, opcodes::localVertexPool,
        opcodes::meshPrimitive, opcodes::roadSegment, opcodes::morphVertexList}) {
    const osg::ref_ptr<Record> record = file->createRecord(opcode);
    std::memset(record->data() + 4, 'x', 4);
    EXPECT_EQ(record->getName(), "") << opcode;
    EXPECT_TRUE(record->setName("name")) << opcode;
    EXPECT_EQ(record->getName(), "") << opcode;
  }
}

TEST_F(Names, ofExternalReferencesAreTheirPaths)
{
  const osg::ref_ptr<ExternalRecord> external = file->create<ExternalRecord>();
  external->set(ExternalRecord::fields.path, "C:\\models\\tree.flt");
  EXPECT_EQ(external->getName(), "C:\\models\\tree.flt");
}

TEST_F(Names, ofPaletteEntriesAreTheirs)
{
  const osg::ref_ptr<Record> material = file->create<MaterialPaletteRecord>();
  EXPECT_TRUE(material->setName("thirteen char"));
  EXPECT_EQ(material->getName(), "thirteen ch");
  for (const int opcode : {opcodes::lightPointAppearancePalette, opcodes::lightPointAnimationPalette,
                           opcodes::shaderPalette, opcodes::textureMappingPalette}) {
    const osg::ref_ptr<Record> entry = file->createRecord(opcode);
    EXPECT_TRUE(entry->setName("named"));
    EXPECT_EQ(entry->getName(), "named") << opcode;
  }
}

TEST(NewFile, hasAHeaderPalettesAndOneAppearance)
{
  const osg::ref_ptr<FltFile> file = new FltFile;
  EXPECT_EQ(file->header(), nullptr);
  EXPECT_EQ(file->colorPalette(), nullptr);
  EXPECT_THAT(file->palette(opcodes::materialPalette), IsEmpty());
  file->initNew();
  EXPECT_EQ(file->path(), "untitled.flt");
  EXPECT_EQ(file->header()->getName(), "db");
  EXPECT_THAT(childOpcodes(*file->header()),
              ElementsAre(opcodes::colorPalette, opcodes::lightPointAppearancePalette, opcodes::vertexPalette));
  const auto* appearance = file->palette(opcodes::lightPointAppearancePalette).front();
  EXPECT_EQ(appearance->getName(), "appearance0");
  EXPECT_EQ(appearance->get(LightPointAppearancePaletteRecord::fields.index), 0);
  EXPECT_EQ(file->vertexPalette()->get(VertexPaletteRecord::fields.paletteLength), 8u);
  const auto date = file->header()->get(HeaderRecord::fields.dateAndTime);
  EXPECT_THAT(date, testing::MatchesRegex("[A-Z][a-z][a-z] [A-Z][a-z][a-z] [ 0-9][0-9] [0-9:]+ [0-9]+"));
}

class Comments : public Names {};

TEST_F(Comments, standInFrontOfTheNodesAndGoWhenEmpty)
{
  EXPECT_EQ(group->getComment(), "");
  group->addChild(file->create<ObjectRecord>(), /*append=*/true);
  group->setComment("");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::object));
  group->setComment("first\nsecond");
  EXPECT_EQ(group->getComment(), "first\nsecond");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::comment, opcodes::object));
  EXPECT_EQ(group->childAt(0)->length(), 12u + 5u);
  group->setComment("other");
  EXPECT_EQ(group->getComment(), "other");
  EXPECT_EQ(group->childCount(), 2);
  group->setComment("");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::object));
}

TEST_F(Comments, standAtTheEndOfANodeWithoutNodes)
{
  group->addChild(file->create<BoundingBoxRecord>(), /*append=*/true);
  group->setComment("text");
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::comment));
}

TEST_F(Comments, areReadUpToTheirEndOrTheirFirstZero)
{
  Workbench bench;
  const auto loaded =
      bench.load(flt::file(flt::group("g1") + flt::record(31, "12345678") + flt::group("g2") +
                           flt::record(31, std::string("ab\0cd\0", 6)) + flt::group("g3") + flt::record(31)));
  EXPECT_EQ(named(*loaded->header(), "g1")->getComment(), "12345678");
  EXPECT_EQ(named(*loaded->header(), "g2")->getComment(), "ab");
  EXPECT_EQ(named(*loaded->header(), "g3")->getComment(), "");
}

TEST_F(Comments, mayBeLongerThanARecord)
{
  const std::string text(200000, 'x');
  group->setComment(text);
  EXPECT_EQ(group->getComment(), text);
  Workbench bench;
  EXPECT_EQ(bench.load(bench.save(*file))->header()->firstPrimaryChild()->getComment(), text);
}

} // namespace
} // namespace fltapi
