#include "platform/Memory.h"

#include <malloc.h>

namespace nalt {

void giveBackFreedMemory()
{
  malloc_trim(0);
}

} // namespace nalt
