#include "app/dialogs/SearchDialog.h"

#include "app/Gui.h"
#include "core/WaitCursor.h"
#include "core/dialogs/CheckBox.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogText.h"
#include "core/dialogs/Form.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Input.H>

namespace nalt {

namespace {

using namespace dialog;

constexpr int width = 400;

} // namespace

SearchDialog::SearchDialog(Gui& gui, const char* title, const char* label, const char* tooltip)
    : DialogWindow(width, 0, title), gui_(gui)
{
  const int labelWidth = dialogTextWidth(label) + 4;
  addDialogText(margin, margin, labelWidth, label);
  const int x = margin + labelWidth + fieldGap;
  field_ = new Fl_Input(x, margin, width - margin - x, rowHeight);
  field_->textsize(textSize);
  field_->tooltip(tooltip);
  bottom_ = margin + rowHeight + rowGap;
}

Fl_Check_Button* SearchDialog::addCheck(const char* label, const char* tooltip, bool on)
{
  auto* check = new CheckBox(field_->x(), bottom_, field_->w(), rowHeight, label);
  check->labelsize(textSize);
  check->tooltip(tooltip);
  check->value(on ? 1 : 0);
  bottom_ += rowHeight + rowGap;
  return check;
}

void SearchDialog::finish()
{
  size(width, bottom_ + groupGap + buttonHeight + margin);
  const auto buttons = addDialogButtons(
      w(), h(), actions_, {{"&Select", [this] { run(); }, /*isDefault=*/true}, {"&Close", [this] { hide(); }}});
  const Fl_Button* first = buttons.front();
  result_ = addDialogText(margin, first->y(), first->x() - margin - fieldGap, "");
  result_->size(result_->w(), buttonHeight);
  end();
}

void SearchDialog::opening()
{
  result_->copy_label("");
  field_->position(field_->size(), 0);
  field_->take_focus();
}

std::string SearchDialog::text() const
{
  return field_->value();
}

void SearchDialog::run()
{
  Model* model = gui_.currentModel();
  std::string said = "No model is open.";
  if (model && gui_.files().busy()) {
    said = "A file operation is running.";
  } else if (model) {
    const WaitCursor cursor;
    said = select(*model);
  }
  result_->copy_label(said.c_str());
  gui_.updateWidgets();
}

} // namespace nalt
