#include "app/FileLists.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>

namespace nalt {

namespace {

constexpr std::size_t suffixLength = 4;

bool hasOpenFlightSuffix(const std::string& path)
{
  return path.ends_with(".flt") || path.ends_with(".FLT");
}

std::string unescaped(const std::string& text)
{
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned value = 0;
    if (text[i] == '%' && i + 2 < text.size()) {
      const char* const first = text.data() + i + 1;
      if (std::from_chars(first, first + 2, value, 16).ptr == first + 2) {
        result += static_cast<char>(value);
        i += 2;
        continue;
      }
    }
    result += text[i];
  }
  return result;
}

} // namespace

bool isOpenFlightPath(const std::string& path)
{
  return path.size() > suffixLength && hasOpenFlightSuffix(path);
}

std::string withOpenFlightSuffix(const std::string& path)
{
  return hasOpenFlightSuffix(path) ? path : path + ".flt";
}

FileLists sortFiles(const std::vector<std::string>& paths)
{
  FileLists lists;
  for (const std::string& path : paths)
    (isOpenFlightPath(path) ? lists.open : lists.import).push_back(path);
  return lists;
}

std::string pathOfUri(std::string uri)
{
  uri.erase(0, std::string("file:").size());
  if (uri.starts_with("//")) uri.erase(0, std::min(uri.find('/', 2), uri.size()));
  return unescaped(uri);
}

std::string uriOfPath(const std::string& path)
{
  constexpr std::string_view plain = "-_.~/!$&'()*+,:=@";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri = "file://";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (letter || plain.find(c) != std::string_view::npos)
      uri += c;
    else
      uri += {'%', digits[byte >> 4U], digits[byte & 15U]};
  }
  return uri;
}

std::vector<std::string> pathsOfDrop(const std::string& lines)
{
  std::vector<std::string> paths;
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty()) continue;
    paths.push_back(line.starts_with("file:") ? pathOfUri(line) : line);
  }
  return paths;
}

} // namespace nalt
