#pragma once

#include "fltapi/io/Output.h"
#include "platform/AtomicFile.h"

namespace fltapi {

/// Writes a file that takes the place of the one at `path` only when it is whole.
class FileOutput : public Output {
public:
  FileOutput(const FltFile& file, const std::string& path, int version);

  bool isOpen() const { return target_.ok(); }
  /// Puts the new file in the place of the old one. Without it the old one stays.
  bool commit();

protected:
  bool put(const std::byte* bytes, std::size_t count) override;

private:
  nalt::AtomicFile target_;
  std::uint64_t writtenBytes_ = 0;
  std::uint64_t totalBytes_;
};

} // namespace fltapi
