#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace nalt::tests::flt {

/// One record as it lies in a file, pieces in continuation records joined.
struct ListedRecord {
  int opcode = 0;
  std::size_t length = 0; ///< of all pieces together, counting one head
  std::string content;    ///< without heads
  int pieces = 1;
  /// Bytes from the start of the head on, as offsets in record layouts count.
  std::string bytes(std::size_t offset, std::size_t count) const { return content.substr(offset - 4, count); }

  friend bool operator==(const ListedRecord&, const ListedRecord&) = default;
};
void PrintTo(const ListedRecord& record, std::ostream* stream);

/// All records of a file, or a failed test where the bytes aren't records.
std::vector<ListedRecord> recordsOf(std::string_view file);
std::vector<int> opcodesOf(std::string_view file);
/// The records with that opcode.
std::vector<ListedRecord> recordsOf(std::string_view file, int opcode);

/// The tree of a file in one line: "1 32 67 [ 2 33 [ 4 ] ]", with "{" and "}" for subfaces.
std::string outline(std::string_view file);

} // namespace nalt::tests::flt
