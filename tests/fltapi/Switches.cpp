#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/ProcessorTime.h"

#include <gmock/gmock.h>

#include <random>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;

/// The bits of a mask for the children that are there, as "1011".
std::string bitsOf(const SwitchRecord& node, int mask)
{
  std::string bits;
  for (int i = 0; i < node.primaryChildCount(); ++i)
    bits += node.bit(mask, i) ? '1' : '0';
  return bits;
}

class Switches : public testing::Test {
protected:
  /// A switch with one child for each bit.
  SwitchRecord* load(const std::vector<std::string>& masks)
  {
    const auto count = static_cast<int>(masks.front().size());
    const int words = (count + 31) / 32;
    std::vector<std::uint32_t> all;
    for (const auto& bits : masks) {
      std::vector<std::uint32_t> mask(static_cast<std::size_t>(words));
      for (std::size_t i = 0; i < bits.size(); ++i)
        mask[i / 32] |= bits[i] == '1' ? 1u << (i % 32) : 0u;
      all.insert(all.end(), mask.begin(), mask.end());
    }
    std::string children;
    for (int i = 0; i < count; ++i)
      children += flt::object("o" + std::to_string(i));
    file = bench.load(
        flt::file(flt::switchNode("sw1", static_cast<int>(masks.size()), words, all) + flt::level(children)));
    return first<SwitchRecord>(*file);
  }
  ObjectRecord* object() { return file->create<ObjectRecord>(); }
  std::vector<std::string> masks(const SwitchRecord& node) const
  {
    std::vector<std::string> all;
    for (int mask = 0; mask < node.maskCount(); ++mask)
      all.push_back(bitsOf(node, mask));
    return all;
  }

  Workbench bench;
  osg::ref_ptr<FltFile> file;
};

TEST_F(Switches, ofANewDocumentHaveOneMaskWithAllBits)
{
  file = bench.load(flt::file(""));
  const osg::ref_ptr<SwitchRecord> node = file->create<SwitchRecord>();
  EXPECT_EQ(node->currentMask(), -1);
  EXPECT_EQ(node->maskCount(), 1);
  EXPECT_EQ(node->wordsPerMask(), 1);
  EXPECT_EQ(node->get(SwitchRecord::fields.firstWord), 0xffffffffu);
  EXPECT_TRUE(node->shows(0)); // a mask that isn't there shows all
}

TEST_F(Switches, of40ChildrenHaveTwoWordsForEachMask)
{
  file = bench.load(flt::generatedFile("wide-switch"));
  auto* node = first<SwitchRecord>(*file);
  EXPECT_EQ(node->primaryChildCount(), 40);
  EXPECT_EQ(node->maskCount(), 3);
  EXPECT_EQ(node->wordsPerMask(), 2);
  EXPECT_EQ(node->length(), 28u + 3 * 8);
  // Child 39 is bit 7 of the second word.
  EXPECT_EQ(bitsOf(*node, 0), "1" + std::string(38, '0') + "1");
  EXPECT_EQ(bitsOf(*node, 1), std::string(40, '1'));
  node->setBit(0, 33, true);
  EXPECT_EQ(loadAt<std::uint32_t>(node->data() + 28 + 4), 0x80u | 2u); // bit 1 of the second word
}

TEST_F(Switches, showWhatTheirCurrentMaskSays)
{
  auto* node = load({"101", "011"});
  node->setCurrentMask(1);
  EXPECT_FALSE(node->shows(0));
  EXPECT_TRUE(node->shows(1));
  for (const int beyond : {2, -1, 4711}) {
    node->setCurrentMask(beyond);
    EXPECT_TRUE(node->shows(0)) << beyond;
  }
  EXPECT_TRUE(node->bit(0, 40)); // a child without a bit
  EXPECT_TRUE(node->bit(0, -1));
  node->setBit(0, 4711, false);
  node->setBit(7, 0, false);
  EXPECT_THAT(masks(*node), ElementsAre("101", "011"));
}

TEST_F(Switches, giveRoomToAllTheirChildrenWhenTheyAreRead)
{
  std::string children;
  for (int i = 0; i < 70; ++i)
    children += flt::object("o");
  file = bench.load(flt::file(flt::switchNode("sw1", 2, 1, {0x0000ffff, 0xffff0000}) + flt::level(children)));
  const auto* node = first<SwitchRecord>(*file);
  EXPECT_EQ(node->wordsPerMask(), 3);
  EXPECT_EQ(node->length(), 28u + 2 * 3 * 4);
  EXPECT_EQ(bitsOf(*node, 0), std::string(16, '1') + std::string(16, '0') + std::string(38, '1'));
  EXPECT_EQ(bitsOf(*node, 1), std::string(16, '0') + std::string(54, '1'));
}

TEST_F(Switches, fillUpMasksThatTheFileCutOff)
{
  file =
      bench.load(flt::file(flt::switchNode("sw1", 3, 1, {0x5, 0x2}) + flt::level(flt::object("a") + flt::object("b"))));
  const auto* node = first<SwitchRecord>(*file);
  EXPECT_EQ(node->maskCount(), 3);
  EXPECT_EQ(node->length(), 40u);
  EXPECT_THAT(masks(*node), ElementsAre("10", "01", "11"));
}

TEST_F(Switches, ofFilesThatClaimTooMuchKeepWhatTheyHold)
{
  file = bench.load(
      flt::file(flt::switchNode("sw1", 0x7fffffff, 1, {0x5, 0x2}) + flt::level(flt::object("a") + flt::object("b"))));
  const auto* node = first<SwitchRecord>(*file);
  EXPECT_EQ(node->maskCount(), 2);
  EXPECT_THAT(masks(*node), ElementsAre("10", "01"));
}

TEST_F(Switches, areSavedAsTheyWereRead)
{
  const auto bytes = flt::generatedFile("wide-switch");
  EXPECT_TRUE(sameBytes(bench.roundTrip(bytes), bytes));
}

TEST_F(Switches, giveANewChildASetBit)
{
  auto* node = load({"100", "010"});
  node->addChild(object(), /*append=*/true);
  EXPECT_THAT(masks(*node), ElementsAre("1001", "0101"));
  node->insertChildBefore(object(), node->primaryChildAt(1));
  EXPECT_THAT(masks(*node), ElementsAre("11001", "01101"));
  node->insertChildAfter(object(), node->primaryChildAt(1));
  EXPECT_THAT(masks(*node), ElementsAre("111001", "011101"));
  node->insertAncillary(file->create<CommentRecord>());
  EXPECT_THAT(masks(*node), ElementsAre("111001", "011101"));
}

TEST_F(Switches, takeTheBitOfARemovedChildOutOfEachMask)
{
  auto* node = load({"10110", "01001"});
  node->removeChild(node->primaryChildAt(1));
  EXPECT_THAT(masks(*node), ElementsAre("1110", "0001"));
  node->removeChildren(std::vector<Record*>{node->primaryChildAt(0), node->primaryChildAt(2)});
  EXPECT_THAT(masks(*node), ElementsAre("10", "01"));
  node->removeChildren(std::vector<osg::ref_ptr<Record>>{node->primaryChildAt(0)});
  EXPECT_THAT(masks(*node), ElementsAre("0", "1"));
}

TEST_F(Switches, moveBitsWithTheirChildren)
{
  auto* node = load({"1000", "0111"});
  node->insertAncillary(file->create<CommentRecord>());
  EXPECT_TRUE(node->moveChild(1, 3)); // children count the ancillary
  EXPECT_THAT(masks(*node), ElementsAre("0010", "1101"));
  EXPECT_TRUE(node->moveChild(3, 1));
  EXPECT_THAT(masks(*node), ElementsAre("1000", "0111"));
  EXPECT_TRUE(node->moveChild(0, 4)); // the ancillary alone
  EXPECT_THAT(masks(*node), ElementsAre("1000", "0111"));
}

TEST_F(Switches, giveAReplacementTheBitOfWhatItReplaces)
{
  auto* node = load({"101", "010"});
  node->replaceChild(node->primaryChildAt(1), object());
  EXPECT_THAT(masks(*node), ElementsAre("101", "010"));
  node->replaceChild(node->primaryChildAt(0), file->create<CommentRecord>());
  EXPECT_THAT(masks(*node), ElementsAre("01", "10"));
}

TEST_F(Switches, withoutChildrenAreAsNewButForTheirName)
{
  for (const bool all : {true, false}) {
    auto* node = load({"101", "010"});
    node->insertAncillary(file->create<CommentRecord>());
    node->setCurrentMask(1);
    all ? node->removeAllChildren() : node->removePrimaryChildren();
    EXPECT_EQ(node->getName(), "sw1");
    EXPECT_EQ(node->currentMask(), -1);
    EXPECT_EQ(node->maskCount(), 1);
    EXPECT_EQ(node->length(), 32u);
    EXPECT_EQ(node->childCount(), all ? 0 : 1);
  }
}

TEST_F(Switches, takeWholeMasks)
{
  auto* node = load({"101"});
  EXPECT_TRUE(node->setMasks({{true, false, false}, {false, true}}, 3));
  EXPECT_THAT(masks(*node), ElementsAre("100", "011")); // what a mask lacks is set
  EXPECT_EQ(node->length(), 36u);
  EXPECT_TRUE(node->setMasks({std::vector<bool>(40, false)}, 40));
  EXPECT_EQ(node->wordsPerMask(), 2);
  EXPECT_EQ(node->masks().front(), [] {
    auto bits = std::vector<bool>(40, false);
    bits.resize(64, true);
    return bits;
  }());
}

TEST_F(Switches, followAPlainListOfBitsThroughManyChanges)
{
  std::mt19937 random(3);
  auto* node = load({std::string(30, '0'), "100100100100100100100100100100", std::string(30, '1')});
  auto model = masks(*node);
  const auto change = [&](const auto& edit) {
    for (auto& bits : model)
      edit(bits);
  };
  for (int step = 0; step < 2000; ++step) {
    const auto count = static_cast<unsigned>(node->primaryChildCount());
    const bool grow = random() % 100 < (count < 80 ? 60 : 30);
    if (grow || count == 0) {
      const auto at = random() % (count + 1);
      if (at == count) {
        node->addChild(object(), /*append=*/true);
      } else {
        node->insertChildBefore(object(), node->primaryChildAt(static_cast<int>(at)));
      }
      change([&](std::string& bits) { bits.insert(at, 1, '1'); });
      const auto mask = random() % 3;
      node->setBit(static_cast<int>(mask), static_cast<int>(at), false);
      model[mask][at] = '0';
    } else if (random() % 2) {
      const auto at = random() % count;
      node->removeChild(node->primaryChildAt(static_cast<int>(at)));
      change([&](std::string& bits) { bits.erase(at, 1); });
    } else {
      const auto from = random() % count, to = random() % count;
      if (!node->moveChild(static_cast<int>(from), static_cast<int>(to))) continue;
      change([&](std::string& bits) {
        const char bit = bits[from];
        bits.erase(from, 1);
        bits.insert(to, 1, bit);
      });
    }
    ASSERT_EQ(masks(*node), model) << "after step " << step;
  }
}

TEST_F(Switches, withManyChildrenAreEditedAndCopiedQuickly)
{
  std::string children;
  for (int i = 0; i < 30000; ++i)
    children += flt::object("o");
  const nalt::tests::ProcessorTimer timer;
  file = bench.load(flt::file(flt::switchNode("sw1", 3, 1, {1, 2, 3}) + flt::level(children)));
  auto* node = first<SwitchRecord>(*file);
  EXPECT_EQ(node->wordsPerMask(), (30000 + 31) / 32);
  const osg::ref_ptr<PrimNodeRecord> copy = node->cloneTree(/*rename=*/false);
  EXPECT_EQ(static_cast<SwitchRecord&>(*copy).masks(), node->masks());
  std::vector<Record*> half;
  for (int i = 0; i < 30000; i += 2)
    half.push_back(node->primaryChildAt(i));
  node->removeChildren(half);
  EXPECT_EQ(bitsOf(*node, 1).substr(0, 20), "1" + std::string(15, '0') + "1111");
  copy->removeAllChildren();
  EXPECT_LT(timer.seconds(), 10.0);
}

} // namespace
} // namespace fltapi
