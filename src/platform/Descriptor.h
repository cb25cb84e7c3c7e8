#pragma once

#include <unistd.h>

#include <utility>

namespace nalt {

/// Owns an open file descriptor, or none. For platform/ only.
class Descriptor {
public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept
  {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  /// False, with errno set, if the system reports only now that something wasn't written.
  bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
  int number_ = -1;
};

} // namespace nalt
