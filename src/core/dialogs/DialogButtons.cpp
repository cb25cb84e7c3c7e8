#include "core/dialogs/DialogButtons.h"

#include "core/dialogs/DialogStyle.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Return_Button.H>

#include <cctype>
#include <cstring>
#include <utility>

namespace nalt {

namespace {

/// The letter behind "&" with Alt, 0 without one. FLTK would take the letter alone too, and press a button by a slip.
int mnemonicOf(const char* label)
{
  const char* mark = std::strchr(label, '&');
  return mark && mark[1] ? FL_ALT | std::tolower(static_cast<unsigned char>(mark[1])) : 0;
}

} // namespace

void Actions::connect(Fl_Widget& widget, std::function<void()> run)
{
  runs_.push_back(std::move(run));
  widget.callback([](Fl_Widget*, void* data) { (*static_cast<std::function<void()>*>(data))(); }, &runs_.back());
}

void setActive(Fl_Widget& widget, bool active)
{
  if (active)
    widget.activate();
  else
    widget.deactivate();
}

std::vector<Fl_Button*> addDialogButtons(int width, int height, Actions& actions, std::vector<DialogButton> buttons)
{
  const int count = static_cast<int>(buttons.size());
  const int y = height - dialog::margin - dialog::buttonHeight;
  int x = width - dialog::margin - count * dialog::buttonWidth - (count - 1) * dialog::buttonGap;
  std::vector<Fl_Button*> made;
  for (DialogButton& button : buttons) {
    Fl_Button* widget = button.isDefault
                            ? new Fl_Return_Button(x, y, dialog::buttonWidth, dialog::buttonHeight, button.label)
                            : new Fl_Button(x, y, dialog::buttonWidth, dialog::buttonHeight, button.label);
    widget->labelsize(dialog::textSize);
    widget->tooltip(button.tooltip);
    widget->shortcut(mnemonicOf(button.label));
    actions.connect(*widget, std::move(button.run));
    made.push_back(widget);
    x += dialog::buttonWidth + dialog::buttonGap;
  }
  return made;
}

} // namespace nalt
