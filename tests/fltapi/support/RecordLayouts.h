#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace nalt::tests::flt {

/// One entry of a record layout: numbers, texts, packed colors or reserved bytes.
struct LayoutEntry {
  std::size_t offset = 0; ///< from the start of the head
  std::size_t width = 1;  ///< bytes of one number; 1 for everything that has no byte order
  std::size_t count = 1;
  char kind = 'x';             ///< u, i, f: numbers; c: text; b: packed color; x: reserved bytes
  std::vector<double> initial; ///< of a new record; what it lacks is zero
  int since = 0;               ///< files of earlier versions don't have it
  bool anonymous = false;      ///< numbers of a table that have no field of their own
  std::string name;

  std::size_t end() const { return offset + width * count; }
};

/// The layout of a record kind of version 16.2 from offset 4 to its length, without gaps.
struct RecordLayout {
  int opcode = 0;
  std::size_t length = 4;
  std::string className;
  std::string displayName;
  std::vector<LayoutEntry> entries;
};

/// All record kinds, in order of their numbers. Typed from the description of the format, not from the library.
const std::vector<RecordLayout>& recordLayouts();
/// One with nothing but a head for a kind that isn't there.
const RecordLayout& layoutOf(int opcode);

/// The default content in host order, head left zero.
std::string defaultContent(const RecordLayout& layout);
/// `file` (a whole record as a file of that version holds it) with every number that the version has in host order.
std::string inHostOrder(const RecordLayout& layout, std::string file, int version);

} // namespace nalt::tests::flt
