#include "scene/image/SgiImage.h"

#include <osgDB/FileNameUtils>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

namespace nalt {

namespace {

constexpr std::array<std::string_view, 6> extensions = {"rgb", "rgba", "int", "inta", "bw", "sgi"};
constexpr std::size_t headSize = 512;
constexpr std::uint32_t magic = 474;

class SgiFile {
public:
  explicit SgiFile(const std::string& path)
  {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }

  bool isSound() const
  {
    if (bytes_.size() < headSize || number(0, 2) != magic) return false;
    const auto storage = number(2, 1);
    const auto unit = number(3, 1);
    const std::uint64_t width = number(6, 2);
    const std::uint64_t height = number(8, 2);
    const std::uint64_t channels = number(10, 2);
    if (storage > 1 || unit < 1 || unit > 2 || width < 1 || height < 1 || channels < 1 || channels > 4) return false;
    if (storage == 0) return bytes_.size() >= headSize + width * height * channels * unit;
    const auto rows = height * channels;
    if (bytes_.size() < headSize + 8 * rows) return false;
    for (std::uint64_t row = 0; row < rows; ++row) {
      const auto start = number(headSize + 4 * row, 4);
      const auto length = number(headSize + 4 * (rows + row), 4);
      if (std::uint64_t{start} + length > bytes_.size() || !fits(start, length, unit, width)) return false;
    }
    return true;
  }

private:
  /// Numbers stand with their highest byte first.
  std::uint32_t number(std::size_t at, std::size_t size) const
  {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
      value = value << 8U | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }

  /// Whether the runs of a row give no more pixels than it has, and end within it.
  bool fits(std::size_t at, std::size_t length, std::size_t unit, std::uint64_t width) const
  {
    constexpr std::uint32_t countBits = 0x7f;
    constexpr std::uint32_t literalBit = 0x80;
    const auto end = at + length;
    std::uint64_t pixels = 0;
    while (at + unit <= end) {
      const auto run = number(at, unit);
      const std::uint64_t count = run & countBits;
      at += unit;
      if (count == 0) return true;
      at += unit * (run & literalBit ? count : 1);
      pixels += count;
      if (pixels > width || at > end) return false;
    }
    return false;
  }

  std::vector<char> bytes_;
};

} // namespace

bool isSoundImageFile(const std::string& path)
{
  const auto extension = osgDB::getLowerCaseFileExtension(path);
  const bool isSgi = std::ranges::find(extensions, std::string_view(extension)) != extensions.end();
  return !isSgi || SgiFile(path).isSound();
}

} // namespace nalt
