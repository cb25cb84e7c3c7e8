#include "fltapi/nodes/ExternalRecord.h"

#include "fltapi/nodes/HeaderRecord.h"

namespace fltapi {

void ExternalRecord::show(FltFile* file, const std::string& resolvedPath)
{
  removePrimaryChildren();
  referencedFile_ = file;
  resolvedPath_ = resolvedPath;
  if (file && file->header()) addChild(file->header(), /*append=*/true);
}

} // namespace fltapi
