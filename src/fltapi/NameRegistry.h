#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace fltapi {

/// The names in use in a file, each with how often it occurs.
class NameRegistry {
public:
  bool contains(const std::string& name) const { return counts_.contains(name); }
  void add(const std::string& name) { ++counts_[name]; }
  /// Takes out one occurrence; nothing happens for a name that isn't there.
  void remove(const std::string& name)
  {
    const auto found = counts_.find(name);
    if (found != counts_.end() && --found->second == 0) counts_.erase(found);
  }
  void clear() { counts_.clear(); }

private:
  std::unordered_map<std::string, std::uint32_t> counts_;
};

} // namespace fltapi
