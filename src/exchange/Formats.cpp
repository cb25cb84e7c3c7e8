#include "exchange/Formats.h"

#include "exchange/xpm/ReaderWriterXPM.h"

#include <osgDB/Registry>

namespace nalt {

void registerFormats()
{
  osgDB::Registry::instance()->addReaderWriter(new ReaderWriterXPM);
}

} // namespace nalt
