#pragma once

#include "core/Preferences.h"
#include "script/ScriptRun.h"
#include "tests/script/ScriptShell.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace nalt {

/// Runs scripts against a shell without a window.
class ScriptTest : public testing::Test {
protected:
  ScriptTest() : before_(Shell::install(&shell))
  {
    for (const char* name : {"NALT_LOG", "NALT_NO_LINE_FEED"})
      unsetenv(name);
  }
  ~ScriptTest() override
  {
    setOutputPane(nullptr);
    shell.dropModels();
    Preferences::get() = {};
    unsetenv("NALT_LOG");
    unsetenv("NALT_NO_LINE_FEED");
    Shell::install(before_);
  }

  /// Writes `text` as a script file and gives its path.
  std::string script(const std::string& text, const std::string& name = "test.lua")
  {
    tests::writeFile(folder / name, text);
    return folder / name;
  }

  /// Executes `text` in `run`, keeping `output` and `error`.
  bool execute(ScriptRun& run, const std::string& text)
  {
    const ScriptRun::Activation activation(run);
    const auto path = script(text);
    testing::internal::CaptureStdout();
    const bool good = runScript(run, path, error, parameters, arguments, "nalt");
    output = testing::internal::GetCapturedStdout();
    return good;
  }

  /// Executes `text` in an interactive run of its own. The script should end with `error` when something is wrong.
  bool execute(const std::string& text)
  {
    ScriptRun run(/*batch=*/false);
    return execute(run, text);
  }

  bool executeBatch(const std::string& text)
  {
    ScriptRun run(/*batch=*/true);
    return execute(run, text);
  }

  /// What the script prints; a failure of the script fails the test.
  std::string printed(const std::string& text)
  {
    EXPECT_TRUE(execute(text)) << error;
    return output;
  }

  /// The error that `text` ends with, without the place in front of it.
  std::string errorOf(const std::string& text)
  {
    EXPECT_FALSE(execute(text)) << text;
    const auto place = error.find(".lua:");
    const auto start = place == std::string::npos ? place : error.find(": ", place);
    return start == std::string::npos ? error : error.substr(start + 2);
  }

  tests::TempFolder folder;
  ScriptShell shell;
  std::string error;
  std::string output;
  std::vector<MacroParameter> parameters;
  std::vector<std::string> arguments;

private:
  Shell* before_;
};

} // namespace nalt
