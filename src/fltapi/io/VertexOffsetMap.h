#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace fltapi {

/// In files before 15.8 vertices may be shorter than they are in memory, and polygons refer to them by byte offset.
/// This keeps, for each vertex of the palette, where it lay and where it lies once all vertices have their current
/// length.
class VertexOffsetMap {
public:
  /// The palette record itself; offsets count from its start. Of several palettes the first one counts.
  void startPalette(std::uint64_t position)
  {
    if (!std::exchange(started_, true)) start_ = position;
  }
  /// The next vertex of the palette, `grownBy` bytes shorter in the file than in memory.
  void addVertex(std::uint64_t position, std::uint32_t grownBy);

  bool empty() const { return entries_.empty(); }
  /// False when no vertex lay at `offset`.
  bool find(std::uint32_t offset, std::uint32_t& current) const;

private:
  struct Entry {
    std::uint32_t inFile;
    std::uint32_t current;
  };
  std::vector<Entry> entries_; ///< ascending, since files are read from front to back
  std::uint64_t start_ = 0;
  std::uint32_t growth_ = 0;
  bool started_ = false;
};

} // namespace fltapi
