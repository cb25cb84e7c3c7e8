#pragma once

#include <locale>
#include <sstream>
#include <string>

namespace fltapi {

/// A format version as users know it: 1580 is "15.8". Numbers below 1000 come from times when files counted otherwise.
inline std::string versionText(int version)
{
  std::ostringstream text;
  text.imbue(std::locale::classic());
  if (version >= 1000) {
    text << static_cast<float>(version) / 100.0f;
  } else {
    text << version;
  }
  return text.str();
}

} // namespace fltapi
