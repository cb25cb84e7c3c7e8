#pragma once

#include <string>
#include <vector>

namespace nalt {

/// One page of the user's manual.
struct ManualChapter {
  std::string title;
  std::string file; ///< full path of the HTML file
};

/// The folder of the user's manual, with a separator at its end: beside the program, where it is installed, or in the
/// source tree that the program was built in. Empty when it isn't there.
std::string manualFolder(const std::string& programFolder);

/// The chapters in reading order, as the manual's page of contents links to them. Empty when there is none.
std::vector<ManualChapter> manualChapters(const std::string& folder);

/// The HTML of a page. What the program knows better than any text, such as its keys, is filled in.
std::string pageOf(const ManualChapter& chapter);

/// What a page says, without its HTML.
std::string plainText(const std::string& html);

/// The chapter, from `first` on and around, whose text holds `wanted` in any case; -1 without one.
int findInManual(const std::vector<ManualChapter>& chapters, const std::string& wanted, int first);

} // namespace nalt
