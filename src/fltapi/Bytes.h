#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Reading, writing and byte-swapping numbers in raw buffers. No alignment is assumed.
namespace fltapi {

template <class T>
T loadAt(const std::byte* p)
{
  T value;
  std::memcpy(&value, p, sizeof value);
  return value;
}

template <class T>
void storeAt(std::byte* p, T value)
{
  std::memcpy(p, &value, sizeof value);
}

inline void swap16(std::byte* p)
{
  storeAt(p, __builtin_bswap16(loadAt<std::uint16_t>(p)));
}
inline void swap32(std::byte* p)
{
  storeAt(p, __builtin_bswap32(loadAt<std::uint32_t>(p)));
}
inline void swap64(std::byte* p)
{
  storeAt(p, __builtin_bswap64(loadAt<std::uint64_t>(p)));
}

/// Reverses `count` numbers of `width` bytes (1, 2, 4 or 8) that lie one behind the other.
inline void swapRun(std::byte* p, std::size_t width, std::size_t count)
{
  switch (width) {
  case 2:
    for (; count; --count, p += 2)
      swap16(p);
    break;
  case 4:
    for (; count; --count, p += 4)
      swap32(p);
    break;
  case 8:
    for (; count; --count, p += 8)
      swap64(p);
    break;
  default:
    break;
  }
}

inline std::uint16_t bigEndian16(const std::byte* p)
{
  return __builtin_bswap16(loadAt<std::uint16_t>(p));
}
inline std::uint32_t bigEndian32(const std::byte* p)
{
  return __builtin_bswap32(loadAt<std::uint32_t>(p));
}

static_assert(std::endian::native == std::endian::little,
              "files are big-endian; the swaps assume a little-endian host");

} // namespace fltapi
