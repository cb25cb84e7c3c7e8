#pragma once

#include "core/Preferences.h"
#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"
#include "core/dialogs/Form.h"

namespace nalt {

class Gui;

/// What the user sets once and for all models.
class PreferencesDialog : public DialogWindow {
public:
  explicit PreferencesDialog(Gui& gui);

  /// Preferences changed elsewhere: shows those, and keeps what was entered and not applied yet.
  void follow();

protected:
  void opening() override;

private:
  bool apply();
  void save();
  void showDefaults();

  Gui& gui_;
  Preferences edited_;
  Actions actions_;
  Form form_;
};

} // namespace nalt
