#include "app/DropReceiver.h"

#include <FL/Fl.H>
#include <FL/Fl_Widget.H>

namespace nalt {

namespace {

Fl_Widget* theReceiver = nullptr;

int handleDrop(int event)
{
  switch (event) {
  case FL_DND_ENTER:
  case FL_DND_DRAG:
  case FL_DND_LEAVE:
    return 1;
  case FL_DND_RELEASE:
    Fl::belowmouse(theReceiver); // FLTK sends the text to the widget that it takes for the one below the mouse
    return 1;
  default:
    return 0;
  }
}

} // namespace

void installDropReceiver(Fl_Widget& receiver)
{
  theReceiver = &receiver;
  Fl::add_handler(handleDrop);
}

} // namespace nalt
