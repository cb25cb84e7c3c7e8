#include "fltapi/Record.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

namespace fltapi {
namespace {

using namespace nalt::tests;

osg::ref_ptr<FltFile> newFile()
{
  osg::ref_ptr<FltFile> file = new FltFile;
  file->initNew();
  return file;
}

std::string bytesOf(const Record& record)
{
  return {reinterpret_cast<const char*>(record.data()), record.length()};
}

TEST(Record, hasANumberThatNoOtherHas)
{
  const auto file = newFile();
  const osg::ref_ptr<Record> a = file->create<GroupRecord>();
  const osg::ref_ptr<Record> b = file->create<GroupRecord>();
  const auto other = newFile();
  const osg::ref_ptr<Record> c = other->create<GroupRecord>();
  EXPECT_LT(a->serial(), b->serial());
  EXPECT_LT(b->serial(), c->serial());
}

TEST(Record, isDetachedWhenNew)
{
  const auto file = newFile();
  const osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
  EXPECT_EQ(group->index(), -1);
  EXPECT_EQ(group->parent(), nullptr);
  EXPECT_TRUE(group->parents().empty());
  EXPECT_EQ(group->file(), file);
  EXPECT_FALSE(group->swapped());
}

TEST(Record, swapsItsBytesToFileOrderAndBack)
{
  const auto file = newFile();
  const osg::ref_ptr<ObjectRecord> object = file->create<ObjectRecord>();
  object->set(ObjectRecord::fields.flags, 0x01020304u);
  object->set(ObjectRecord::fields.significance, static_cast<std::int16_t>(0x0506));
  const auto before = bytesOf(*object);
  object->swapBytes();
  EXPECT_TRUE(object->swapped());
  EXPECT_EQ(object->get(ObjectRecord::fields.flags), 0x04030201u);
  EXPECT_EQ(object->get(ObjectRecord::fields.significance), 0x0605);
  EXPECT_EQ(object->length(), 28u); // the head stays in host order
  object->swapBytes();
  EXPECT_FALSE(object->swapped());
  EXPECT_EQ(bytesOf(*object), before);
}

TEST(Record, ofAnUnknownKindOnlyNotesThatItIsSwapped)
{
  const osg::ref_ptr<Record> record = makeRecord(allocateBuffer(4711, 12));
  std::memcpy(record->data() + 4, "12345678", 8);
  record->swapBytes();
  EXPECT_TRUE(record->swapped());
  EXPECT_EQ(bytesOf(*record).substr(4), "12345678");
}

TEST(Record, ofAnUnknownKindIsCopiedByteForByte)
{
  const auto file = newFile();
  auto buffer = allocateBuffer(4711, 14);
  std::memcpy(buffer.get() + 4, "0123456789", 10);
  const osg::ref_ptr<Record> record = file->createRecord(std::move(buffer));
  const osg::ref_ptr<Record> copy = record->clone(nullptr);
  EXPECT_EQ(opcodeOf(*copy), 4711);
  EXPECT_STREQ(copy->className(), "UnknownRecord");
  EXPECT_STREQ(copy->displayName(), "<unknown type>");
  EXPECT_EQ(bytesOf(*copy), bytesOf(*record));
  EXPECT_TRUE(copy->equals(*record));
}

TEST(Record, withoutAFileHasNoCopy)
{
  const osg::ref_ptr<Record> record = makeRecord(defaultBuffer(opcodes::group));
  EXPECT_EQ(record->clone(newFile()), nullptr);
  EXPECT_EQ(record->asNode()->cloneTree(newFile(), true, true), nullptr);
}

TEST(Record, isCopiedWithItsOrderOfBytesIntoAFileOrItsOwn)
{
  const auto file = newFile(), target = newFile();
  const osg::ref_ptr<Record> record = file->create<MatrixRecord>();
  record->swapBytes();
  const osg::ref_ptr<Record> sibling = record->clone(nullptr);
  const osg::ref_ptr<Record> foreign = record->clone(target);
  EXPECT_EQ(sibling->file(), file);
  EXPECT_EQ(foreign->file(), target);
  EXPECT_TRUE(sibling->swapped());
  EXPECT_EQ(bytesOf(*foreign), bytesOf(*record));
}

TEST(Record, equalsOneWithTheSameKindLengthAndBytes)
{
  const auto file = newFile();
  const osg::ref_ptr<Record> a = file->create<GroupRecord>();
  const osg::ref_ptr<Record> b = file->create<GroupRecord>();
  EXPECT_TRUE(a->equals(*b));
  EXPECT_TRUE(b->resize(48));
  EXPECT_FALSE(a->equals(*b));
  EXPECT_TRUE(b->resize(44));
  b->set(GroupRecord::fields.layerCode, std::uint8_t{1});
  EXPECT_FALSE(a->equals(*b));
  const osg::ref_ptr<Record> sphere = file->create<BoundingSphereRecord>();
  const osg::ref_ptr<Record> vector = file->create<VectorRecord>();
  EXPECT_FALSE(sphere->equals(*vector));
}

TEST(Record, ofAPlainKindHasNoName)
{
  const auto file = newFile();
  const osg::ref_ptr<Record> record = file->create<BoundingBoxRecord>();
  EXPECT_EQ(record->getName(), "");
  EXPECT_TRUE(record->setName("anything", /*allowDuplicate=*/false));
  record->assignUniqueName();
  EXPECT_EQ(record->getName(), "");
}

TEST(Record, deletesTheUserDataOfItsNode)
{
  struct Data : UserData {
    explicit Data(bool& gone) : gone_(&gone) {}
    ~Data() override { *gone_ = true; }
    bool* gone_;
  };
  bool gone = false;
  {
    const auto file = newFile();
    osg::ref_ptr<GroupRecord> group = file->create<GroupRecord>();
    group->setUserData(std::make_unique<Data>(gone));
    EXPECT_NE(group->userData(), nullptr);
    EXPECT_FALSE(gone);
  }
  EXPECT_TRUE(gone);
}

TEST(Record, staysSmall)
{
  // Vertices come in millions, polygons in hundreds of thousands.
  EXPECT_LE(sizeof(VertexRecord), 64u);
  EXPECT_LE(sizeof(FaceRecord), 128u);
}

} // namespace
} // namespace fltapi
