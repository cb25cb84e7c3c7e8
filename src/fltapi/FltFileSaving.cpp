#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/io/FileOutput.h"

namespace fltapi {

bool FltFile::save(const std::string& path, int version) const
{
  if (path.empty()) return false;
  if (!header_) {
    complain("No header record found while writing " + path + ".");
    return false;
  }
  FileOutput output(*this, path, version);
  if (!output.isOpen()) {
    complain("Failed opening file " + path + " for writing.");
    return false;
  }
  if (!writeRecords(output) || !output.commit()) {
    complain("Failed writing records in file " + path + ".");
    return false;
  }
  return true;
}

bool FltFile::writeRecords(FileOutput& output) const
{
  output.palette().addBelow(*header_);
  for (const auto& [number, definition] : instanceDefinitions_)
    output.palette().addBelow(*definition);
  return output.palette().fits() && header_->write(output);
}

} // namespace fltapi
