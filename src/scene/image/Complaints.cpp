#include "scene/image/Complaints.h"

#include "fltapi/Record.h"

#include <osg/Notify>

namespace nalt {

void Complaints::tell(const fltapi::Record& record, const char* text)
{
  if (told_.insert(record.serial()).second) OSG_WARN << text << std::endl;
}

} // namespace nalt
