#pragma once

#include "fltapi/Host.h"

#include <string>
#include <vector>

namespace nalt::tests {

/// Keeps what the database says while it is the host in force, from its construction to its end.
class RecordingHost : public fltapi::Host {
public:
  RecordingHost() : before_(install(this)) {}
  ~RecordingHost() override { install(before_); }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  void warning(const std::string& text) override { warnings.push_back(text); }
  void error(const std::string& text) override { errors.push_back(text); }
  void progress(double fraction) override { fractions.push_back(fraction); }
  bool repairsNotAvailable() const override { return repairs; }
  bool loadsExternals() const override { return externals; }

  std::vector<std::string> warnings;
  std::vector<std::string> errors;
  std::vector<double> fractions;
  bool repairs = true;
  bool externals = true;

private:
  Host* before_;
};

} // namespace nalt::tests
