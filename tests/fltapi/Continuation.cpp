// Records that are too long for one head.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;

/// Lengths of the records as they stand in a file, from the first one with that opcode up to its last continuation.
std::vector<std::size_t> pieceLengths(const std::string& file, int opcode)
{
  std::vector<std::size_t> lengths;
  for (std::size_t at = 0; at < file.size();) {
    const auto found = static_cast<int>(flt::bigEndian(file, at, 2));
    const std::size_t length = flt::bigEndian(file, at + 2, 2);
    if (lengths.empty() ? found == opcode : found == opcodes::continuation) {
      lengths.push_back(length);
    } else if (!lengths.empty()) {
      break;
    }
    at += length;
  }
  return lengths;
}

class Continuation : public testing::Test {
protected:
  std::string textOf(std::size_t length) const
  {
    std::string text(length, ' ');
    for (std::size_t i = 0; i < length; ++i)
      text[i] = static_cast<char>('a' + i % 23);
    return text;
  }
  Workbench bench;
};

TEST_F(Continuation, carriesOnEveryKindThatMayBeContinued)
{
  struct Case {
    int opcode;
    bool node;
  };
  for (const auto& [opcode, node] :
       {Case{31, false}, {107, false}, {114, false}, {72, true}, {85, true}, {86, true}, {89, true}, {100, true}}) {
    std::string content(150000, '\1');
    for (std::size_t i = 0; i < content.size(); ++i)
      content[i] = static_cast<char>(i * 7 % 251);
    flt::patch(content, 0, std::string(12, '\0')); // counts, masks and widths
    if (opcode == 72) content.assign(content.size(), '\xff');
    const auto record = flt::longRecord(opcode, content);
    const auto bytes = opcode == 114 ? flt::header() + record + flt::VertexPool().records() + flt::level("")
                       : node        ? flt::file(flt::group("g1") + flt::level(record))
                                     : flt::file(flt::group("g1") + record);
    const auto file = bench.load(bytes);
    const auto saved = flt::recordsOf(bench.save(*file), opcode);
    ASSERT_EQ(saved.size(), 1u) << opcode;
    if (opcode == 72) continue; // its offsets lead nowhere
    EXPECT_EQ(saved.front().pieces, 3) << opcode;
    EXPECT_TRUE(sameBytes(saved.front().content, content)) << opcode;
  }
}

TEST_F(Continuation, carriesOnTextureCoordinates)
{
  const auto bytes = flt::generatedFile("long-uv-list");
  const auto file = bench.load(bytes);
  const auto* layers = first<VertexListRecord>(*file)->findChild<UVListRecord>();
  ASSERT_TRUE(layers);
  EXPECT_EQ(layers->length(), 8u + 5000 * 16);
  EXPECT_EQ(layers->uv(4999, 2), osg::Vec2f(-4999, 0.25f));
  EXPECT_THAT(pieceLengths(bench.save(*file), 53), ElementsAre(65528, 4u + 80008 - 65528));
  EXPECT_TRUE(sameBytes(bench.save(*file), bytes));
}

TEST_F(Continuation, beginsBehind65535Bytes)
{
  // A record of that many bytes in all, and how it is cut.
  const std::vector<std::pair<std::size_t, std::vector<std::size_t>>> cuts = {
      {65534, {65534}},
      {65535, {65535}},
      {65536, {65528, 12}},
      {65528 + 65528, {65528, 65532}},
      {65529 + 65528, {65528, 65532, 5}},
      {200000, {65528, 65532, 65532, 200000 - 3 * 65528 + 4}}};
  for (const auto& [length, pieces] : cuts) {
    const auto file = bench.load(flt::file(flt::group("g1")));
    const auto text = textOf(length - 5);
    file->header()->firstPrimaryChild()->setComment(text);
    const auto saved = bench.save(*file);
    EXPECT_EQ(pieceLengths(saved, 31), pieces) << length;
    EXPECT_EQ(bench.load(saved)->header()->firstPrimaryChild()->getComment(), text) << length;
  }
}

TEST_F(Continuation, losesNoCornerOfAPolygon)
{
  for (const int corners : {16381, 16382, 16383, 16384, 32763, 32764, 32765, 49146, 49147}) {
    const auto file = bench.load(flt::file(flt::object("o1") + flt::level(flt::face("p1"))));
    auto* list = file->create<VertexListRecord>();
    first<FaceRecord>(*file)->addChild(list, /*append=*/true);
    for (int i = 0; i < corners; ++i) {
      osg::ref_ptr<VertexRecord> vertex = file->create<VertexRecord>();
      vertex->setPosition({static_cast<double>(i), 0, 0});
      list->addVertex(vertex);
    }
    const auto saved = bench.save(*file);
    for (const auto length : pieceLengths(saved, 72))
      EXPECT_LE(length, 65532u);
    EXPECT_EQ(pieceLengths(saved, 72).size(), corners < 16383   ? 1u
                                              : corners < 32764 ? 2u
                                              : corners < 49146 ? 3u
                                                                : 4u)
        << corners;
    const auto again = bench.load(saved);
    const auto* face = first<FaceRecord>(*again);
    ASSERT_EQ(face->vertexCount(), corners);
    for (const int i : {0, 1, 16380, corners / 2, corners - 2, corners - 1})
      EXPECT_EQ(face->vertexAt(i)->position().x(), i) << corners;
  }
}

TEST_F(Continuation, joinsPiecesOfAnySize)
{
  const auto content = textOf(1000) + std::string(1, '\0');
  std::string pieces = flt::record(31, content.substr(0, 10));
  for (std::size_t at = 10; at < content.size(); at += 99)
    pieces += flt::record(23, content.substr(at, 99));
  const auto file = bench.load(flt::file(flt::group("g1") + pieces + flt::record(23) + flt::comment("another")));
  auto* group = file->header()->firstPrimaryChild();
  EXPECT_EQ(group->getComment(), textOf(1000));
  EXPECT_THAT(childOpcodes(*group), ElementsAre(31, 31));
}

TEST_F(Continuation, behindAnyOtherRecordStaysWhereItIs)
{
  const auto loose = flt::record(23, flt::Bytes().text("more of a palette", 20));
  const auto bytes = flt::header() + flt::sampleRecord(93) + loose + loose + flt::VertexPool().records() +
                     flt::level(flt::group("g1") + flt::longId("a long name") + loose);
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(Continuation, cutOffByTheEndOfTheFileFailsTheLoad)
{
  const auto bytes = flt::file(flt::group("g1") + flt::comment(textOf(100000)));
  const auto cut = bytes.substr(0, bytes.size() - 1000);
  EXPECT_FALSE(bench.tryToLoad(cut));
  EXPECT_THAT(bench.host.warnings, ElementsAre(testing::HasSubstr("reaches behind the end of the file")));
}

TEST_F(Continuation, ofTheFirstPieceOnlyIsNotLostAtTheEndOfTheFile)
{
  const auto content = textOf(70000);
  auto bytes = flt::header() + flt::record(31, content.substr(0, 60000));
  EXPECT_EQ(bench.load(bytes)->header()->getComment(), content.substr(0, 60000));
  bytes += flt::record(23, content.substr(60000));
  EXPECT_EQ(bench.load(bytes)->header()->getComment(), content);
}

} // namespace
} // namespace fltapi
