#pragma once

#include <cstdint>
#include <unordered_set>

namespace fltapi {
class Record;
}

namespace nalt {

/// Writes to the log what is wrong with records: of each record once, however often it is translated.
class Complaints {
public:
  /// `text` is what every call for that record says.
  void tell(const fltapi::Record& record, const char* text);

private:
  std::unordered_set<std::uint32_t> told_; ///< serial numbers
};

} // namespace nalt
