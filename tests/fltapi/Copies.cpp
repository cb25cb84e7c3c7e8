// Copies of records, of trees, of whole files.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

#include <set>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> namesBelow(PrimNodeRecord& node)
{
  std::vector<std::string> names;
  for (const auto* record : node.findDescendants(std::vector{2, 4, 5}, /*followInstances=*/false))
    names.push_back(record->getName());
  return names;
}

void collect(const PrimNodeRecord& node, std::set<const Record*>& records)
{
  records.insert(&node);
  for (const auto* child : node.children()) {
    records.insert(child);
    if (const auto* below = child->asNode()) collect(*below, records);
  }
  if (node.opcode() != opcodes::vertexList) return;
  for (const auto& vertex : static_cast<const VertexListRecord&>(node).vertices())
    records.insert(vertex.get());
}

std::set<const Record*> recordsOf(const FltFile& file)
{
  std::set<const Record*> records;
  collect(*file.header(), records);
  for (const auto& [number, definition] : file.instanceDefinitions())
    collect(*definition, records);
  return records;
}

class Copies : public testing::Test {
protected:
  osg::ref_ptr<FltFile> fileWith(const std::string& content)
  {
    flt::VertexPool pool;
    for (const double x : {0.0, 1.0, 2.0})
      pool.add(flt::plainVertex(x, 0, 0));
    return bench.load(flt::file(pool, content));
  }
  Workbench bench;
};

TEST_F(Copies, ofTreesHaveTheSameContentAndRecordsOfTheirOwn)
{
  const auto file = fileWith(flt::group("g1") + flt::longId("a group with a long name") + flt::comment("text") +
                             flt::level(flt::object("o1") + flt::level(flt::polygon("p1", {8, 48, 88}))));
  auto* group = file->header()->firstPrimaryChild();
  const osg::ref_ptr<PrimNodeRecord> copy = group->cloneTree(/*rename=*/false);
  EXPECT_EQ(copy->parent(), nullptr);
  EXPECT_EQ(copy->file(), file);
  EXPECT_EQ(copy->getName(), "a group with a long name");
  EXPECT_EQ(copy->getComment(), "text");
  EXPECT_EQ(childOpcodes(*copy), childOpcodes(*group));
  EXPECT_EQ(namesBelow(*copy), namesBelow(*group));
  const auto* face = static_cast<FaceRecord*>(named(*copy, "p1"));
  const auto* original = static_cast<FaceRecord*>(named(*group, "p1"));
  ASSERT_EQ(face->vertexCount(), 3);
  EXPECT_TRUE(face->vertexList()->sameVertices(*original->vertexList()));
  std::set<const Record*> of, with;
  collect(*group, of);
  collect(*copy, with);
  EXPECT_EQ(of.size(), with.size());
  for (const auto* record : with)
    EXPECT_FALSE(of.contains(record));
}

TEST_F(Copies, withFreshNamesDropLongOnes)
{
  const auto file = fileWith(flt::group("g1") + flt::longId("a group with a long name") + flt::comment("stays") +
                             flt::level(flt::object("o1") + flt::longId("an object with a long name")));
  auto* group = file->header()->firstPrimaryChild();
  const osg::ref_ptr<PrimNodeRecord> copy = group->cloneTree(/*rename=*/true);
  EXPECT_EQ(copy->getName(), "g1"); // the original is only called so in its ID
  EXPECT_THAT(childOpcodes(*copy), ElementsAre(opcodes::comment, opcodes::object));
  EXPECT_THAT(namesBelow(*copy), ElementsAre("g1", "o1"));
  EXPECT_EQ(group->getName(), "a group with a long name");
}

TEST_F(Copies, withFreshNamesLeaveTheOriginalsTheirs)
{
  const auto file = fileWith(flt::group("g5") + flt::level(flt::object("o1") + flt::object("wall")));
  auto* group = file->header()->firstPrimaryChild();
  const osg::ref_ptr<PrimNodeRecord> copy = group->cloneTree(/*rename=*/true);
  EXPECT_THAT(namesBelow(*copy), ElementsAre("g6", "o2", "o3"));
  EXPECT_THAT(namesBelow(*group), ElementsAre("g5", "o1", "wall"));
  for (const auto* name : {"g5", "o1", "wall", "g6", "o2", "o3"})
    EXPECT_TRUE(file->isNameTaken(name)) << name;
}

TEST_F(Copies, withUniqueNamesKeepWhatIsFree)
{
  const auto source = fileWith(flt::group("g5") + flt::level(flt::object("wall") + flt::object("roof")));
  const auto target = fileWith(flt::group("g1") + flt::level(flt::object("wall") + flt::object("wall_1")));
  const osg::ref_ptr<PrimNodeRecord> copy =
      source->header()->firstPrimaryChild()->cloneTree(target, /*rename=*/false, /*keepNamesUnique=*/true);
  EXPECT_EQ(copy->file(), target);
  EXPECT_THAT(namesBelow(*copy), ElementsAre("g5", "wall_2", "roof"));
  for (const auto* name : {"g5", "wall", "wall_1", "wall_2", "roof"})
    EXPECT_TRUE(target->isNameTaken(name)) << name;
}

TEST_F(Copies, withUniqueNamesWorkForLongOnes)
{
  const auto file = fileWith(flt::group("long") + flt::longId("a long name"));
  const osg::ref_ptr<PrimNodeRecord> copy = file->header()->firstPrimaryChild()->cloneTree(nullptr, false, true);
  EXPECT_EQ(copy->getName(), "a long name_1");
  EXPECT_THAT(childOpcodes(*copy), ElementsAre(opcodes::longId));
  EXPECT_TRUE(file->isNameTaken("a long name"));
}

TEST_F(Copies, ofAnExternalReferenceShowTheSameContentUnderItsNames)
{
  const osg::ref_ptr<FltFile> shown = new FltFile;
  shown->initNew();
  const auto file = fileWith(flt::external("shown.flt"));
  auto* external = first<ExternalRecord>(*file);
  external->show(shown, "/somewhere/shown.flt");
  const osg::ref_ptr<PrimNodeRecord> copy = external->cloneTree(/*rename=*/true);
  const auto& twin = static_cast<const ExternalRecord&>(*copy);
  EXPECT_EQ(twin.referencedFile(), shown);
  EXPECT_EQ(twin.resolvedPath(), "/somewhere/shown.flt");
  EXPECT_EQ(twin.firstPrimaryChild(), shown->header());
  EXPECT_EQ(shown->header()->getName(), "db");
}

TEST_F(Copies, ofASwitchHaveItsMasks)
{
  const auto file = bench.load(flt::generatedFile("wide-switch"));
  auto* original = first<SwitchRecord>(*file);
  const osg::ref_ptr<PrimNodeRecord> copy = original->cloneTree(/*rename=*/false);
  EXPECT_EQ(static_cast<const SwitchRecord&>(*copy).masks(), original->masks());
  EXPECT_EQ(copy->length(), original->length());
}

TEST_F(Copies, bringTheDefinitionsThatTheirTargetLacks)
{
  const auto source = bench.load(flt::generatedFile("nested-instances"));
  const auto target = fileWith(flt::instanceDefinition(2) + flt::level(flt::object("mine")));
  auto* group = named(*source->header(), "g3");
  const osg::ref_ptr<PrimNodeRecord> copy = group->cloneTree(target, false, false);
  ASSERT_TRUE(target->instanceDefinition(2));
  EXPECT_EQ(target->instanceDefinition(2)->firstPrimaryChild()->getName(), "mine");
  EXPECT_EQ(target->instanceDefinition(1), nullptr); // only the definition that stays behind refers to it

  const auto empty = fileWith("");
  const osg::ref_ptr<PrimNodeRecord> second = group->cloneTree(empty, false, false);
  ASSERT_TRUE(empty->instanceDefinition(2));
  ASSERT_TRUE(empty->instanceDefinition(1));
  EXPECT_EQ(empty->instanceDefinition(1)->firstPrimaryChild()->firstPrimaryChild()->getName(), "o1");
  EXPECT_EQ(empty->instanceDefinition(1)->file(), empty);
  EXPECT_EQ(empty->instanceDefinitions().size(), 2u);
}

TEST_F(Copies, ofDefinitionsGetNamesLikeTheRest)
{
  const auto source = bench.load(flt::generatedFile("nested-instances"));
  const auto target = fileWith(flt::group("g9") + flt::level(flt::object("o9")));
  const osg::ref_ptr<PrimNodeRecord> copy = named(*source->header(), "g3")->cloneTree(target, true, false);
  EXPECT_EQ(copy->getName(), "g10");
  EXPECT_EQ(target->instanceDefinition(2)->firstPrimaryChild()->getName(), "g11");
}

TEST_F(Copies, ofDefinitionsThatReferToEachOtherEnd)
{
  const auto source = bench.load(flt::generatedFile("recursive-instance"));
  const auto target = fileWith("");
  auto* reference = source->header()->firstPrimaryChild();
  ASSERT_EQ(reference->opcode(), opcodes::instanceReference);
  const osg::ref_ptr<PrimNodeRecord> copy = reference->cloneTree(target, false, false);
  EXPECT_EQ(target->instanceDefinitions().size(), 2u);
}

TEST_F(Copies, ofExternalContentStayMarkedAsSuch)
{
  const auto file = fileWith(flt::group("g1"));
  const osg::ref_ptr<FltFile> shown = new FltFile;
  auto* group = file->header()->firstPrimaryChild();
  group->setExternalFile(shown);
  const osg::ref_ptr<PrimNodeRecord> copy = group->cloneTree(/*rename=*/false);
  EXPECT_EQ(copy->externalFile(), shown);
}

TEST_F(Copies, ofWholeFilesShareNothingAndSaveTheSameBytes)
{
  for (const auto& [name, bytes] : flt::generatedFiles()) {
    const auto file = bench.load(bytes);
    const auto before = bench.save(*file);
    const osg::ref_ptr<FltFile> copy = new FltFile(*file);
    EXPECT_TRUE(sameBytes(bench.save(*copy), before)) << name;
    EXPECT_TRUE(sameBytes(bench.save(*file), before)) << name;
    EXPECT_EQ(copy->totalBytes(), file->totalBytes()) << name;
    EXPECT_EQ(copy->path(), file->path());
    const auto originals = recordsOf(*file), copies = recordsOf(*copy);
    EXPECT_EQ(originals.size(), copies.size()) << name;
    for (const auto* record : copies) {
      EXPECT_FALSE(originals.contains(record)) << name;
      EXPECT_EQ(record->file(), copy) << name;
    }
  }
}

TEST_F(Copies, ofWholeFilesOutliveTheOriginals)
{
  auto file = bench.load(flt::generatedFile("every-kind"));
  const auto before = bench.save(*file);
  const osg::ref_ptr<FltFile> copy = new FltFile(*file);
  file = nullptr;
  EXPECT_TRUE(sameBytes(bench.save(*copy), before));
}

TEST_F(Copies, ofWholeFilesKeepSecondDefinitionsOfANumber)
{
  const auto file = bench.load(flt::generatedFile("double-instance"));
  bench.host.warnings.clear();
  const osg::ref_ptr<FltFile> copy = new FltFile(*file);
  EXPECT_THAT(bench.host.warnings, IsEmpty());
  std::vector<std::string> names;
  for (const auto& [number, definition] : copy->instanceDefinitions())
    names.push_back(definition->firstPrimaryChild()->getName());
  EXPECT_THAT(names, ElementsAre("first", "second"));
}

TEST_F(Copies, ofAnEmptyFileAreEmpty)
{
  const osg::ref_ptr<FltFile> empty = new FltFile;
  empty->setQuiet(true);
  const osg::ref_ptr<FltFile> copy = new FltFile(*empty);
  EXPECT_EQ(copy->header(), nullptr);
  EXPECT_TRUE(copy->quiet());
}

} // namespace
} // namespace fltapi
