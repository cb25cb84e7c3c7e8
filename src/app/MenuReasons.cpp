#include "app/MenuReasons.h"

#include "app/GuiWidgets.h"

#include <FL/Fl.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>
#include <FL/fl_draw.H>

#include <map>

namespace nalt {

namespace {

/// Behind the types of tab labels and of the pop-up menu.
constexpr auto type = static_cast<Fl_Labeltype>(FL_FREE_LABELTYPE + 2);
constexpr double checkInterval = 0.05; // seconds

/// Where an entry was drawn last, in pixels of the screen.
struct Place {
  const Fl_Window* window; ///< of its menu, maybe gone by now
  int left;
  int right;
  int top;
  int bottom;
};

std::string (*reasonFor)(const char* label) = nullptr;
std::map<const char*, Place> places; ///< of the entries of menus that are or were open
std::string textBefore;              ///< of the status line
std::string shown;                   ///< the reason that stands there, empty for none

/// Menus come and go where others were; one that is still there covers what it covered.
bool isOpen(const Place& place)
{
  for (const Fl_Window* window = Fl::first_window(); window; window = Fl::next_window(window))
    if (window == place.window) return window->x_root() == place.left && window->x_root() + window->w() == place.right;
  return false;
}

std::string reasonBelowMouse()
{
  int x = 0;
  int y = 0;
  Fl::get_mouse(x, y);
  for (const auto& [label, place] : places)
    if (x >= place.left && x < place.right && y >= place.top && y < place.bottom && isOpen(place))
      return reasonFor(label);
  return "";
}

void check(void*)
{
  Fl_Output& line = *GuiWidgets::get().statusLine;
  const std::string reason = Fl::grab() ? reasonBelowMouse() : "";
  const bool isOurs = line.value() == (shown.empty() ? textBefore : shown); // what was chosen may have said something
  if (reason != shown && isOurs) line.value(reason.empty() ? textBefore.c_str() : reason.c_str());
  shown = reason;
  if (Fl::grab())
    Fl::repeat_timeout(checkInterval, check);
  else
    places.clear();
}

void draw(const Fl_Label* label, int x, int y, int w, int h, Fl_Align align)
{
  fl_font(label->font, label->size);
  fl_color(label->color);
  fl_draw(label->value, x, y, w, h, align, label->image);
  const Fl_Window* window = Fl_Window::current();
  if (!Fl::grab() || !window) return; // the bar itself
  const int top = window->y_root() + y;
  places[label->value] = {window, window->x_root(), window->x_root() + window->w(), top, top + h};
  if (Fl::has_timeout(check)) return;
  textBefore = GuiWidgets::get().statusLine->value();
  Fl::add_timeout(checkInterval, check);
}

void measure(const Fl_Label* label, int& w, int& h)
{
  fl_font(label->font, label->size);
  fl_measure(label->value, w, h);
}

} // namespace

Fl_Labeltype labelWithReason(std::string (*whyNot)(const char* label))
{
  reasonFor = whyNot;
  Fl::set_labeltype(type, draw, measure);
  return type;
}

} // namespace nalt
