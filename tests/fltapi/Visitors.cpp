#include "fltapi/RecordVisitor.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/visitors/FirstReferenceVisitor.h"
#include "fltapi/visitors/MakeExternalVisitor.h"
#include "tests/fltapi/support/RecordLayouts.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

#include <set>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

/// Notes which overload each record comes to, and goes no further from there.
class Overloads : public RecordVisitor {
public:
#define NOTE(Class, Fallback)                                                                                          \
  void apply(Class&) override                                                                                          \
  {                                                                                                                    \
    met.emplace_back(#Class);                                                                                          \
  }
  FLTAPI_VISITED_RECORDS(NOTE, NOTE)
#undef NOTE
  void apply(Record&) override
  {
    met.emplace_back("Record");
  }
  std::vector<std::string> met;
};

/// Notes the opcodes of all records that come to the last overload.
class Walk : public RecordVisitor {
public:
  using RecordVisitor::apply;
  using RecordVisitor::RecordVisitor;
  void apply(Record& record) override
  {
    opcodes.push_back(record.opcode());
    RecordVisitor::apply(record);
  }
  std::vector<int> opcodes;
};

TEST(Visitors, meetEachClassInItsOwnOverload)
{
  // These have none and go straight to the last one.
  const std::set<std::string> plain = {"PushLevelRecord",          "PopLevelRecord",
                                       "PushSubfaceRecord",        "PopSubfaceRecord",
                                       "PushExtensionRecord",      "PopExtensionRecord",
                                       "PushAttributeRecord",      "PopAttributeRecord",
                                       "ContinuationRecord",       "EyepointTrackplanePaletteRecord",
                                       "OldMaterialPaletteRecord", "TextureMappingPaletteRecord",
                                       "TranslateRecord",          "ScaleRecord",
                                       "RotateAboutEdgeRecord",    "RotateAboutPointRecord",
                                       "RotateScaleToPointRecord", "PutTransformRecord"};
  for (const auto& layout : flt::recordLayouts()) {
    const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(layout.opcode));
    Overloads visitor;
    record->accept(visitor);
    EXPECT_THAT(visitor.met, ElementsAre(plain.contains(layout.className) ? "Record" : layout.className));
  }
  const osg::ref_ptr<Record> unknown = makeRecord(defaultBuffer(4711));
  Overloads visitor;
  unknown->accept(visitor);
  EXPECT_THAT(visitor.met, ElementsAre("Record"));
}

TEST(Visitors, meetNodesInTheOverloadOfAllNodesAndOthersInTheLast)
{
  class Nodes : public Walk {
  public:
    using Walk::apply;
    void apply(PrimNodeRecord& node) override { nodes.push_back(node.opcode()); }
    std::vector<int> nodes;
  };
  for (const auto& layout : flt::recordLayouts()) {
    const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(layout.opcode));
    Nodes visitor;
    record->accept(visitor);
    // A definition is never walked where it stands, a reference only leads to its definition.
    const bool stops = layout.opcode == opcodes::instanceDefinition || layout.opcode == opcodes::instanceReference;
    EXPECT_EQ(visitor.nodes.size(), record->isPrimary() && !stops ? 1u : 0u) << layout.className;
    EXPECT_EQ(visitor.opcodes.size(), record->isPrimary() ? 0u : 1u) << layout.className;
  }
}

class Walks : public testing::Test {
protected:
  std::vector<int> walk(PrimNodeRecord& node, TraversalMode mode, bool revisit = false)
  {
    Walk visitor(mode);
    visitor.revisit = revisit;
    node.accept(visitor);
    return visitor.opcodes;
  }
  Workbench bench;
};

TEST_F(Walks, goThroughTheTreeInOrder)
{
  const auto file =
      bench.load(flt::file(flt::group("g1") + flt::comment("c") +
                           flt::level(flt::object("o1") + flt::level(flt::face("p1")) + flt::group("g2"))));
  EXPECT_THAT(walk(*file->header(), TraversalMode::all), ElementsAre(1, 32, 67, 2, 31, 4, 5, 2));
  EXPECT_THAT(walk(*file->header(), TraversalMode::notExternals), ElementsAre(1, 32, 67, 2, 31, 4, 5, 2));
  EXPECT_THAT(walk(*file->header(), TraversalMode::none), ElementsAre(1));
}

TEST_F(Walks, enterExternalReferencesOrDoNot)
{
  const osg::ref_ptr<FltFile> shown = new FltFile;
  shown->initNew();
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::external("x.flt") + flt::object("o1"))));
  first<ExternalRecord>(*file)->show(shown, "x.flt");
  EXPECT_THAT(walk(*file->header(), TraversalMode::all), ElementsAre(1, 32, 67, 2, 63, 1, 32, 128, 67, 4));
  EXPECT_THAT(walk(*file->header(), TraversalMode::notExternals), ElementsAre(1, 32, 67, 2, 4));
}

TEST_F(Walks, enterAnInstanceOnceOrForEachReference)
{
  const auto file = bench.load(flt::file(flt::instanceDefinition(1) + flt::comment("of the definition") +
                                         flt::level(flt::group("g1") + flt::group("g2")) + flt::instanceReference(1) +
                                         flt::instanceReference(1)));
  // The first node of the definition is what is shown.
  EXPECT_THAT(walk(*file->header(), TraversalMode::all), ElementsAre(1, 32, 67, 2));
  EXPECT_THAT(walk(*file->header(), TraversalMode::all, /*revisit=*/true), ElementsAre(1, 32, 67, 2, 2));
  EXPECT_THAT(walk(*file->instanceDefinition(1), TraversalMode::all), IsEmpty());
}

TEST_F(Walks, endWhereInstancesLeadBackToThemselves)
{
  const auto file = bench.load(flt::generatedFile("recursive-instance"));
  EXPECT_THAT(walk(*file->header(), TraversalMode::all), ElementsAre(1, 32, 67, 2, 2));
  EXPECT_THAT(walk(*file->header(), TraversalMode::all, /*revisit=*/true), ElementsAre(1, 32, 67, 2, 2));
}

TEST_F(Walks, endWhereInstancesNestTooDeeply)
{
  std::string chain;
  constexpr int links = 20000;
  for (int i = links; i > 0; --i)
    chain += flt::instanceDefinition(i) + flt::level(flt::group("g") + flt::level(flt::instanceReference(i - 1)));
  const auto file = bench.load(flt::file(chain + flt::instanceReference(links)));
  const auto met = walk(*file->header(), TraversalMode::all).size();
  EXPECT_GT(met, 900u);
  EXPECT_LE(met, 2010u);
}

TEST_F(Walks, handRecordsToAnotherVisitor)
{
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::object("o1"))));
  Walk other(TraversalMode::none);
  RecordVisitor visitor;
  visitor.traversalVisitor = &other;
  file->header()->accept(visitor);
  EXPECT_THAT(other.opcodes, ElementsAre(1));
}

TEST_F(Walks, mayRemoveWhatTheyMeet)
{
  class Remover : public RecordVisitor {
  public:
    using RecordVisitor::apply;
    void apply(ObjectRecord& object) override { object.parent()->removeChild(&object); }
  };
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::object("o1") + flt::object("o2"))));
  Remover remover;
  file->header()->accept(remover);
  EXPECT_THAT(file->header()->findDescendants(opcodes::object, false), testing::SizeIs(1)); // the second one moved up
}

TEST_F(Walks, findDescendantsInOrderWithAndWithoutInstances)
{
  const auto file = bench.load(flt::generatedFile("nested-instances"));
  const auto names = [](const std::vector<Record*>& records) {
    std::vector<std::string> list;
    for (const auto* record : records)
      list.push_back(record->getName());
    return list;
  };
  auto& header = *file->header();
  EXPECT_THAT(names(header.findDescendants(opcodes::group, /*followInstances=*/false)), ElementsAre("g3"));
  EXPECT_THAT(names(header.findDescendants(opcodes::group, /*followInstances=*/true)), ElementsAre("g3", "g2", "g1"));
  EXPECT_THAT(header.findDescendants(opcodes::instanceReference, /*followInstances=*/false), testing::SizeIs(2));
  EXPECT_THAT(names(header.findDescendants(std::vector{opcodes::header, opcodes::object}, true)),
              ElementsAre("db", "o1"));
}

TEST_F(Walks, findTheFirstReferenceToAnInstance)
{
  const auto file = bench.load(flt::generatedFile("nested-instances"));
  const auto* first = file->firstReferenceTo(2);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->parent()->getName(), "g3");
  EXPECT_EQ(file->firstReferenceTo(1)->parent()->getName(), "g2"); // inside the definition of the other
  EXPECT_EQ(file->firstReferenceTo(5), nullptr);
}

TEST_F(Walks, markTheContentOfAnExternal)
{
  const auto file = bench.load(flt::file(flt::group("g1") + flt::level(flt::external("x.flt") + flt::object("o1"))));
  const osg::ref_ptr<FltFile> owner = new FltFile, inner = new FltFile;
  inner->initNew();
  MakeExternalVisitor innerMark(inner);
  inner->header()->accept(innerMark);
  first<ExternalRecord>(*file)->show(inner, "x.flt");
  MakeExternalVisitor mark(owner);
  file->header()->accept(mark);
  EXPECT_EQ(first<GroupRecord>(*file)->externalFile(), owner);
  EXPECT_EQ(first<ObjectRecord>(*file)->externalFile(), owner);
  EXPECT_EQ(first<ExternalRecord>(*file)->externalFile(), owner);
  EXPECT_EQ(inner->header()->externalFile(), inner);
}

} // namespace
} // namespace fltapi
