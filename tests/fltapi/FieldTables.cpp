// Every record class against the layouts that were typed by hand.
#include "fltapi/AllRecords.h"
#include "fltapi/io/Output.h"
#include "tests/fltapi/support/FltBytes.h"
#include "tests/fltapi/support/GeneratedFiles.h"
#include "tests/fltapi/support/RecordLayouts.h"
#include "tests/fltapi/support/SameBytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fltapi {
namespace {

using namespace nalt::tests::flt;
using nalt::tests::sameBytes;

osg::ref_ptr<Record> newRecord(int opcode)
{
  return makeRecord(defaultBuffer(opcode));
}

std::string contentOf(const Record& record)
{
  std::string content(reinterpret_cast<const char*>(record.data()), record.length());
  std::fill_n(content.begin(), recordHeadSize, '\0');
  return content;
}

/// A record as it is in memory after `bytes` were read from a file of that version.
osg::ref_ptr<Record> readFrom(const std::string& bytes, int version)
{
  const auto opcode = static_cast<int>(bigEndian(bytes, 0, 2));
  auto buffer = allocateBuffer(opcode, std::max<std::size_t>(bytes.size(), opcodeLength(opcode)));
  fillDefaultContent(buffer.get());
  std::copy_n(reinterpret_cast<const std::byte*>(bytes.data()) + headSize, bytes.size() - headSize,
              buffer.get() + headSize);
  osg::ref_ptr<Record> record = makeRecord(std::move(buffer));
  record->takeFromFile({.fromFile = true, .version = version, .length = bytes.size()});
  return record;
}

/// Output into memory.
class MemoryOutput : public Output {
public:
  explicit MemoryOutput(int version = currentVersion) : Output(*new FltFile, version), owner_(&file()) {}
  std::string bytes;

protected:
  bool put(const std::byte* data, std::size_t count) override
  {
    bytes.append(reinterpret_cast<const char*>(data), count);
    return true;
  }

private:
  osg::ref_ptr<const FltFile> owner_;
};

std::string writtenAs(const Record& record, int version)
{
  MemoryOutput output(version);
  EXPECT_TRUE(output.write(record));
  return output.bytes;
}

/// The vertex list and the palette are laid out anew when they are written.
bool isLaidOutAnew(int opcode)
{
  return opcode == opcodes::vertexList || opcode == opcodes::vertexPalette;
}

TEST(OpcodeTable, knowsTheClassesNamesAndLengths)
{
  for (const auto& layout : recordLayouts()) {
    const auto& info = opcodeInfo(layout.opcode);
    EXPECT_EQ(info.className, layout.className);
    EXPECT_EQ(info.displayName, layout.displayName) << layout.className;
    EXPECT_EQ(opcodeLength(layout.opcode), layout.length) << layout.className;
  }
}

TEST(OpcodeTable, makesAnUnknownRecordOfEveryOtherOpcode)
{
  for (const int opcode : {0, 6, 12, 44, 54, 75, 110, 124, 134, 155, 30000}) {
    const auto record = newRecord(opcode);
    EXPECT_STREQ(record->className(), "UnknownRecord") << opcode;
    EXPECT_EQ(record->length(), 4u) << opcode;
    EXPECT_EQ(opcodeOf(*record), opcode);
    EXPECT_TRUE(record->isAncillary()) << opcode;
  }
}

TEST(OpcodeTable, namesWhatHasNoClass)
{
  EXPECT_STREQ(opcodeInfo(44).displayName, "translate record");
  EXPECT_STREQ(opcodeInfo(6).displayName, "<reserved type>");
  EXPECT_STREQ(opcodeInfo(132 + 2).displayName, "<unknown type>");
  EXPECT_STREQ(opcodeInfo(-1).displayName, "<unknown type>");
}

TEST(OpcodeTable, givesEachRecordItsOwnClassAndNumber)
{
  for (const auto& layout : recordLayouts()) {
    const auto record = newRecord(layout.opcode);
    EXPECT_EQ(record->opcode(), layout.opcode);
    EXPECT_EQ(record->className(), layout.className);
    const osg::ref_ptr<Record> another = record->cloneType();
    EXPECT_EQ(another->className(), layout.className);
    EXPECT_TRUE(sameBytes(contentOf(*another), contentOf(*record))) << layout.className;
    EXPECT_EQ(another->file(), nullptr);
    EXPECT_GT(another->serial(), record->serial());
  }
}

TEST(OpcodeTable, putsEachClassIntoItsFamily)
{
  const std::set nodes = {1,  2,  3,  4,  5,  7,  8,  9,  14,  55,  61,  62,  63,  72,  73,  84, 85,
                          86, 87, 89, 91, 92, 95, 96, 98, 100, 101, 111, 115, 126, 127, 130, 131};
  const std::set controls = {10, 11, 19, 20, 21, 22, 122, 123};
  for (const auto& layout : recordLayouts()) {
    const auto record = newRecord(layout.opcode);
    EXPECT_EQ(record->isPrimary(), nodes.contains(layout.opcode)) << layout.className;
    EXPECT_EQ(record->asNode() != nullptr, nodes.contains(layout.opcode)) << layout.className;
    EXPECT_EQ(record->isControl(), controls.contains(layout.opcode)) << layout.className;
    EXPECT_EQ(record->isAncillary(), !nodes.contains(layout.opcode) && !controls.contains(layout.opcode))
        << layout.className;
  }
}

TEST(FieldTables, holdTheDefaultsOfANewRecord)
{
  for (const auto& layout : recordLayouts()) {
    EXPECT_TRUE(sameBytes(contentOf(*newRecord(layout.opcode)), defaultContent(layout))) << layout.className;
  }
}

TEST(FieldTables, nameEveryNumberOfTheFormatAtItsPlace)
{
  for (const auto& layout : recordLayouts()) {
    const auto record = newRecord(layout.opcode);
    std::vector<const LayoutEntry*> named;
    for (const auto& entry : layout.entries) {
      if (entry.kind != 'x' && !entry.anonymous) named.push_back(&entry);
    }
    const auto rows = record->fieldTable().rows();
    ASSERT_EQ(rows.size(), named.size()) << layout.className;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SCOPED_TRACE(layout.className + ", " + named[i]->name);
      EXPECT_EQ(rows[i].name, named[i]->name);
      EXPECT_EQ(rows[i].offset, named[i]->offset);
      EXPECT_EQ(rows[i].width, named[i]->width);
      EXPECT_EQ(rows[i].count, named[i]->count);
      EXPECT_EQ(rows[i].firstVersion, named[i]->since);
    }
  }
}

TEST(FieldTables, bringWhatWasReadToHostOrder)
{
  for (const auto& layout : recordLayouts()) {
    const auto bytes = sampleRecord(layout.opcode);
    auto expected = inHostOrder(layout, bytes, currentVersion);
    if (layout.opcode == opcodes::eyepointTrackplanePalette || layout.opcode == opcodes::nameTable) continue;
    expected.replace(0, headSize, headSize, '\0');
    EXPECT_TRUE(sameBytes(contentOf(*readFrom(bytes, currentVersion)), expected)) << layout.className;
  }
}

TEST(FieldTables, writeExactlyTheBytesThatWereRead)
{
  for (const auto& layout : recordLayouts()) {
    if (isLaidOutAnew(layout.opcode)) continue;
    const auto bytes = sampleRecord(layout.opcode);
    EXPECT_TRUE(sameBytes(writtenAs(*readFrom(bytes, currentVersion), currentVersion), bytes)) << layout.className;
  }
}

TEST(FieldTables, keepWhatStandsBehindTheirLayout)
{
  // These have one fixed length in files.
  const std::set fixed = {1, 2, 64, 73, 112, 128, 130, 131};
  for (const auto& layout : recordLayouts()) {
    if (isLaidOutAnew(layout.opcode) || fixed.contains(layout.opcode)) continue;
    auto bytes = sampleRecord(layout.opcode) + std::string("\1\2\3\4", 4);
    patch(bytes, 2, Bytes().u16(static_cast<unsigned>(bytes.size())));
    EXPECT_TRUE(sameBytes(writtenAs(*readFrom(bytes, currentVersion), currentVersion), bytes)) << layout.className;
  }
}

TEST(FieldTables, swapOnlyWhatTheVersionOfTheFileHolds)
{
  for (const auto& layout : recordLayouts()) {
    std::set<int> thresholds;
    for (const auto& entry : layout.entries)
      if (entry.since) thresholds.insert(entry.since);
    for (const int threshold : thresholds) {
      for (const int version : {threshold - 1, threshold}) {
        const auto record = readFrom(sampleRecord(layout.opcode), version);
        const auto content = contentOf(*record);
        const auto expected = inHostOrder(layout, sampleRecord(layout.opcode), version);
        for (const auto& entry : layout.entries) {
          if (entry.since < threshold || entry.anonymous) continue;
          EXPECT_TRUE(sameBytes(content.substr(entry.offset, entry.end() - entry.offset),
                                expected.substr(entry.offset, entry.end() - entry.offset)))
              << layout.className << ", " << entry.name << " in version " << version;
        }
      }
    }
  }
}

TEST(FieldTables, takeEveryShorterRecord)
{
  for (const auto& layout : recordLayouts()) {
    const auto whole = sampleRecord(layout.opcode);
    const auto expected = inHostOrder(layout, whole, currentVersion);
    const auto defaults = defaultContent(layout);
    const auto step = layout.length > 1000 ? std::size_t{7} : std::size_t{1};
    for (auto length = headSize; length < whole.size(); length += step) {
      const auto record = readFrom(whole.substr(0, length), currentVersion);
      ASSERT_EQ(record->length(), layout.length) << layout.className;
      const auto content = contentOf(*record);
      for (const auto& entry : layout.entries) {
        const bool known = entry.kind != 'x' && !entry.anonymous;
        if (!known || (entry.offset < length && entry.end() > length)) continue;
        const auto& from = entry.end() <= length ? expected : defaults;
        ASSERT_TRUE(sameBytes(content.substr(entry.offset, entry.end() - entry.offset),
                              from.substr(entry.offset, entry.end() - entry.offset)))
            << layout.className << ", " << entry.name << " in a record of " << length << " bytes";
      }
      EXPECT_FALSE(writtenAs(*record, currentVersion).empty() && !isLaidOutAnew(layout.opcode));
    }
  }
}

TEST(FieldTables, giveAnEmptyValueWhereTheRecordIsTooShort)
{
  const osg::ref_ptr<Record> record = makeRecord(allocateBuffer(opcodes::materialPalette, 30));
  record->set(MaterialPaletteRecord::fields.alpha, 0.5f);
  EXPECT_EQ(record->length(), 30u);
  EXPECT_EQ(record->get(MaterialPaletteRecord::fields.alpha), 0.0f);
  EXPECT_EQ(record->get(MaterialPaletteRecord::fields.diffuse), osg::Vec3f());
}

TEST(FieldTables, holdTextsThatEndWithAZeroOrWithTheirField)
{
  const osg::ref_ptr<Record> record = newRecord(opcodes::materialPalette);
  const auto& name = MaterialPaletteRecord::fields.name;
  record->set(name, "a name that is too long");
  EXPECT_EQ(record->get(name), "a name that");
  record->set(name, "short");
  EXPECT_EQ(record->get(name), "short");
  EXPECT_EQ(contentOf(*record).substr(8, 12), std::string("short") + std::string(7, '\0'));
  std::memcpy(record->data() + 8, "twelve bytes", 12);
  EXPECT_EQ(record->get(name), "twelve bytes");
}

} // namespace
} // namespace fltapi
