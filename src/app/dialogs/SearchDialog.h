#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"

#include <string>

class Fl_Box;
class Fl_Check_Button;
class Fl_Input;

namespace nalt {

class Gui;
class Model;

/// A dialog that selects what fits a text, again and again, and says what it found.
class SearchDialog : public DialogWindow {
public:
  SearchDialog(Gui& gui, const char* title, const char* label, const char* tooltip);

protected:
  void opening() override;
  /// Adds a switch below the field.
  Fl_Check_Button* addCheck(const char* label, const char* tooltip, bool on);
  /// Adds the lower part, after the last switch.
  void finish();

  std::string text() const;
  /// Selects in `model` what fits `text()`, and gives what to tell the user.
  virtual std::string select(Model& model) = 0;

private:
  void run();

  Gui& gui_;
  Actions actions_;
  Fl_Input* field_;
  Fl_Box* result_ = nullptr;
  int bottom_;
};

} // namespace nalt
