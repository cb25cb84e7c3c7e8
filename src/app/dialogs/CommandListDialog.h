#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"

class Fl_Hold_Browser;

namespace nalt {

class Gui;

/// What was done to the current model, with what can be done again above it.
class CommandListDialog : public DialogWindow {
public:
  explicit CommandListDialog(Gui& gui);

  /// The history changed, or another model is current.
  void follow();
  int handle(int event) override;

protected:
  void opening() override { fill(); }

private:
  void fill();
  void picked();
  void copySelected() const;

  Gui& gui_;
  Actions actions_;
  Fl_Hold_Browser* browser_;
};

} // namespace nalt
