#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace nalt {

class Model;

/// Changes of referenced files that the user didn't want to see, so that each is asked about once.
class DeclinedExternals {
public:
  /// The present state of the file that references with that path show.
  void add(const Model& model, const std::string& path);
  /// Whether that file changed after it was added, or never was.
  bool isNew(const Model& model, const std::string& path) const;

private:
  std::map<std::string, std::filesystem::file_time_type> times_; ///< by the path on the disk
};

} // namespace nalt
