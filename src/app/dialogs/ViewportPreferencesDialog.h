#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"
#include "core/dialogs/Form.h"
#include "scene/view/ViewportPreferences.h"

namespace nalt {

class Gui;
class Viewport;

/// The values of one viewport: of the one that it was opened for as long as that is there, else of the active one. With
/// no viewport at all it shows what new ones start with.
class ViewportPreferencesDialog : public DialogWindow {
public:
  explicit ViewportPreferencesDialog(Gui& gui);

  void openFor(Viewport* viewport);
  /// Viewports came or went, or another one is active.
  void follow();

protected:
  void opening() override {}

private:
  void addTabs();
  void showPreset(int place);
  void showValues();
  bool apply();
  void save();
  Viewport* target() const;

  Gui& gui_;
  Viewport* viewport_ = nullptr; ///< only compared with those that are there until it is found among them
  ViewportPreferences edited_;
  Actions actions_;
  Form form_;
};

} // namespace nalt
