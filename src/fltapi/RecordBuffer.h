#pragma once

#include "fltapi/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <memory>

/// The raw bytes of one record: a 16-bit opcode, a 16-bit length (both in host order) and the content in file layout.
///
/// The length word can't say more than 65535. A longer record has 0 there, and its true length stands in one
/// process-wide table keyed by the buffer's address. Nothing but the functions below touches the length word or
/// that table.
namespace fltapi {

inline constexpr std::size_t recordHeadSize = 4;
inline constexpr std::size_t longestPlainRecord = 65535;

/// What the table says; 0 for a buffer that it doesn't know.
std::size_t oversizeLength(const std::byte* buffer);
/// Length in bytes of the record in `buffer`, head included. 0 for an oversize record that the table doesn't know.
inline std::size_t recordLength(const std::byte* buffer)
{
  const auto word = loadAt<std::uint16_t>(buffer + 2);
  return word ? word : oversizeLength(buffer);
}
void setRecordLength(std::byte* buffer, std::size_t length);
/// To be called just before a buffer is freed.
void forgetRecordLength(const std::byte* buffer);
/// How many oversize records the table holds; for tests that look for leaks.
std::size_t oversizeRecordCount();

inline std::uint16_t recordOpcode(const std::byte* buffer)
{
  return loadAt<std::uint16_t>(buffer);
}

struct BufferDeleter {
  void operator()(std::byte* buffer) const;
};
/// An owned record buffer.
using Buffer = std::unique_ptr<std::byte[], BufferDeleter>;

/// A buffer of `length` bytes (at least 4) with head set and content undefined. Null when memory is out.
Buffer allocateBuffer(int opcode, std::size_t length);
/// The same with the content of `source` as far as it reaches and zeros behind it.
Buffer resizedCopy(const std::byte* source, std::size_t length);

} // namespace fltapi
