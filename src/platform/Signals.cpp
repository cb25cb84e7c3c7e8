#include "platform/Signals.h"

#include <csignal>

namespace nalt {

void makeFailedWritesErrors()
{
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace nalt
