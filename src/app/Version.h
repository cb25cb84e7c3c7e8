#pragma once

namespace nalt {

inline constexpr const char* versionText = "Nalt " NALT_VERSION;
inline constexpr const char* versionLabel = "v" NALT_VERSION;

} // namespace nalt
