#pragma once

#include <string>

namespace nalt::tests {

/// A fresh folder for one test, removed with all it holds at the end of the test.
class TempFolder {
public:
  TempFolder();
  /// Below another folder than the system's for temporary files.
  explicit TempFolder(const std::string& parent);
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// Without a separator at its end.
  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

private:
  std::string path_;
};

/// Where files lie in memory, for tests that save by the thousand: waiting for a disk would take most of their time.
/// The system's folder for temporary files where there is no such place.
std::string memoryFolder();

/// Writes a whole file (its folder must exist), or fails the test.
void writeFile(const std::string& path, const std::string& content);
/// A whole file, or a failed test and an empty text.
std::string readFile(const std::string& path);

} // namespace nalt::tests
