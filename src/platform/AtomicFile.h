#pragma once

#include "platform/Descriptor.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nalt {

/// Writes a file so that, whatever goes wrong, the old content or the new one stands under its name, and never a part.
///
/// What is written goes to a hidden file in the target's folder; `commit` brings it to the disk and renames it over the
/// target. Without a successful `commit` the target stays as it was and the hidden file goes away.
///
/// - The target's permissions (with access list, and owner and group as far as the user may set them) are kept; a new
///   file gets what the umask leaves.
/// - Symbolic links stay: the file they lead to is replaced, or made if it is missing.
/// - A write-protected target is an error although its folder may allow to replace it.
/// - Other hard links to the target keep the old content.
/// - Devices and pipes are written directly: they can't be replaced, and nothing about them can be taken back. A pipe
/// that
///   nobody reads is an error; nothing waits for a reader.
///
/// One thread at a time may use an object; different objects don't touch each other.
class AtomicFile {
public:
  /// Opens the hidden file. Trouble is told by `ok`, `write` and `commit` alike.
  explicit AtomicFile(const std::string& path);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Appends bytes. After one failure all further writes, and the commit, fail.
  bool write(const void* data, std::size_t size);

  /// Puts what was written in the target's place. True only once, and only if all of it is safe on the disk. To be
  /// called last: afterwards nothing can be written.
  bool commit();

  bool ok() const { return error_ == 0; }
  /// The system's text for the first failure, such as "No space left on device"; empty if there was none.
  std::string errorText() const;

private:
  void openDirectly(const std::string& path);
  void openBeside(const std::string& target);
  void createTemporary(unsigned mode);
  bool writeThrough(const char* data, std::size_t size);
  bool flush();
  bool synchronize();
  bool replaceTarget();
  void discard();
  bool fail(int error);

  Descriptor folder_;         ///< Holds on to the target's folder even if the current folder changes meanwhile.
  Descriptor file_;           ///< Open until committed or discarded.
  std::string targetName_;    ///< Within the folder.
  std::string temporaryName_; ///< Within the folder; empty if written directly, committed or discarded.
  std::vector<char> buffer_;
  int error_ = 0; ///< The errno of the first failure.
};

} // namespace nalt
