#pragma once

#include <string>
#include <vector>

namespace nalt {

/// One line of the file type list of a dialog.
struct FileFilter {
  const char* description;
  const char* pattern; ///< "*.flt" or "*.{osg,ive}"
};

/// The foreign formats that can be read; the last line is all of them together.
const std::vector<FileFilter>& importFilters();
/// Whether the ending of `path`, in any case, is one of `importFilters`.
bool isImportPath(const std::string& path);

/// The system's file dialog. It starts in the folder that the last one of this object ended in, at first in the folder
/// of `near`. Needs a display.
class FileDialogs {
public:
  /// The files that were chosen, none when the user gave up.
  std::vector<std::string> chooseToRead(const char* title, const std::vector<FileFilter>& filters, std::size_t preset,
                                        const std::string& near);
  /// Empty when the user gave up. The name of `near` is the one proposed.
  std::string chooseToWrite(const char* title, const std::vector<FileFilter>& filters, const std::string& near);

private:
  std::string startFolder(const std::string& near) const;

  std::string folder_;
};

} // namespace nalt
