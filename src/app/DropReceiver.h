#pragma once

class Fl_Widget;

namespace nalt {

/// From now on files may be dropped anywhere on the program's windows: `receiver` is pasted their names, and must stay
/// as long as the program does.
void installDropReceiver(Fl_Widget& receiver);

} // namespace nalt
