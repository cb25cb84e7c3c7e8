#pragma once

namespace nalt {

/// From now on files may be dropped anywhere on the program's windows; the shell opens them.
void installDropReceiver();

} // namespace nalt
