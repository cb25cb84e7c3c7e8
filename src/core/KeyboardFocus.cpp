#include "core/KeyboardFocus.h"

#include <FL/Fl.H>
#include <FL/Fl_Input_.H>
#include <FL/Fl_Text_Editor.H>
#include <FL/Fl_Window.H>

namespace nalt {

bool isTyping()
{
  const auto* input = dynamic_cast<const Fl_Input_*>(Fl::focus());
  return (input && !input->readonly()) || dynamic_cast<const Fl_Text_Editor*>(Fl::focus());
}

void giveKeysTo(Fl_Widget& widget)
{
  const Fl_Window* window = widget.top_window();
  const Fl_Window* modal = Fl::modal();
  const Fl_Widget* focus = Fl::focus();
  if ((!modal || modal == window) && (!focus || focus->top_window() == window)) widget.take_focus();
}

} // namespace nalt
