#include "scene/view/picking/MouseModifiers.h"

#include <FL/Fl.H>

namespace nalt {

MouseModifiers MouseModifiers::now()
{
  return {.shift = Fl::event_shift() != 0, .ctrl = Fl::event_ctrl() != 0, .alt = Fl::event_alt() != 0};
}

} // namespace nalt
