#include "app/AboutDialog.h"

#include "app/ModalWindow.h"
#include "core/drawing/Icons.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Return_Button.H>

namespace nalt {

namespace {

constexpr int iconSize = 64;

Fl_Box* addText(int y, int h, const char* text, int size, Fl_Font font)
{
  auto* box = new Fl_Box(104, y, 250, h, text);
  box->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT | FL_ALIGN_TOP);
  box->labelsize(size);
  box->labelfont(font);
  return box;
}

} // namespace

void showAboutDialog()
{
  ModalWindow window(370, 190, "About Nalt");
  auto* picture = new Fl_Box(20, 20, iconSize, iconSize);
  picture->image(icon("nalt", iconSize));
  addText(20, 24, "Nalt(TM) v" NALT_VERSION, 17, FL_HELVETICA_BOLD);
  addText(54, 90, "Nalt(TM) was developed using:\n- OpenSceneGraph\n- OpenGL\n- FLTK\n- Lua", 12, FL_HELVETICA);
  auto* close = new Fl_Return_Button(266, 150, 84, 26, "OK");
  close->labelsize(12);
  close->callback([](Fl_Widget* widget, void*) { widget->window()->hide(); });
  window.end();
  window.runModal();
}

} // namespace nalt
