#pragma once

#include "app/SettingsLayout.h"

namespace nalt {

/// The file in the user's settings folder that keeps the state of the program from one run to the next.
class SettingsFile {
public:
  /// The one of this process. Its first use looks for the folder and warns when there is none to be had.
  static SettingsFile& get();
  /// A file at `path`; an empty path means that nothing is read or written.
  explicit SettingsFile(std::string path) : path_(std::move(path)) {}

  const std::string& path() const { return path_; }

  struct Result {
    bool hasWindow = false;    ///< the window settings were in the file
    bool newerVersion = false; ///< the file is of a newer program; defaults have taken its place
  };
  /// Takes over what the file holds. A missing file, and one of a newer version, is written anew with `settings` as
  /// they are. Nothing is said about a file that can't be read.
  Result read(Settings& settings) const;
  /// Replaces the file as a whole; failures are silent.
  void write(const Settings& settings) const;

private:
  std::string path_;
};

} // namespace nalt
