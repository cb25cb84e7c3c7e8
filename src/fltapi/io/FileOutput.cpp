#include "fltapi/io/FileOutput.h"

#include "fltapi/FltFile.h"

namespace fltapi {

FileOutput::FileOutput(const FltFile& file, const std::string& path, int version)
    : Output(file, version), target_(path), totalBytes_(file.totalBytes())
{}

bool FileOutput::put(const std::byte* bytes, std::size_t count)
{
  writtenBytes_ += count;
  file().reportWriting(writtenBytes_, totalBytes_ + palette().length());
  return target_.write(bytes, count);
}

bool FileOutput::commit()
{
  return target_.commit();
}

} // namespace fltapi
