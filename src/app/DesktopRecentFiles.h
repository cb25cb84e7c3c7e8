#pragma once

#include <chrono>
#include <string>

namespace nalt {

/// The desktop's list of files used lately, which its file dialogs and menus show: an XBEL file that all programs share
/// by the desktop's rules.

/// Puts `path` into the list at `listPath`, or brings its entry up to date. What other programs wrote stays. A list
/// that can't be read or written is left as it is, and nobody is told: the user didn't ask for it.
/// @param path absolute
bool noteInRecentList(const std::string& listPath, const std::string& path,
                      std::chrono::system_clock::time_point now = std::chrono::system_clock::now());

/// The same for the list of this user's desktop.
void noteOnDesktop(const std::string& path);

} // namespace nalt
