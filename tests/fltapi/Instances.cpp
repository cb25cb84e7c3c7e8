// Where definitions of instances go in a file.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using flt::instanceDefinition;
using flt::instanceReference;
using flt::level;

class Instances : public testing::Test {
protected:
  std::string savedOutline(const std::string& content) { return flt::outline(bench.roundTrip(flt::file(content))); }
  /// The numbers of definitions ("d3") and references ("r3") in the order of the file.
  std::string numbers(const std::string& saved)
  {
    std::string list;
    for (const auto& record : flt::recordsOf(saved)) {
      if (record.opcode != 61 && record.opcode != 62) continue;
      list += (record.opcode == 62 ? " d" : " r") + std::to_string(flt::bigEndian(record.content, 2, 2));
    }
    return list;
  }
  Workbench bench;
};

TEST_F(Instances, areDefinedRightBeforeTheFirstReference)
{
  const auto saved = bench.roundTrip(
      flt::file(instanceDefinition(1) + level(flt::object("o1")) + flt::group("g1") + flt::group("g2") +
                level(flt::object("o2") + instanceReference(1) + instanceReference(1)) + instanceReference(1)));
  EXPECT_EQ(flt::outline(saved), "1 32 67 [ 2 2 [ 4 62 [ 4 ] 61 61 ] 61 ]");
}

TEST_F(Instances, areDefinedInsideTheDefinitionThatFirstRefersToThem)
{
  const auto saved = bench.roundTrip(flt::generatedFile("nested-instances"));
  EXPECT_EQ(flt::outline(saved), "1 32 67 [ 2 [ 62 [ 2 [ 62 [ 2 [ 4 ] ] 61 61 ] ] 61 ] 61 ]");
  EXPECT_EQ(numbers(saved), " d2 d1 r1 r1 r2 r1");
}

TEST_F(Instances, thatNobodyRefersToStandLastInTheHeadersLevel)
{
  EXPECT_EQ(savedOutline(instanceDefinition(9) + flt::comment("nobody shows this") + level(flt::object("o1")) +
                         instanceDefinition(3) + level(flt::object("o2")) + flt::group("g1")),
            "1 32 67 [ 2 62 [ 4 ] 62 31 [ 4 ] ]");
  EXPECT_EQ(savedOutline(instanceDefinition(1) + level(flt::object("o1"))), "1 32 67 [ 62 [ 4 ] ]");
}

TEST_F(Instances, ofOneNumberStandTogether)
{
  const auto bytes = flt::generatedFile("double-instance");
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(Instances, thatShowThemselvesAreDefinedOnce)
{
  EXPECT_EQ(savedOutline(instanceDefinition(1) + level(flt::group("g1") + level(instanceReference(1))) +
                         instanceReference(1)),
            "1 32 67 [ 62 [ 2 [ 61 ] ] 61 ]");
  const auto saved = bench.roundTrip(flt::generatedFile("recursive-instance"));
  EXPECT_EQ(numbers(saved), " d1 d2 r1 r2 r1 r7");
  EXPECT_TRUE(sameBytes(bench.roundTrip(saved), saved));
}

TEST_F(Instances, keepNumbersOf16Bits)
{
  const auto bytes = flt::file(instanceDefinition(-1) + level(flt::object("o1")) + instanceReference(-1));
  const auto file = bench.load(bytes);
  EXPECT_TRUE(file->instanceDefinition(65535));
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(Instances, keepAncillariesOfReferencesAndDefinitions)
{
  const auto bytes =
      flt::file(instanceDefinition(1) + flt::comment("defined") + level(flt::object("o1")) + instanceReference(1) +
                flt::comment("shown") + flt::matrix({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}));
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(Instances, ofADroppedPartGoWithItOrComeLater)
{
  // A light point system is unknown below 15.8; the only reference in front of the second one stood inside it.
  const auto file = bench.load(flt::file(instanceDefinition(1) + level(flt::object("o1")) + flt::sampleRecord(131) +
                                         level(instanceReference(1)) + flt::group("g1") + level(instanceReference(1))));
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 131 [ 62 [ 4 ] 61 ] 2 [ 61 ] ]");
  EXPECT_EQ(flt::outline(bench.save(*file, 1570)), "1 32 67 [ 2 [ 62 [ 4 ] 61 ] ]");
}

TEST_F(Instances, inALongChainAreDefinedSideBySide)
{
  // Each shows the one before it; nested into each other they would be too deep for any reader.
  for (const int links : {400, 600, 5000}) {
    std::string chain;
    for (int i = 1; i <= links; ++i)
      chain += instanceDefinition(i) + level(flt::group("g") + level(instanceReference(i - 1)));
    const auto file = bench.load(flt::file(chain + instanceReference(links)));
    const auto saved = bench.save(*file);
    int depth = 0, deepest = 0;
    for (const int opcode : flt::opcodesOf(saved)) {
      depth += opcode == opcodes::pushLevel ? 1 : opcode == opcodes::popLevel ? -1 : 0;
      deepest = std::max(deepest, depth);
    }
    EXPECT_EQ(deepest, links <= 499 ? 2 * links + 1 : 3) << links;
    const auto again = bench.load(saved);
    EXPECT_EQ(again->instanceDefinitions().size(), static_cast<std::size_t>(links));
    EXPECT_TRUE(sameBytes(bench.save(*again), saved));
  }
}

TEST_F(Instances, thatAreAddedToTheFileAreWritten)
{
  const auto file = bench.load(flt::file(flt::group("g1")));
  osg::ref_ptr<InstanceDefinitionRecord> definition = file->create<InstanceDefinitionRecord>();
  definition->set(InstanceDefinitionRecord::fields.instanceNumber, std::uint16_t{5});
  definition->addChild(file->create<ObjectRecord>(), /*append=*/true);
  file->addInstanceDefinition(*definition);
  auto* reference = file->create<InstanceReferenceRecord>();
  reference->set(InstanceReferenceRecord::fields.instanceNumber, std::uint16_t{5});
  file->header()->firstPrimaryChild()->addChild(reference, /*append=*/true);
  EXPECT_EQ(flt::outline(bench.save(*file)), "1 32 67 [ 2 [ 62 [ 4 ] 61 ] ]");
}

} // namespace
} // namespace fltapi
