#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace nalt::tests {

/// Sets or, without a value, unsets an environment variable until the end of the scope.
class ScopedEnvironment {
public:
  ScopedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name)
  {
    if (const char* old = std::getenv(name)) before_ = old;
    set(value);
  }
  ~ScopedEnvironment() { set(before_); }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
  void set(const std::optional<std::string>& value)
  {
    if (value)
      setenv(name_, value->c_str(), 1);
    else
      unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> before_;
};

/// Another current folder until the end of the scope.
class ScopedCurrentFolder {
public:
  explicit ScopedCurrentFolder(const std::string& folder) : before_(std::filesystem::current_path())
  {
    std::filesystem::current_path(folder);
  }
  ~ScopedCurrentFolder() { std::filesystem::current_path(before_); }
  ScopedCurrentFolder(const ScopedCurrentFolder&) = delete;
  ScopedCurrentFolder& operator=(const ScopedCurrentFolder&) = delete;

private:
  std::filesystem::path before_;
};

} // namespace nalt::tests
