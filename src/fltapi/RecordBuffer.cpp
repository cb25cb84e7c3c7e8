#include "fltapi/RecordBuffer.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <mutex>

namespace fltapi {

namespace {

/// Oversize records are rare, so a lock around the table costs nothing that could be measured.
struct OversizeTable {
  std::mutex mutex;
  std::map<const std::byte*, std::uint64_t> lengths;
};

OversizeTable& oversizeTable()
{
  // Never destroyed: records with static lifetime may still look their length up at exit.
  static auto* table = new OversizeTable;
  return *table;
}

std::uint16_t lengthWord(const std::byte* buffer)
{
  return loadAt<std::uint16_t>(buffer + 2);
}

} // namespace

std::size_t oversizeLength(const std::byte* buffer)
{
  auto& table = oversizeTable();
  const std::lock_guard lock(table.mutex);
  const auto found = table.lengths.find(buffer);
  return found == table.lengths.end() ? 0 : found->second;
}

void setRecordLength(std::byte* buffer, std::size_t length)
{
  if (length <= longestPlainRecord) {
    storeAt(buffer + 2, static_cast<std::uint16_t>(length));
    return;
  }
  storeAt(buffer + 2, std::uint16_t{0});
  auto& table = oversizeTable();
  const std::lock_guard lock(table.mutex);
  table.lengths[buffer] = length;
}

void forgetRecordLength(const std::byte* buffer)
{
  if (lengthWord(buffer) != 0) return;
  auto& table = oversizeTable();
  const std::lock_guard lock(table.mutex);
  table.lengths.erase(buffer);
}

std::size_t oversizeRecordCount()
{
  auto& table = oversizeTable();
  const std::lock_guard lock(table.mutex);
  return table.lengths.size();
}

void BufferDeleter::operator()(std::byte* buffer) const
{
  forgetRecordLength(buffer);
  std::free(buffer);
}

Buffer allocateBuffer(int opcode, std::size_t length)
{
  auto* bytes = static_cast<std::byte*>(std::malloc(std::max(length, recordHeadSize)));
  if (!bytes) return nullptr;
  storeAt(bytes, static_cast<std::uint16_t>(opcode));
  setRecordLength(bytes, length);
  return Buffer(bytes);
}

Buffer resizedCopy(const std::byte* source, std::size_t length)
{
  auto copy = allocateBuffer(recordOpcode(source), length);
  if (!copy) return nullptr;
  const auto kept = std::min(recordLength(source), length);
  std::memcpy(copy.get() + recordHeadSize, source + recordHeadSize, kept - recordHeadSize);
  std::memset(copy.get() + kept, 0, length - kept);
  return copy;
}

} // namespace fltapi
