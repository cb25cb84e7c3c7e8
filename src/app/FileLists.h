#pragma once

#include <string>
#include <vector>

namespace nalt {

/// Whether `path` ends in ".flt" or ".FLT" with something in front of it. Other spellings don't count.
bool isOpenFlightPath(const std::string& path);

/// `path`, with ".flt" behind it if it doesn't end in that or in ".FLT".
std::string withOpenFlightSuffix(const std::string& path);

/// What to do with files that were named on the command line or dropped on the window, each list in the order given.
struct FileLists {
  std::vector<std::string> open;
  std::vector<std::string> import;
};
FileLists sortFiles(const std::vector<std::string>& paths);

/// The path that a "file:" URI means: "file:///a%20b", "file://host/a%20b" and "file:/a%20b" are all "/a b".
std::string pathOfUri(std::string uri);
/// The URI of an absolute path.
std::string uriOfPath(const std::string& path);

/// The paths in a drop: one path or "file:" URI in each line, URIs with their "%20" and host taken out.
std::vector<std::string> pathsOfDrop(const std::string& lines);

} // namespace nalt
