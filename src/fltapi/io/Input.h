#pragma once

#include "fltapi/RecordBuffer.h"

#include <cstdint>
#include <string>

namespace fltapi {

/// How much memory records may take beyond what a stream of `bytes` holds, because they are shorter than their kind is
/// now: plenty for every honest old file, and a bound for one that is made of nothing but heads.
constexpr std::uint64_t wideningAllowance(std::uint64_t bytes)
{
  return (std::uint64_t{1} << 20) + 4 * bytes;
}

/// A stream of raw records. The content of what it gives is in file order; opcode and length are in host order.
class Input {
public:
  Input() = default;
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  virtual ~Input() = default;

  /// A record as it lies in memory: its buffer has at least the current length of its opcode, filled with the default
  /// content (in host order) behind what the stream held.
  struct RawRecord {
    Buffer buffer;
    std::size_t length = 0; ///< bytes that came from the stream, head included
    explicit operator bool() const { return buffer != nullptr; }
  };

  /// Empty at the end of the stream and when the stream is damaged; the two differ in `damage()`.
  virtual RawRecord readRecord() = 0;
  /// Nothing more can be read.
  virtual bool atEnd() const = 0;
  /// Goes back to the start of the last record read.
  virtual bool unread() = 0;
  /// Byte at which the last record starts.
  virtual std::uint64_t lastRecordPosition() const = 0;
  /// What is wrong with the stream, empty while nothing is.
  const std::string& damage() const { return damage_; }

  /// Format version of what is read; known once the header record has been seen.
  int version() const { return version_; }
  void setVersion(int version) { version_ = version; }
  /// Share of the stream that is behind us, 0 to 1.
  virtual double progress() const = 0;

protected:
  void setDamage(const std::string& text) { damage_ = text; }

private:
  std::string damage_;
  int version_ = 0;
};

} // namespace fltapi
