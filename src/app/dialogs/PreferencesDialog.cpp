#include "app/dialogs/PreferencesDialog.h"

#include "app/Gui.h"
#include "app/Session.h"
#include "app/dialogs/ApplyPreferences.h"
#include "app/dialogs/Dialogs.h"
#include "app/dialogs/PreferencesTable.h"
#include "core/dialogs/DialogStyle.h"

#include <algorithm>

namespace nalt {

namespace {

using namespace dialog;

constexpr int columnWidth = 330;
constexpr int columnGap = 28;

} // namespace

PreferencesDialog::PreferencesDialog(Gui& gui) : DialogWindow(0, 0, "Preferences"), gui_(gui)
{
  // The last group is as long as the others together.
  const auto groups = groupsOf<Preferences>(preferencesTable());
  int y = margin;
  for (std::size_t n = 0; n + 1 < groups.size(); ++n)
    y = form_.addGroup(groups[n], edited_, margin, y, columnWidth) + groupGap;
  const int right = margin + columnWidth + columnGap;
  const int rightEnd = form_.addGroup(groups.back(), edited_, right, margin, columnWidth) + groupGap;
  size(right + columnWidth + margin, std::max(y, rightEnd) + buttonHeight + margin);
  addDialogButtons(w(), h(), actions_,
                   {{"&Close", [this] { hide(); }, false, "Leave everything as it is"},
                    {"&Save", [this] { save(); }, false, "Apply, and write the settings file"},
                    {"&Apply", [this] { apply(); }, /*isDefault=*/true, "Use these values from now on"},
                    {"&Defaults", [this] { showDefaults(); }, false, "Show the values of a new installation"}});
  end();
  form_.onButton = [this](const FormRow&, int) { gui_.dialogs().openViewportPreferences(); };
}

void PreferencesDialog::opening()
{
  edited_ = Preferences::get();
  form_.show();
}

void PreferencesDialog::follow()
{
  edited_ = Preferences::get();
  form_.follow();
}

bool PreferencesDialog::apply()
{
  if (!form_.take()) return false;
  edited_.relativeTexturePaths = Preferences::get().relativeTexturePaths; // has its switch elsewhere
  applyPreferences(gui_, edited_);
  gui_.dialogs().preferencesChanged();
  return true;
}

void PreferencesDialog::save()
{
  if (apply()) saveSession(gui_);
}

void PreferencesDialog::showDefaults()
{
  edited_ = Preferences();
  form_.show();
}

} // namespace nalt
