#pragma once

#include <string>
#include <string_view>

/// Paths as text. They are bytes of UTF-8; both "/" and "\" separate, since models, scripts and settings come from
/// several systems. A text is never cut: there is no longest path.
namespace nalt {

/// Each "/" becomes "\". A text with 1000 or more of them is given back untouched.
std::string toBackslashes(std::string_view text);
/// The separators of this system: each "\" becomes "/". A text with 1000 or more of them is given back untouched.
std::string nativePath(std::string_view text);

/// Up to and including the last separator of either kind; empty if there is none.
std::string folderPart(std::string_view path);
/// What is behind the last separator of either kind; the whole text if there is none.
std::string fileNamePart(std::string_view path);

/// Begins with "/", or has ":" as its second character.
bool isAbsolute(std::string_view path);
/// Puts the current folder in front of a relative path. A "." at the path's front is dropped and a ".." there leaves
/// the current folder by one step, as often as they stand there; further inside they stay. Absolute paths, and all
/// paths when the current folder is gone, come back as they are.
std::string makeAbsolute(std::string_view path);

/// For a Lua text in quotes: a single backslash is doubled, a run of two or more is kept.
std::string escapeForLua(std::string_view text);

/// The file that `path` means on a system that tells upper from lower case: the path itself if there is such a file,
/// then the path with native separators, then the first match, in byte order, when each folder on the way is searched
/// without regard to letter case. Empty if there is none; a folder is no file. Reads folders: not for inner loops.
std::string findFileIgnoringCase(std::string_view path);

/// The folder of the running program, with a separator at its end; empty if the system doesn't tell.
std::string executableFolder();

} // namespace nalt
