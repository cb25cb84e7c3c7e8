#pragma once

#include "fltapi/Host.h"

namespace nalt {

class Gui;

/// Lets the record database speak through the program's messages and progress window, on the main thread and on
/// workers.
class DatabaseHost : public fltapi::Host {
public:
  explicit DatabaseHost(Gui& gui);
  ~DatabaseHost() override;
  DatabaseHost(const DatabaseHost&) = delete;
  DatabaseHost& operator=(const DatabaseHost&) = delete;

  void warning(const std::string& text) override;
  void error(const std::string& text) override;
  void progress(double fraction) override;
  bool repairsNotAvailable() const override;
  bool loadsExternals() const override;

private:
  Gui& gui_;
  fltapi::Host* before_;
};

} // namespace nalt
