#include "core/dialogs/NumberDialog.h"

#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogWindow.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Input.H>
#include <FL/fl_draw.H>

#include <algorithm>

namespace nalt {

namespace {

constexpr int fieldWidth = 120;

int widthOf(const char* text)
{
  fl_font(FL_HELVETICA, dialog::textSize);
  int w = 0;
  int h = 0;
  fl_measure(text, w, h, /*draw_symbols=*/0);
  return w;
}

class NumberDialog : public Fl_Double_Window {
public:
  explicit NumberDialog(const NumberQuestion& question) : Fl_Double_Window(0, 0, question.title), question_(question)
  {
    using namespace dialog;
    const int labelWidth = widthOf(question.label) + 4;
    const int buttons = 2 * buttonWidth + buttonGap;
    const int w = 2 * margin + std::max(labelWidth + fieldGap + fieldWidth, buttons);
    const int h = 2 * margin + rowHeight + groupGap + buttonHeight;
    size(w, h);
    auto* label = new Fl_Box(margin, margin, labelWidth, rowHeight, question.label);
    label->labelsize(textSize);
    label->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT);
    const int x = margin + labelWidth + fieldGap;
    field_ = new Fl_Input(x, margin, w - margin - x, rowHeight);
    field_->textsize(textSize);
    field_->value(textOfNumber(question.value).c_str());
    addDialogButtons(w, h, actions_,
                     {{"OK", [this] { accept(); }, /*isDefault=*/true}, {"Cancel", [this] { hide(); }}});
    end();
    set_modal();
  }

  std::optional<double> run()
  {
    placeOver(*this, Fl::first_window());
    selectText();
    show();
    while (shown())
      Fl::wait();
    return answer_;
  }

private:
  void selectText()
  {
    field_->take_focus();
    field_->position(field_->size(), 0);
  }

  void accept()
  {
    const auto number = numberFromText(field_->value());
    if (number && (!question_.accepts || question_.accepts(*number))) {
      answer_ = number;
      hide();
      return;
    }
    Shell::get().warning(question_.complaint);
    selectText();
  }

  const NumberQuestion& question_;
  Actions actions_;
  Fl_Input* field_ = nullptr;
  std::optional<double> answer_;
};

} // namespace

std::optional<double> askNumber(const NumberQuestion& question)
{
  if (Shell::get().quiet()) return std::nullopt;
  Fl_Group* const before = Fl_Group::current();
  Fl_Group::current(nullptr);
  NumberDialog dialog(question);
  Fl_Group::current(before);
  return dialog.run();
}

} // namespace nalt
