#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace fltapi {

class PrimNodeRecord;
class VertexBaseRecord;

/// The vertex palette of a file that is about to be written: every distinct vertex once, in the order of first use, and
/// the byte offset by which polygons refer to it. Vertices are the same when they have the same opcode and equal bytes.
class VertexPaletteLayout {
public:
  explicit VertexPaletteLayout(int version) : version_(version) {}

  /// Takes in the vertices of all vertex lists below `node`, content of externals left out.
  void addBelow(const PrimNodeRecord& node);
  void add(const VertexBaseRecord& vertex);

  /// Of a vertex that was added before, counted in bytes from the start of the palette record.
  std::uint32_t offsetOf(const VertexBaseRecord& vertex) const;
  /// Bytes of the palette record and all vertices behind it.
  std::uint64_t length() const { return length_; }
  /// Whether all offsets can be expressed in 32 bits.
  bool fits() const { return length_ <= 0xffffffffu; }

  struct Entry {
    const VertexBaseRecord* vertex;
    std::uint64_t offset;
  };
  const std::vector<Entry>& entries() const { return entries_; }

private:
  static constexpr std::uint32_t empty = 0xffffffffu;

  struct Slot {
    std::uint32_t tag = 0; ///< of the vertex, from all its bytes
    std::uint32_t entry = empty;
  };

  std::size_t slotOf(const VertexBaseRecord& vertex, std::uint32_t tag) const;
  void growTable();

  int version_;
  std::vector<Entry> entries_;
  std::vector<Slot> table_; ///< open addressing; a power of two long
  std::uint64_t length_ = 8;
  mutable std::size_t expected_ = 0; ///< entry that offsetOf() looks at first
};

} // namespace fltapi
