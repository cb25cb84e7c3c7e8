#pragma once

#include <string>
#include <vector>

namespace nalt {

/// The files that were opened or saved last, the newest first.
class RecentFiles {
public:
  static constexpr std::size_t limit = 4;

  /// Puts `path` on top. False for what isn't the path of an OpenFlight file.
  bool add(const std::string& path);
  const std::vector<std::string>& paths() const { return paths_; }
  void clear() { paths_.clear(); }

private:
  std::vector<std::string> paths_;
};

} // namespace nalt
