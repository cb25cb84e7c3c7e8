#pragma once

#include <string>
#include <vector>

namespace nalt {

/// The help system in Java, for installations that have it beside the program.
class HelpServer {
public:
  /// Where it is looked for, and what it keeps its state with.
  struct Place {
    std::string programFolder; ///< with a separator at its end
    std::string settingsPath;  ///< of nalt.cfg, whose folder it uses too
  };
  /// Those of the running program.
  static Place ownPlace();

  explicit HelpServer(Place place) : place_(std::move(place)) {}

  /// Whether it is installed there.
  bool isInstalled() const;
  /// Starts it, or tells the one that runs to show itself. Empty, or why that can't be.
  std::string display();
  /// Ends it, if `display` started it.
  void shutDown();

  /// The command line; `command` is "displayHelp" or "shutdown".
  std::vector<std::string> commandLine(const std::string& command) const;

private:
  std::string jar() const;
  /// Of the settings file, with a separator at its end; empty if there is none.
  std::string settingsFolder() const;

  Place place_;
  bool started_ = false;
};

} // namespace nalt
