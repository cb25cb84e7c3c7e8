#include "app/dialogs/SearchText.h"

#include <algorithm>

namespace nalt {

std::vector<std::string> namesIn(std::string_view text)
{
  constexpr std::string_view blanks = " \t\r\n";
  std::vector<std::string> names;
  for (auto start = text.find_first_not_of(blanks); start < text.size();
       start = text.find_first_not_of(blanks, start)) {
    const bool quoted = text[start] == '"';
    if (quoted) ++start;
    const auto end = std::min(quoted ? text.find('"', start) : text.find_first_of(blanks, start), text.size());
    if (end > start) names.emplace_back(text.substr(start, end - start));
    start = end + (quoted ? 1 : 0);
  }
  return names;
}

std::string selectedInWords(std::size_t count)
{
  return count == 1 ? "1 node is selected." : std::to_string(count) + " nodes are selected.";
}

} // namespace nalt
