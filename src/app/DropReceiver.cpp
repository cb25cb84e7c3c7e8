#include "app/DropReceiver.h"

#include "core/Shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Widget.H>

namespace nalt {

namespace {

/// Never shown; FLTK sends the text of a drop to the widget that it takes for the one below the mouse.
class Receiver : public Fl_Widget {
public:
  Receiver() : Fl_Widget(0, 0, 0, 0) {}
  void draw() override {}
  int handle(int event) override
  {
    if (event != FL_PASTE) return 0;
    Shell::get().openDropped(Fl::event_text() ? Fl::event_text() : "");
    return 1;
  }
};

int handleDrop(int event)
{
  static Receiver receiver;
  switch (event) {
  case FL_DND_ENTER:
  case FL_DND_DRAG:
  case FL_DND_LEAVE:
    return 1;
  case FL_DND_RELEASE:
    Fl::belowmouse(&receiver);
    return 1;
  default:
    return 0;
  }
}

} // namespace

void installDropReceiver()
{
  Fl::add_handler(handleDrop);
}

} // namespace nalt
