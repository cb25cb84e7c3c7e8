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
  if (mask < 0 || mask >= maskCount() || child < 0 || child >= wordsPerMask() * bitsPerWord) return 0;
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
  const int bits = wordsPerMask() * bitsPerWord;
  for (int mask = 0; mask < static_cast<int>(all.size()); ++mask) {
    for (int child = 0; child < bits; ++child)
      all[static_cast<std::size_t>(mask)].push_back(bit(mask, child));
  }
  return all;
}

std::vector<SwitchRecord::Mask> SwitchRecord::masksFor(int childCount) const
{
  auto all = masks();
  for (auto& mask : all)
    mask.resize(static_cast<std::size_t>(childCount), true);
  return all;
}

bool SwitchRecord::setMasks(const std::vector<Mask>& masks, int childCount)
{
  const auto words = static_cast<std::size_t>(std::max(1, wordsFor(childCount)));
  const auto length = std::max(leastLength, masksStart + 4 * words * masks.size());
  auto buffer = allocateBuffer(code, length);
  if (!buffer) return false;
  std::memcpy(buffer.get() + recordHeadSize, data() + recordHeadSize, masksStart - recordHeadSize);
  std::memset(buffer.get() + masksStart, 0xff, length - masksStart);
  replaceData(std::move(buffer));
  set(fields.maskCount, static_cast<std::int32_t>(masks.size()));
  set(fields.wordsPerMask, static_cast<std::int32_t>(words));
  for (std::size_t mask = 0; mask < masks.size(); ++mask) {
    for (std::size_t child = 0; child < masks[mask].size(); ++child) {
      setBit(static_cast<int>(mask), static_cast<int>(child), masks[mask][child]);
    }
  }
  return true;
}

bool SwitchRecord::read(RecordReader& reader)
{
  // While the children come in, the masks are still those of the file.
  reading_ = true;
  const bool good = readBody(reader);
  reading_ = false;
  if (!good) return false;
  const int words = wordsFor(primaryChildCount());
  if (words <= wordsPerMask() && length() >= leastLength) return true;
  const auto wanted = std::uint64_t{4} * static_cast<std::uint64_t>(words) * static_cast<std::uint64_t>(maskCount());
  return reader.allowWidening(wanted) && setMasks(masks(), primaryChildCount());
}

void SwitchRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fields, content, scope);
  const auto second = masksStart + 4;
  if (scope.length > second) swapRun(content + second, 4, (scope.length - second) / 4);
}

// ---- the bits follow their children --------------------------------------------------------------------------------

void SwitchRecord::primaryInserted(int position)
{
  if (reading_) return;
  auto all = masksFor(primaryChildCount() - 1);
  for (auto& mask : all)
    mask.insert(mask.begin() + position, true);
  setMasks(all, primaryChildCount());
}

void SwitchRecord::primaryRemoved(int position)
{
  auto all = masksFor(primaryChildCount());
  for (auto& mask : all)
    mask.erase(mask.begin() + position);
  setMasks(all, primaryChildCount() - 1);
}

void SwitchRecord::primaryMoved(int from, int to)
{
  auto all = masksFor(primaryChildCount());
  for (auto& mask : all) {
    const bool moved = mask[static_cast<std::size_t>(from)];
    mask.erase(mask.begin() + from);
    mask.insert(mask.begin() + to, moved);
  }
  setMasks(all, primaryChildCount());
}

void SwitchRecord::primariesCleared()
{
  const auto id = get(fields.id);
  replaceData(defaultBuffer(code));
  set(fields.id, id);
}

} // namespace fltapi
