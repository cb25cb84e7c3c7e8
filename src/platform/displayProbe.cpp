#include "platform/Display.h"

/// Exit status 0 when a window could be opened, else 1.
int main()
{
  return nalt::displayAvailable() ? 0 : 1;
}
