#pragma once

#include <string>

namespace fltapi {

/// How the database speaks to the program around it: messages, progress, and the few choices that are the user's.
/// May be called from the thread that loads or saves. The one that is installed at the start stays silent.
class Host {
public:
  virtual ~Host() = default;

  static Host& get();
  /// Installs `host` (not owned; null brings the silent one back) and gives back the one before.
  static Host* install(Host* host);

  virtual void warning(const std::string&) {}
  virtual void error(const std::string&) {}
  /// Share of the running operation that is done, 0 to 1.
  virtual void progress(double) {}

  /// Whether values that a file marks as not available are set to zero on reading.
  virtual bool repairsNotAvailable() const { return true; }
  /// Whether the content of external references is loaded.
  virtual bool loadsExternals() const { return true; }
  /// Folders in which external references are looked for, separated by ";" or ":". What the
  /// environment variable NALT_FILE_PATH holds, unless a host knows better.
  virtual std::string externalSearchPath() const;
};

/// Allowed difference of matrix elements and vertex positions that are compared while a file is read. Not the user's
/// tolerance, so that the bytes of a file don't depend on a setting.
inline constexpr double fileTolerance = 1e-4;

} // namespace fltapi
