#include "core/dialogs/DialogText.h"

#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"

#include <FL/Fl_Box.H>

namespace nalt {

Fl_Box* addDialogText(int x, int y, int w, const char* text, Fl_Align align, bool plain)
{
  auto* box = new Fl_Box(x, y, w, dialog::rowHeight, text);
  box->labelsize(dialog::textSize);
  if (plain) box->labeltype(plainLabel());
  box->align(align | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
  return box;
}

} // namespace nalt
