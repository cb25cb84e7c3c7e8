#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

#include <random>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

/// A group in a file of its own.
class Children : public testing::Test {
protected:
  Children()
  {
    file->initNew();
    file->header()->addChild(group, /*append=*/true);
  }

  ObjectRecord* object(const std::string& name)
  {
    auto* record = file->create<ObjectRecord>();
    record->set(nodeFields.id, name);
    return record;
  }
  ObjectRecord* appended(const std::string& name)
  {
    auto* record = object(name);
    group->addChild(record, /*append=*/true);
    return record;
  }
  /// Names of the children, "-" for ancillaries; checks on the way that everything about positions agrees.
  std::vector<std::string> names() const
  {
    std::vector<std::string> list;
    int primaries = 0;
    for (int i = 0; i < group->childCount(); ++i) {
      const auto* child = group->childAt(i);
      EXPECT_EQ(child->index(), i);
      EXPECT_EQ(child->parent(), group.get());
      list.push_back(child->isPrimary() ? child->getName() : "-");
      if (!child->isPrimary()) continue;
      EXPECT_EQ(group->primaryChildAt(primaries), child);
      EXPECT_EQ(group->primaryIndexOf(*child), primaries);
      ++primaries;
    }
    EXPECT_EQ(group->primaryChildCount(), primaries);
    EXPECT_EQ(std::ranges::distance(group->primaryChildren()), primaries);
    EXPECT_EQ(group->childAt(group->childCount()), nullptr);
    EXPECT_EQ(group->primaryChildAt(primaries), nullptr);
    return list;
  }

  osg::ref_ptr<FltFile> file = new FltFile;
  osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
};

TEST_F(Children, areAppendedInOrder)
{
  EXPECT_THAT(names(), IsEmpty());
  appended("a");
  appended("b");
  appended("c");
  EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(Children, areNotAddedFromNothingNorToANodeWithoutAFile)
{
  group->addChild(nullptr, /*append=*/true);
  EXPECT_THAT(names(), IsEmpty());
  const osg::ref_ptr<Record> loose = makeRecord(defaultBuffer(opcodes::group));
  const osg::ref_ptr<ObjectRecord> a = object("a");
  loose->asNode()->addChild(a, /*append=*/true);
  EXPECT_EQ(loose->asNode()->childCount(), 0);
  EXPECT_EQ(a->parent(), nullptr);
}

TEST_F(Children, thatAreThereAlreadyStayWhereTheyAre)
{
  auto* a = appended("a");
  appended("b");
  group->addChild(a, /*append=*/true);
  group->addChild(a, /*append=*/false);
  EXPECT_THAT(names(), ElementsAre("a", "b"));
}

TEST_F(Children, areInsertedBeforeAndBehindASibling)
{
  auto* b = appended("b");
  appended("d");
  group->insertChildBefore(object("a"), b);
  group->insertChildAfter(object("c"), b);
  group->insertChildAfter(object("e"), group->childAt(3));
  EXPECT_THAT(names(), ElementsAre("a", "b", "c", "d", "e"));
}

TEST_F(Children, areNotInsertedBesideAStranger)
{
  appended("a");
  const osg::ref_ptr<ObjectRecord> stranger = object("stranger"), b = object("b");
  group->insertChildBefore(b, stranger);
  group->insertChildAfter(b, nullptr);
  group->insertChildBefore(nullptr, group->childAt(0));
  EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(Children, thatAreAncillariesGoInFrontOfTheFirstNode)
{
  group->insertAncillary(file->create<BoundingBoxRecord>());
  appended("a");
  group->insertAncillary(file->create<BoundingSphereRecord>());
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::boundingSphere, opcodes::object));
  EXPECT_EQ(group->firstPrimaryChild(), group->childAt(2));
}

TEST_F(Children, mayMixAncillariesAndNodes)
{
  group->addChild(file->create<BoundingBoxRecord>(), /*append=*/true);
  appended("a");
  group->addChild(file->create<BoundingSphereRecord>(), /*append=*/true);
  auto* b = appended("b");
  group->insertChildBefore(file->create<VectorRecord>(), b);
  EXPECT_THAT(names(), ElementsAre("-", "a", "-", "-", "b"));
  group->removeChild(group->childAt(1));
  EXPECT_THAT(names(), ElementsAre("-", "-", "-", "b"));
  group->moveChild(3, 0);
  EXPECT_THAT(names(), ElementsAre("b", "-", "-", "-"));
}

TEST_F(Children, areRemovedAndCanBePutBack)
{
  appended("a");
  const osg::ref_ptr<ObjectRecord> b = appended("b");
  appended("c");
  group->removeChild(b);
  EXPECT_THAT(names(), ElementsAre("a", "c"));
  EXPECT_EQ(b->parent(), nullptr);
  EXPECT_EQ(b->index(), 1); // as long as somebody holds it
  group->addChild(b, /*append=*/false);
  EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(Children, thatAreRemovedGoAwayWhenNobodyHoldsThem)
{
  struct Data : UserData {
    explicit Data(int& count) : count_(&count) {}
    ~Data() override { ++*count_; }
    int* count_;
  };
  int gone = 0;
  for (const auto* name : {"a", "b", "c"})
    appended(name)->setUserData(std::make_unique<Data>(gone));
  group->removeChild(group->childAt(0));
  EXPECT_EQ(gone, 1);
  group->removeAllChildren();
  EXPECT_EQ(gone, 3);
}

TEST_F(Children, thatAreNoneAreNotRemoved)
{
  appended("a");
  const osg::ref_ptr<ObjectRecord> stranger = object("stranger");
  group->removeChild(stranger);
  group->removeChild(nullptr);
  group->removeChildren(std::vector<Record*>{stranger, nullptr});
  EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(Children, areRemovedTogether)
{
  for (const auto* name : {"a", "b", "c", "d", "e"})
    appended(name);
  group->removeChildren(std::vector<Record*>{group->childAt(4), group->childAt(0), group->childAt(2)});
  EXPECT_THAT(names(), ElementsAre("b", "d"));
  group->removeChildren(std::vector<osg::ref_ptr<Record>>{group->childAt(1)});
  EXPECT_THAT(names(), ElementsAre("b"));
}

TEST_F(Children, thatAreNodesAreRemovedAndTheOthersNumberedAnew)
{
  group->addChild(file->create<BoundingBoxRecord>(), /*append=*/true);
  appended("a");
  group->addChild(file->create<BoundingSphereRecord>(), /*append=*/true);
  appended("b");
  group->removePrimaryChildren();
  EXPECT_THAT(names(), ElementsAre("-", "-"));
  EXPECT_THAT(childOpcodes(*group), ElementsAre(opcodes::boundingBox, opcodes::boundingSphere));
  group->removeAllChildren();
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(Children, moveToAnotherPosition)
{
  for (const auto* name : {"a", "b", "c"})
    appended(name);
  EXPECT_TRUE(group->moveChild(1, 0));
  EXPECT_THAT(names(), ElementsAre("b", "a", "c"));
  EXPECT_TRUE(group->moveChild(0, 2));
  EXPECT_THAT(names(), ElementsAre("a", "c", "b"));
  EXPECT_TRUE(group->moveChild(0, 3)); // behind the last one
  EXPECT_THAT(names(), ElementsAre("c", "b", "a"));
}

TEST_F(Children, doNotMoveToWhereNothingIs)
{
  for (const auto* name : {"a", "b"})
    appended(name);
  for (const auto& [from, to] : {std::pair{0, 0}, {1, 1}, {-1, 0}, {0, -1}, {2, 0}, {0, 3}})
    EXPECT_FALSE(group->moveChild(from, to)) << from << " to " << to;
  EXPECT_THAT(names(), ElementsAre("a", "b"));
}

TEST_F(Children, areReplacedInTheirPlace)
{
  for (const auto* name : {"a", "b", "c"})
    appended(name);
  const osg::ref_ptr<Record> b = group->childAt(1);
  group->replaceChild(b, object("x"));
  EXPECT_THAT(names(), ElementsAre("a", "x", "c"));
  EXPECT_EQ(b->parent(), nullptr);
  const osg::ref_ptr<Record> y = object("y");
  group->replaceChild(b, y);
  group->replaceChild(group->childAt(0), nullptr);
  EXPECT_THAT(names(), ElementsAre("a", "x", "c"));
  group->replaceChild(group->childAt(0), file->create<CommentRecord>());
  EXPECT_THAT(names(), ElementsAre("-", "x", "c"));
}

TEST_F(Children, areFoundByTheirOpcode)
{
  EXPECT_EQ(group->findChild<CommentRecord>(), nullptr);
  for (int i = 0; i < 30; ++i) {
    auto* child = file->createRecord(i % 3 == 0 ? opcodes::boundingBox : opcodes::object);
    group->addChild(child, /*append=*/true);
  }
  EXPECT_EQ(group->findChild(opcodes::boundingBox), group->childAt(0));
  EXPECT_EQ(group->findChild(opcodes::object), group->childAt(1));
  EXPECT_EQ(group->findChildren(opcodes::boundingBox).size(), 10u);
  EXPECT_EQ(group->findChildren(opcodes::face).size(), 0u);
  EXPECT_EQ(group->findChildrenByOpcodes(std::vector{opcodes::object, opcodes::face, opcodes::boundingBox}).size(),
            30u);
  group->removeChild(group->childAt(0));
  EXPECT_EQ(group->findChild(opcodes::boundingBox), group->childAt(2));
  EXPECT_EQ(group->findChildren(opcodes::boundingBox).size(), 9u);
  group->moveChild(0, 5);
  EXPECT_EQ(group->findChildren(opcodes::object).front(), group->childAt(0));
  group->replaceChild(group->findChild(opcodes::boundingBox), file->create<CommentRecord>());
  EXPECT_EQ(group->findChildren(opcodes::boundingBox).size(), 8u);
  EXPECT_NE(group->findChild<CommentRecord>(), nullptr);
}

TEST_F(Children, followAPlainListThroughManyChanges)
{
  // The same changes on a list of names.
  std::mt19937 random(1);
  std::vector<std::string> model;
  for (int step = 0; step < 3000; ++step) {
    const int count = group->childCount();
    const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(std::max(1, n))); };
    const auto name = std::to_string(step);
    const bool ancillary = random() % 4 == 0;
    osg::ref_ptr<Record> record = ancillary ? file->createRecord(opcodes::comment) : object(name);
    const auto entry = ancillary ? "-" : name;
    switch (random() % 6) {
    case 0:
      group->addChild(record, /*append=*/true);
      model.push_back(entry);
      break;
    case 1:
    case 2:
      if (count) {
        const int at = pick(count);
        group->insertChildBefore(record, group->childAt(at));
        model.insert(model.begin() + at, entry);
      }
      break;
    case 3:
      if (count) {
        const int at = pick(count);
        group->removeChild(group->childAt(at));
        model.erase(model.begin() + at);
      }
      break;
    case 4: {
      const int from = pick(count), to = pick(count + 1);
      if (group->moveChild(from, to)) {
        const auto moved = model[static_cast<std::size_t>(from)];
        model.erase(model.begin() + from);
        model.insert(model.begin() + std::min(to, count - 1), moved);
      }
      break;
    }
    default:
      if (count > 20) {
        std::vector<Record*> some;
        std::vector<std::string> left;
        for (int i = 0; i < count; ++i) {
          if (random() % 2) {
            some.push_back(group->childAt(i));
          } else {
            left.push_back(model[static_cast<std::size_t>(i)]);
          }
        }
        group->removeChildren(some);
        model = left;
      }
    }
    if (step % 100 == 0) {
      ASSERT_EQ(names(), model) << "after step " << step;
    }
  }
  EXPECT_EQ(names(), model);
}

TEST_F(Children, countForTheirFile)
{
  const auto bytes = file->totalBytes();
  const int lists = file->vertexListCount();
  auto* a = appended("a");
  EXPECT_EQ(file->totalBytes(), bytes + a->length());
  auto* list = file->create<VertexListRecord>();
  a->addChild(list, /*append=*/true);
  EXPECT_EQ(file->vertexListCount(), lists + 1);
  file->header()->addChild(file->create<VertexRecord>(), /*append=*/true); // their palette counts them
  EXPECT_EQ(file->totalBytes(), bytes + a->length() + list->length());
  a->removeChild(list);
  group->removeChild(a);
  EXPECT_EQ(file->totalBytes(), bytes);
  EXPECT_EQ(file->vertexListCount(), lists);
}

TEST_F(Children, outliveTheirParent)
{
  osg::ref_ptr<GroupRecord> mortal = file->create<GroupRecord>();
  const osg::ref_ptr<ObjectRecord> child = object("a");
  mortal->addChild(child, /*append=*/true);
  mortal = nullptr;
  EXPECT_EQ(child->parent(), nullptr);
}

TEST_F(Children, knowTheirAncestors)
{
  auto* a = appended("a");
  auto* face = file->create<FaceRecord>();
  a->addChild(face, /*append=*/true);
  EXPECT_TRUE(face->hasAncestorOfType(opcodes::face)); // itself counts
  EXPECT_TRUE(face->hasAncestorOfType(opcodes::group));
  EXPECT_TRUE(face->hasAncestorOfType(opcodes::header));
  EXPECT_FALSE(face->hasAncestorOfType(opcodes::lod));
  EXPECT_TRUE(file->header()->isAncestorOf(*face));
  EXPECT_TRUE(a->isAncestorOf(*face));
  EXPECT_FALSE(face->isAncestorOf(*a));
  EXPECT_FALSE(a->isAncestorOf(*a));
  const osg::ref_ptr<ObjectRecord> loose = object("loose");
  EXPECT_FALSE(group->isAncestorOf(*loose));
}

TEST_F(Children, ofAnInstanceHaveThoseWhoReferToItAsAncestors)
{
  Workbench bench;
  const auto instanced = bench.load(flt::generatedFile("nested-instances"));
  auto* inner = instanced->instanceDefinition(1)->firstPrimaryChild()->firstPrimaryChild();
  EXPECT_TRUE(instanced->header()->isAncestorOf(*inner));
  EXPECT_TRUE(named(*instanced->header(), "g3")->isAncestorOf(*inner));
}

TEST_F(Children, thatSeveralReferencesShareFollowTheOnesThatAreLeft)
{
  const osg::ref_ptr<FltFile> shown = new FltFile;
  shown->initNew();
  auto* first = file->create<ExternalRecord>();
  auto* second = file->create<ExternalRecord>();
  group->addChild(first, /*append=*/true);
  group->addChild(second, /*append=*/true);
  first->show(shown, "shown.flt");
  second->show(shown, "shown.flt");
  EXPECT_EQ(shown->header()->parent(), first);
  EXPECT_THAT(shown->header()->parents(), ElementsAre(second));
  EXPECT_TRUE(second->isAncestorOf(*shown->header()));
  group->removeChild(first);
  EXPECT_EQ(shown->header()->parent(), second);
  EXPECT_THAT(shown->header()->parents(), IsEmpty());
  group->removeChild(second);
  EXPECT_EQ(shown->header()->parent(), nullptr);
}

} // namespace
} // namespace fltapi
