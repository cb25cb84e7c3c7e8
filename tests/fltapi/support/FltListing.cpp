#include "tests/fltapi/support/FltListing.h"

#include "tests/fltapi/support/FltBytes.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <ostream>
#include <sstream>

namespace nalt::tests::flt {

void PrintTo(const ListedRecord& record, std::ostream* stream)
{
  *stream << "record " << record.opcode << " of " << record.length << " bytes in " << record.pieces << ":";
  constexpr std::size_t shown = 400;
  std::size_t at = headSize;
  for (const unsigned char byte : record.content.substr(0, shown)) {
    if (at % 4 == 0) *stream << ' ';
    *stream << std::hex << std::setw(2) << std::setfill('0') << int{byte} << std::dec;
    ++at;
  }
  if (record.content.size() > shown) *stream << " ...";
}

std::vector<ListedRecord> recordsOf(std::string_view file)
{
  constexpr int continuation = 23;
  std::vector<ListedRecord> records;
  std::size_t at = 0;
  while (at + headSize <= file.size()) {
    const auto opcode = static_cast<int>(bigEndian(file, at, 2));
    const std::size_t length = bigEndian(file, at + 2, 2);
    if (length < headSize || at + length > file.size()) break;
    const auto content = file.substr(at + headSize, length - headSize);
    if (opcode == continuation && !records.empty()) {
      records.back().content += content;
      records.back().length += content.size();
      ++records.back().pieces;
    } else {
      records.push_back({opcode, length, std::string(content), 1});
    }
    at += length;
  }
  EXPECT_EQ(at, file.size()) << "no record at byte " << at;
  return records;
}

std::vector<ListedRecord> recordsOf(std::string_view file, int opcode)
{
  auto records = recordsOf(file);
  std::erase_if(records, [&](const auto& record) { return record.opcode != opcode; });
  return records;
}

std::vector<int> opcodesOf(std::string_view file)
{
  std::vector<int> opcodes;
  for (const auto& record : recordsOf(file))
    opcodes.push_back(record.opcode);
  return opcodes;
}

std::string outline(std::string_view file)
{
  std::ostringstream line;
  for (const auto opcode : opcodesOf(file)) {
    if (line.tellp() > 0) line << ' ';
    switch (opcode) {
    case 10:
      line << '[';
      break;
    case 11:
      line << ']';
      break;
    case 19:
      line << '{';
      break;
    case 20:
      line << '}';
      break;
    default:
      line << opcode;
    }
  }
  return line.str();
}

} // namespace nalt::tests::flt
