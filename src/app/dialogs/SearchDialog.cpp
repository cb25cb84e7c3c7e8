#include "app/dialogs/SearchDialog.h"

#include "app/Gui.h"
#include "app/dialogs/SearchText.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/WaitCursor.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/Form.h"
#include "core/selection/SelectOperations.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
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
  auto* name = new Fl_Box(margin, margin, labelWidth, rowHeight, label);
  name->labelsize(textSize);
  name->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT);
  const int x = margin + labelWidth + fieldGap;
  field_ = new Fl_Input(x, margin, width - margin - x, rowHeight);
  field_->textsize(textSize);
  field_->tooltip(tooltip);
  bottom_ = margin + rowHeight + rowGap;
}

Fl_Check_Button* SearchDialog::addCheck(const char* label, const char* tooltip, bool on)
{
  auto* check = new Fl_Check_Button(field_->x(), bottom_, field_->w(), rowHeight, label);
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
  result_ = new Fl_Box(margin, first->y(), first->x() - margin - fieldGap, buttonHeight);
  result_->labelsize(textSize);
  result_->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT | FL_ALIGN_CLIP);
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

SelectByNameDialog::SelectByNameDialog(Gui& gui)
    : SearchDialog(gui, "Select By Name", "Names:", "Names with blanks between them; a name in quotes may hold blanks")
{
  caseSensitive_ = addCheck("Case Sensitive", "Capital and small letters differ", false);
  addToSelection_ = addCheck("Add To Selection", "Keep what is selected now", false);
  finish();
}

std::string SelectByNameDialog::select(Model& model)
{
  const NameSearch search = {namesIn(text()), caseSensitive_->value() != 0, addToSelection_->value() != 0};
  if (search.names.empty()) return "Enter at least one name.";
  if (!selectByName(model, search, /*undoable=*/true)) return "Nothing has that name.";
  return selectedInWords(model.selections().size());
}

SelectByVerticesDialog::SelectByVerticesDialog(Gui& gui)
    : SearchDialog(gui, "Select Polygons By Number Of Vertices", "Number Of Vertices:", "How many corners they have")
{
  fromCurrent_ = addCheck("Select From Current", "Only among what is selected now, if anything is", true);
  finish();
}

std::string SelectByVerticesDialog::select(Model& model)
{
  const auto count = wholeNumberFromText(text());
  if (!count || *count < 0) return "Enter a whole number.";
  if (!selectByNumberOfVertices(model, *count, fromCurrent_->value() != 0, /*undoable=*/true))
    return "No polygon has so many.";
  return selectedInWords(model.selections().size());
}

} // namespace nalt
