#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nalt {

/// The names in a text that blanks separate. A name in double quotes may hold blanks itself.
std::vector<std::string> namesIn(std::string_view text);

/// "1 node is selected.", "12 nodes are selected."
std::string selectedInWords(std::size_t count);

} // namespace nalt
