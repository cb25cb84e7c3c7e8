#include "fltapi/nodes/SwitchRecord.h"

#include "fltapi/io/RecordReader.h"

#include <algorithm>

namespace fltapi {

namespace {

constexpr std::size_t masksStart = 28;
constexpr std::size_t leastLength = 32;
constexpr int bitsPerWord = 32;

int wordsFor(int childCount)
{
  return (childCount + bitsPerWord - 1) / bitsPerWord;
}

std::size_t lengthFor(int masks, int words)
{
  return std::max(leastLength, masksStart + 4 * static_cast<std::size_t>(masks) * static_cast<std::size_t>(words));
}

} // namespace

int SwitchRecord::wordsPerMask() const
{
  return std::max(0, get(fields.wordsPerMask));
}

int SwitchRecord::maskCount() const
{
  const auto maskBytes = std::size_t{4} * static_cast<std::size_t>(wordsPerMask());
  const auto held = maskBytes && length() > masksStart ? (length() - masksStart) / maskBytes : 0;
  return static_cast<int>(std::min<std::size_t>(held, static_cast<std::size_t>(std::max(0, get(fields.maskCount)))));
}

std::size_t SwitchRecord::wordOffset(int mask, int child) const
{
  if (mask < 0 || mask >= maskCount() || child < 0 || child / bitsPerWord >= wordsPerMask()) return 0;
  return masksStart + 4 * (static_cast<std::size_t>(mask) * static_cast<std::size_t>(wordsPerMask()) +
                           static_cast<std::size_t>(child / bitsPerWord));
}

bool SwitchRecord::bit(int mask, int child) const
{
  const auto at = wordOffset(mask, child);
  return at == 0 || loadAt<std::uint32_t>(data() + at) >> (child % bitsPerWord) & 1;
}

void SwitchRecord::setBit(int mask, int child, bool on)
{
  const auto at = wordOffset(mask, child);
  if (at == 0) return;
  const auto one = std::uint32_t{1} << (child % bitsPerWord);
  const auto word = loadAt<std::uint32_t>(data() + at);
  storeAt(data() + at, on ? word | one : word & ~one);
}

std::vector<SwitchRecord::Mask> SwitchRecord::masks() const
{
  std::vector<Mask> all(static_cast<std::size_t>(maskCount()));
  const int bits = all.empty() ? 0 : wordsPerMask() * bitsPerWord;
  for (int mask = 0; mask < static_cast<int>(all.size()); ++mask) {
    for (int child = 0; child < bits; ++child)
      all[static_cast<std::size_t>(mask)].push_back(bit(mask, child));
  }
  return all;
}

bool SwitchRecord::setMasks(const std::vector<Mask>& masks, int childCount)
{
  const int words = std::max(1, wordsFor(childCount));
  if (!layOut(static_cast<int>(masks.size()), words)) return false;
  for (int mask = 0; const auto& bits : masks) {
    for (int child = 0; child < words * bitsPerWord; ++child) {
      const auto i = static_cast<std::size_t>(child);
      setBit(mask, child, i >= bits.size() || bits[i]);
    }
    ++mask;
  }
  return true;
}

bool SwitchRecord::layOut(int maskTotal, int words)
{
  const auto maskBytes = 4 * static_cast<std::size_t>(words);
  auto buffer = allocateBuffer(code, lengthFor(maskTotal, words));
  if (!buffer) return false;
  std::memcpy(buffer.get() + recordHeadSize, data() + recordHeadSize, masksStart - recordHeadSize);
  std::memset(buffer.get() + masksStart, 0xff, recordLength(buffer.get()) - masksStart);
  const auto oldBytes = 4 * static_cast<std::size_t>(wordsPerMask());
  const auto kept = static_cast<std::size_t>(std::min(maskTotal, maskCount()));
  for (std::size_t mask = 0; mask < kept; ++mask) {
    std::memcpy(buffer.get() + masksStart + mask * maskBytes, data() + masksStart + mask * oldBytes,
                std::min(maskBytes, oldBytes));
  }
  replaceData(std::move(buffer));
  set(fields.maskCount, maskTotal);
  set(fields.wordsPerMask, words);
  return true;
}

bool SwitchRecord::read(RecordReader& reader)
{
  {
    const MasksStay stay(this);
    if (!readBody(reader)) return false;
  }
  const int claimed = std::max(0, get(fields.maskCount));
  const int words = std::max(wordsPerMask(), wordsFor(primaryChildCount()));
  const auto wanted = lengthFor(claimed, words);
  // A file that claims more masks than it can mean keeps those that it really holds; without a bit a child is shown.
  if (wanted <= length() && words == wordsPerMask()) return true;
  if (claimed > 0 && reader.mayWiden(wanted)) layOut(claimed, words);
  return true;
}

void SwitchRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fields, content, scope);
  const auto second = masksStart + 4;
  if (scope.length > second) swapRun(content + second, 4, (scope.length - second) / 4);
}

// ---- the bits follow their children --------------------------------------------------------------------------------

namespace {

/// The words of one mask. Models have switches with thousands of children, so bits move by words.
class MaskWords {
public:
  MaskWords(std::byte* first, int words) : first_(first), words_(words) {}

  bool bit(int i) const { return word(i / bitsPerWord) >> (i % bitsPerWord) & 1; }
  /// All bits from `position` on move up by one; the last one falls out.
  void insert(int position, bool on)
  {
    const int start = position / bitsPerWord;
    for (int w = words_ - 1; w > start; --w)
      setWord(w, word(w) << 1 | word(w - 1) >> (bitsPerWord - 1));
    const auto below = bitsBelow(position);
    setWord(start, (word(start) & below) | (word(start) & ~below) << 1 | std::uint32_t{on} << (position % bitsPerWord));
  }
  /// All bits behind `position` move down by one; the last one becomes set.
  void erase(int position)
  {
    const int start = position / bitsPerWord;
    const auto below = bitsBelow(position);
    for (int w = start; w < words_; ++w) {
      const auto kept = w == start ? below : 0;
      const auto next = w + 1 < words_ ? word(w + 1) : ~std::uint32_t{0};
      setWord(w, (word(w) & kept) | (word(w) >> 1 & ~kept) | next << (bitsPerWord - 1));
    }
  }

private:
  static std::uint32_t bitsBelow(int position) { return (std::uint32_t{1} << (position % bitsPerWord)) - 1; }
  std::uint32_t word(int w) const { return loadAt<std::uint32_t>(first_ + 4 * static_cast<std::size_t>(w)); }
  void setWord(int w, std::uint32_t value) { storeAt(first_ + 4 * static_cast<std::size_t>(w), value); }

  std::byte* first_;
  int words_;
};

} // namespace

template <class Change>
void SwitchRecord::changeMasks(Change&& change)
{
  const auto bytes = 4 * static_cast<std::size_t>(wordsPerMask());
  for (int mask = 0; mask < maskCount(); ++mask)
    change(MaskWords(data() + masksStart + static_cast<std::size_t>(mask) * bytes, wordsPerMask()));
}

void SwitchRecord::primaryInserted(int position)
{
  if (masksStay_ || maskCount() == 0) return;
  const int words = wordsFor(primaryChildCount());
  if (words > wordsPerMask() && !layOut(maskCount(), words)) return;
  changeMasks([&](MaskWords mask) { mask.insert(position, true); });
}

void SwitchRecord::primaryRemoved(int position)
{
  if (position / bitsPerWord >= wordsPerMask()) return;
  changeMasks([&](MaskWords mask) { mask.erase(position); });
}

void SwitchRecord::primaryMoved(int from, int to)
{
  if (std::max(from, to) / bitsPerWord >= wordsPerMask()) return;
  changeMasks([&](MaskWords mask) {
    const bool moved = mask.bit(from);
    mask.erase(from);
    mask.insert(to, moved);
  });
}

void SwitchRecord::primariesCleared()
{
  const auto id = get(fields.id);
  replaceData(defaultBuffer(code));
  set(fields.id, id);
}

} // namespace fltapi
