#include "app/MenuKeys.h"

#include "app/GuiWidgets.h"

#include <FL/Fl.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Window.H>

#include <array>
#include <deque>
#include <string>

namespace nalt {

namespace {

constexpr double nextTurn = 0.001; // seconds; none at all would not let the turn end

/// A key as FLTK describes it while it is handled.
struct Key {
  int symbol;
  int original;
  int state;
  std::string text;

  static Key current()
  {
    return {Fl::event_key(), Fl::event_original_key(), Fl::event_state(),
            std::string(Fl::event_text(), static_cast<std::size_t>(Fl::event_length()))};
  }
};

std::deque<Key> waiting; ///< in the order in which they were pressed
bool hadTurn = false;    ///< one was handled in this turn of the event loop

/// Whether a title of the menu bar is opened by that letter, written as it is in the title.
bool opensMenu(char letter)
{
  const Fl_Menu_Bar* bar = GuiWidgets::get().menuBar;
  const Fl_Menu_Item* item = bar ? bar->menu() : nullptr;
  for (item = item ? item->first() : nullptr; item && item->label(); item = item->next())
    if (Fl_Widget::label_shortcut(item->label()) == static_cast<unsigned char>(letter)) return true;
  return false;
}

/// The text as FLTK is to look for it; FLTK turns its case round by itself when nothing has it.
std::string soughtText(const Key& key)
{
  const char letter = key.text.size() == 1 ? key.text.front() : '\0';
  const bool isSmall = letter >= 'a' && letter <= 'z';
  if (!isSmall || (key.state & FL_ALT) != 0 || !opensMenu(letter)) return key.text;
  return {static_cast<char>(letter - 'a' + 'A')};
}

int send(const Key& key, Fl_Window* window)
{
  std::string text = soughtText(key);
  Fl::e_keysym = key.symbol;
  Fl::e_original_keysym = key.original;
  Fl::e_state = key.state;
  Fl::e_text = text.data();
  Fl::e_length = static_cast<int>(text.size());
  const int used = Fl::handle_(FL_KEYDOWN, window);
  static std::array<char, 1> none = {'\0'};
  Fl::e_text = none.data();
  Fl::e_length = 0;
  return used;
}

void takeTurn(void*)
{
  hadTurn = false;
  if (!Fl::grab()) waiting.clear(); // the menu that they were meant for is gone
  if (waiting.empty()) return;
  const Key key = waiting.front();
  waiting.pop_front();
  hadTurn = true;
  Fl::add_timeout(nextTurn, takeTurn);
  send(key, Fl::grab());
}

} // namespace

int sendToOpenMenu(Fl_Window* window)
{
  const Key key = Key::current();
  if (hadTurn) {
    waiting.push_back(key);
    return 1;
  }
  hadTurn = true;
  Fl::add_timeout(nextTurn, takeTurn);
  return send(key, window);
}

} // namespace nalt
