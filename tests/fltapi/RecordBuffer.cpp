#include "fltapi/RecordBuffer.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/Workbench.h"

#include <thread>

namespace fltapi {
namespace {

std::uint16_t lengthWord(const Buffer& buffer)
{
  return loadAt<std::uint16_t>(buffer.get() + 2);
}

TEST(RecordBuffer, holdsOpcodeAndLengthInHostOrder)
{
  const auto buffer = allocateBuffer(0x1234, 100);
  EXPECT_EQ(recordOpcode(buffer.get()), 0x1234);
  EXPECT_EQ(loadAt<std::uint16_t>(buffer.get()), 0x1234);
  EXPECT_EQ(lengthWord(buffer), 100);
  EXPECT_EQ(recordLength(buffer.get()), 100u);
}

TEST(RecordBuffer, holdsALengthOf65535InItsWord)
{
  const auto known = oversizeRecordCount();
  const auto buffer = allocateBuffer(31, 65535);
  EXPECT_EQ(lengthWord(buffer), 65535);
  EXPECT_EQ(recordLength(buffer.get()), 65535u);
  EXPECT_EQ(oversizeRecordCount(), known);
}

TEST(RecordBuffer, ofMoreThan65535BytesHasALengthWordOf0AndKnowsItsLength)
{
  const auto known = oversizeRecordCount();
  {
    const auto buffer = allocateBuffer(31, 70000);
    EXPECT_EQ(lengthWord(buffer), 0);
    EXPECT_EQ(recordLength(buffer.get()), 70000u);
    EXPECT_EQ(oversizeRecordCount(), known + 1);
    setRecordLength(buffer.get(), 65536);
    EXPECT_EQ(lengthWord(buffer), 0);
    EXPECT_EQ(recordLength(buffer.get()), 65536u);
    EXPECT_EQ(oversizeRecordCount(), known + 1);
  }
  EXPECT_EQ(oversizeRecordCount(), known);
}

TEST(RecordBuffer, thatTheTableDoesNotKnowHasLength0)
{
  const auto buffer = allocateBuffer(31, 70000);
  forgetRecordLength(buffer.get());
  EXPECT_EQ(recordLength(buffer.get()), 0u);
  setRecordLength(buffer.get(), 70000);
}

TEST(RecordBuffer, copiesWithAnotherLengthKeepWhatFitsAndAreZeroBehind)
{
  auto buffer = allocateBuffer(31, 8);
  std::memset(buffer.get() + 4, 0x7f, 4);
  const auto longer = resizedCopy(buffer.get(), 10);
  EXPECT_EQ(recordOpcode(longer.get()), 31);
  EXPECT_EQ(loadAt<std::uint32_t>(longer.get() + 4), 0x7f7f7f7fu);
  EXPECT_EQ(loadAt<std::uint16_t>(longer.get() + 8), 0);
  const auto shorter = resizedCopy(buffer.get(), 6);
  EXPECT_EQ(recordLength(shorter.get()), 6u);
  EXPECT_EQ(loadAt<std::uint16_t>(shorter.get() + 4), 0x7f7f);
}

TEST(RecordBuffer, leavesNoEntryBehindWhateverHappensToItsRecord)
{
  const auto known = oversizeRecordCount();
  {
    const osg::ref_ptr<FltFile> file = new FltFile;
    file->initNew();
    file->header()->setComment(std::string(100000, 'a'));
    file->header()->setComment(std::string(90000, 'b'));
    auto* comment = file->header()->findChild<CommentRecord>();
    const osg::ref_ptr<Record> copy = comment->clone(nullptr);
    EXPECT_EQ(copy->length(), 90005u);
    EXPECT_TRUE(copy->equals(*comment));
    EXPECT_EQ(oversizeRecordCount(), known + 2);
    file->header()->setComment("short");
    EXPECT_EQ(oversizeRecordCount(), known + 1);
    file->header()->setComment(std::string(80000, 'c'));
    const osg::ref_ptr<FltFile> twin = new FltFile(*file);
    EXPECT_EQ(twin->header()->getComment(), file->header()->getComment());
  }
  EXPECT_EQ(oversizeRecordCount(), known);
}

TEST(RecordBuffer, ofALoadAndASaveLeavesNoEntryBehind)
{
  const auto known = oversizeRecordCount();
  {
    nalt::tests::Workbench bench;
    bench.roundTrip(nalt::tests::flt::generatedFile("long-comment"));
    bench.tryToLoad(nalt::tests::flt::generatedFile("long-comment").substr(0, 90000));
  }
  EXPECT_EQ(oversizeRecordCount(), known);
}

TEST(RecordBuffer, mayBeUsedByOneThreadWhileAnotherUsesOthers)
{
  const auto known = oversizeRecordCount();
  const auto work = [] {
    for (int i = 0; i < 2000; ++i) {
      const auto buffer = allocateBuffer(31, 70000 + static_cast<std::size_t>(i));
      ASSERT_EQ(recordLength(buffer.get()), 70000u + static_cast<std::size_t>(i));
    }
  };
  std::thread other(work);
  work();
  other.join();
  EXPECT_EQ(oversizeRecordCount(), known);
}

} // namespace
} // namespace fltapi
