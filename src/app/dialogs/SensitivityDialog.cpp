#include "app/dialogs/SensitivityDialog.h"

#include "app/Gui.h"
#include "app/dialogs/ApplyPreferences.h"
#include "app/dialogs/Dialogs.h"
#include "app/dialogs/PreferencesTable.h"
#include "core/dialogs/DialogStyle.h"

namespace nalt {

namespace {

using namespace dialog;

constexpr int formWidth = 340;

} // namespace

SensitivityDialog::SensitivityDialog(Gui& gui) : DialogWindow(0, 0, "Sensitivity"), gui_(gui)
{
  const int bottom = form_.addGroup<Preferences>(sensitivityTable(), edited_, margin - 10, margin, formWidth);
  size(formWidth + 2 * margin - 10, bottom + groupGap + buttonHeight + margin);
  addDialogButtons(w(), h(), actions_,
                   {{"&Defaults", [this] { reset(); }, false, "The values of a new installation"},
                    {"&Close", [this] { hide(); }, /*isDefault=*/true}});
  end();
  form_.onChange = [this] { apply(); };
}

void SensitivityDialog::follow()
{
  edited_ = Preferences::get();
  form_.show();
}

void SensitivityDialog::apply()
{
  form_.take();
  Preferences wanted = Preferences::get();
  wanted.sensitivity = edited_.sensitivity;
  applyPreferences(gui_, wanted);
  gui_.dialogs().preferencesChanged();
}

void SensitivityDialog::reset()
{
  edited_.sensitivity = Sensitivity();
  form_.show();
  apply();
}

} // namespace nalt
