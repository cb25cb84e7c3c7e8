#pragma once

#include "core/Preferences.h"
#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"
#include "core/dialogs/Form.h"

namespace nalt {

class Gui;

/// How fast the mouse moves the camera. What is changed here counts at once.
class SensitivityDialog : public DialogWindow {
public:
  explicit SensitivityDialog(Gui& gui);

  /// Preferences changed elsewhere: shows them as they are now.
  void follow();

protected:
  void opening() override { follow(); }

private:
  void apply();
  void reset();

  Gui& gui_;
  Preferences edited_;
  Actions actions_;
  Form form_;
};

} // namespace nalt
