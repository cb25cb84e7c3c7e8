#include "app/dialogs/ViewportPreferencesDialog.h"

#include "app/ActiveViewport.h"
#include "app/Gui.h"
#include "app/Session.h"
#include "app/dialogs/ApplyPreferences.h"
#include "app/dialogs/PreferencesTable.h"
#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"
#include "scene/view/Viewport.h"

#include <FL/Fl_Tabs.H>

#include <algorithm>

namespace nalt {

namespace {

using namespace dialog;

constexpr int formWidth = 340;
constexpr int tabHeight = 26;

bool isThere(const Gui& gui, const Viewport* wanted)
{
  for (int n = 0; n < gui.modelCount(); ++n)
    for (const VPBase* panel : gui.modelAt(n)->viewports())
      if (dynamic_cast<const Viewport*>(panel) == wanted) return true;
  return false;
}

} // namespace

ViewportPreferencesDialog::ViewportPreferencesDialog(Gui& gui)
    : DialogWindow(formWidth + 4 * margin, 0, "Viewport Preferences"), gui_(gui)
{
  addTabs();
  addDialogButtons(w(), h(), actions_,
                   {{"&Apply", [this] { apply(); }, /*isDefault=*/true, "Use these values in the viewport"},
                    {"&Save", [this] { save(); }, false, "Apply, use for new viewports, and write the settings file"},
                    {"&Close", [this] { hide(); }, false, "Leave the viewport as it is"}});
  end();
  form_.onButton = [this](const FormRow&, int place) { showPreset(place); };
}

void ViewportPreferencesDialog::addTabs()
{
  auto* tabs = new Fl_Tabs(margin, margin, w() - 2 * margin, tabHeight);
  tabs->labelsize(textSize);
  tabs->selection_color(fl_color_average(FL_BACKGROUND_COLOR, FL_WHITE, 0.3F));
  const int top = margin + tabHeight;
  int bottom = top;
  for (const ViewportPreferencesTab& tab : viewportPreferencesTabs()) {
    auto* page = new Fl_Group(tabs->x(), top, tabs->w(), 0, tab.title);
    page->labelsize(textSize);
    int y = top + margin;
    for (const auto& group : groupsOf<ViewportPreferences>(tab.rows))
      y = form_.addGroup(group, edited_, page->x() + margin, y, formWidth) + groupGap;
    page->end();
    bottom = std::max(bottom, y);
  }
  tabs->end();
  // All pages are as high as the highest.
  tabs->resizable(nullptr);
  tabs->size(tabs->w(), bottom - tabs->y());
  for (int n = 0; n < tabs->children(); ++n) {
    auto* page = static_cast<Fl_Group*>(tabs->child(n));
    page->resizable(nullptr);
    page->size(page->w(), bottom - top);
    if (n > 0) page->hide();
  }
  size(w(), bottom + groupGap + buttonHeight + margin);
}

Viewport* ViewportPreferencesDialog::target() const
{
  return viewport_ && isThere(gui_, viewport_) ? viewport_ : activeViewport(gui_);
}

void ViewportPreferencesDialog::openFor(Viewport* viewport)
{
  viewport_ = viewport;
  showValues();
  open();
}

void ViewportPreferencesDialog::follow()
{
  if (!shown() || !viewport_ || isThere(gui_, viewport_)) return;
  viewport_ = nullptr;
  showValues();
}

void ViewportPreferencesDialog::showValues()
{
  viewport_ = target();
  edited_ = viewport_ ? viewport_->preferences() : gui_.viewportPreferences();
  form_.show();
}

void ViewportPreferencesDialog::showPreset(int place)
{
  const BackgroundPreset& preset = backgroundPresets()[static_cast<std::size_t>(place)];
  if (!form_.take()) return;
  edited_.backgroundTop = preset.top;
  edited_.backgroundBottom = preset.bottom;
  form_.show();
}

bool ViewportPreferencesDialog::apply()
{
  if (!form_.take()) return false;
  if (const std::string wrong = contradictionIn(edited_); !wrong.empty()) {
    gui_.warning(wrong);
    return false;
  }
  viewport_ = target();
  if (viewport_)
    applyViewportPreferences(*viewport_, edited_);
  else
    gui_.setViewportPreferences(edited_);
  gui_.updateWidgets();
  return true;
}

void ViewportPreferencesDialog::save()
{
  if (!apply()) return;
  gui_.setViewportPreferences(edited_);
  saveSession(gui_);
}

} // namespace nalt
