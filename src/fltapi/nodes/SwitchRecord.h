#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct SwitchFields : NodeFields {
  Field<std::int32_t> currentMask{*this, 16, "current mask", all(-1)};
  Field<std::int32_t> maskCount{*this, 20, "number of masks", all(1)};
  Field<std::int32_t> wordsPerMask{*this, 24, "words per mask", all(1)};
  Field<std::uint32_t> firstWord{*this, 28, "first mask word", all(0xffffffff)};
};

/// Shows those of its children whose bit is set in the current mask. In memory every mask has room for all primary
/// children, and its bits stay with their children when those come, go or move.
class SwitchRecord : public RecordOf<SwitchRecord, PrimNodeRecord, opcodes::switchNode, SwitchFields> {
public:
  using RecordOf::RecordOf;

  int currentMask() const { return get(fields.currentMask); }
  void setCurrentMask(int mask) { set(fields.currentMask, mask); }
  /// As many masks as the buffer really holds.
  int maskCount() const;
  int wordsPerMask() const;
  /// Bit of the i-th primary child; true for a mask or a child that has none.
  bool bit(int mask, int child) const;
  void setBit(int mask, int child, bool on);
  /// Whether the current mask shows the child. A current mask that doesn't exist shows all.
  bool shows(int child) const { return bit(currentMask(), child); }

  using Mask = std::vector<bool>;
  /// All masks, each as long as there are words for.
  std::vector<Mask> masks() const;
  /// Makes the buffer hold exactly these masks for `childCount` children; bits that a mask lacks are set.
  bool setMasks(const std::vector<Mask>& masks, int childCount);

  /// For a block in which children come in whose bits are there already. Null does nothing.
  class MasksStay {
  public:
    explicit MasksStay(SwitchRecord* record) : record_(record) { set(true); }
    MasksStay(const MasksStay&) = delete;
    MasksStay& operator=(const MasksStay&) = delete;
    ~MasksStay() { set(false); }

  private:
    void set(bool stay)
    {
      if (record_) record_->masksStay_ = stay;
    }
    SwitchRecord* record_;
  };

  bool read(RecordReader& reader) override;
  void swapContent(std::byte* content, const SwapScope& scope) const override;

protected:
  void primaryInserted(int position) override;
  void primaryRemoved(int position) override;
  void primaryMoved(int from, int to) override;
  void primariesCleared() override;

private:
  std::size_t wordOffset(int mask, int child) const;
  /// Gives the buffer room for that many masks of that many words. Bits keep their places; new ones are set.
  bool layOut(int maskTotal, int words);
  template <class Change>
  void changeMasks(Change&& change);

  bool masksStay_ = false;
};

} // namespace fltapi
