#pragma once

#include "core/Preferences.h"
#include "scene/view/ViewportPreferences.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace nalt {

/// Where the main window was, and the files that were open lately, the newest first.
struct WindowSettings {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool maximized = false;
  std::array<std::string, 4> recentFiles;
};

/// All that the program remembers from one run to the next.
struct Settings {
  WindowSettings window;
  Preferences preferences;
  ViewportPreferences viewport;
};

inline constexpr double settingsVersion = 2.4;

/// The whole settings file, 4488 bytes, all numbers big-endian: version, window block, preferences block, viewport
/// block.
std::string encodeSettings(const Settings& settings);
/// The version that a settings file begins with; none when it is too short to say.
std::optional<double> encodedVersion(std::string_view bytes);
/// Takes over what `bytes` hold. A file that ends early, or values that make no sense, leave the rest as it is.
/// False when the file ends before it has said where the window was; the window settings then stay as they are.
bool decodeSettings(std::string_view bytes, Settings& settings);

} // namespace nalt
