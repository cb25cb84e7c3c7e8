#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

namespace nalt::tests {

/// Equality of long byte strings; a failure tells where they part instead of printing them.
inline testing::AssertionResult sameBytes(std::string_view a, std::string_view b)
{
  if (a == b) return testing::AssertionSuccess();
  const auto at = static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
  const auto hex = [&](std::string_view bytes) {
    std::string text;
    for (const unsigned char byte : bytes.substr(std::min(at, bytes.size()), 16)) {
      char two[4];
      std::snprintf(two, sizeof two, " %02x", byte);
      text += two;
    }
    return text;
  };
  return testing::AssertionFailure() << a.size() << " and " << b.size() << " bytes, different from byte " << at
                                     << " on:" << hex(a) << " against" << hex(b);
}

} // namespace nalt::tests
