#include "core/dialogs/Form.h"

#include "core/Shell.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/FormField.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Input.H>
#include <FL/fl_draw.H>

#include <algorithm>

namespace nalt {

namespace {

using namespace dialog;

constexpr int indent = 10; // of what stands below a group's title
constexpr int smallGap = 6;
constexpr int buttonExtra = 24; // beside the label of a button in a row

Fl_Box* addText(int x, int y, int w, const char* text, Fl_Align align)
{
  auto* box = new Fl_Box(x, y, w, rowHeight, text);
  box->labelsize(textSize);
  box->align(align | FL_ALIGN_INSIDE);
  return box;
}

/// A title with a line behind it.
void addTitle(int x, int y, int w, const char* text)
{
  Fl_Box* title = addText(x, y, w, text, FL_ALIGN_LEFT);
  title->labelfont(FL_HELVETICA_BOLD);
  fl_font(FL_HELVETICA_BOLD, textSize);
  const int textWidth = static_cast<int>(fl_width(text)) + 12;
  title->size(textWidth, rowHeight);
  if (w > textWidth) new Fl_Box(FL_ENGRAVED_FRAME, x + textWidth, y + rowHeight / 2 - 1, w - textWidth, 2, nullptr);
}

/// Whether the label stands in the column in front of the fields; that of a check stands behind it.
bool hasLabelInFront(const FormRow& row)
{
  switch (row.kind) {
  case FormRow::Kind::number:
  case FormRow::Kind::slider:
  case FormRow::Kind::choice:
  case FormRow::Kind::color:
    return !row.joined;
  default:
    return false;
  }
}

} // namespace

int dialogTextWidth(const char* text)
{
  fl_font(FL_HELVETICA, textSize);
  int w = 0;
  int h = 0;
  fl_measure(text, w, h, /*draw_symbols=*/0);
  return w;
}

Form::Form() = default;
Form::~Form() = default;

/// The column of labels is as wide as the widest one up to the next heading.
int Form::labelWidthFrom(const std::vector<Line>& lines, std::size_t first)
{
  int width = 0;
  for (std::size_t i = first; i < lines.size() && lines[i].row->kind != FormRow::Kind::heading; ++i)
    if (hasLabelInFront(*lines[i].row)) width = std::max(width, dialogTextWidth(lines[i].row->label) + 2);
  return width;
}

int Form::addLines(const std::vector<Line>& lines, int x, int y, int w)
{
  const int left = x + indent;
  int labelWidth = labelWidthFrom(lines, 0);
  int fieldX = labelWidth > 0 ? left + labelWidth + fieldGap : left;
  int next = left; // where a field on the same line would go
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const FormRow& row = *lines[i].row;
    // A slider leaves room for what stands behind it.
    const bool sharesLine = i + 1 < lines.size() && lines[i + 1].row->joined;
    const int reserved =
        sharesLine && row.kind == FormRow::Kind::slider ? dialogTextWidth(lines[i + 1].row->label) + 34 : 0;
    switch (row.kind) {
    case FormRow::Kind::group:
      addTitle(x, y, w, row.label);
      break;
    case FormRow::Kind::heading:
      addText(left, y, w - indent, row.label, FL_ALIGN_LEFT);
      labelWidth = labelWidthFrom(lines, i + 1);
      fieldX = left + labelWidth + fieldGap;
      break;
    case FormRow::Kind::buttons:
      addButtons(row, {fieldX, y, x + w - fieldX});
      break;
    default:
      if (row.joined) {
        y -= rowHeight + rowGap;
        if (row.kind != FormRow::Kind::check) {
          addText(next, y, dialogTextWidth(row.label), row.label, FL_ALIGN_CENTER);
          next += dialogTextWidth(row.label) + smallGap;
        }
        next = addField(lines[i], {next, y, x + w - next});
      } else if (row.kind == FormRow::Kind::check) {
        next = addField(lines[i], {left, y, w - indent});
      } else {
        addText(left, y, labelWidth, row.label, FL_ALIGN_RIGHT);
        next = addField(lines[i], {fieldX, y, x + w - fieldX - reserved});
      }
    }
    y += rowHeight + rowGap;
  }
  return y - rowGap;
}

int Form::addField(const Line& line, const Place& place)
{
  auto field = FormField::make(*line.row, line.value, place.x, place.y, place.w, [this] {
    updateSliders();
    if (onChange) onChange();
  });
  const Fl_Widget& widget = field->widget();
  fields_.push_back(std::move(field));
  return widget.x() + widget.w() + smallGap;
}

void Form::addButtons(const FormRow& row, const Place& place)
{
  int x = place.x;
  for (std::size_t i = 0; i < row.choices.size(); ++i) {
    const int w = dialogTextWidth(row.choices[i]) + buttonExtra;
    auto* button = new Fl_Button(x, place.y, w, rowHeight, row.choices[i]);
    button->labelsize(textSize);
    button->tooltip(row.tooltip);
    actions_.connect(*button, [this, &row, i] {
      if (onButton) onButton(row, static_cast<int>(i));
    });
    x += w + smallGap;
  }
}

void Form::updateSliders()
{
  for (std::size_t i = 0; i + 1 < fields_.size(); ++i) {
    const bool isPair = fields_[i]->row().kind == FormRow::Kind::slider && fields_[i + 1]->row().joined;
    const auto* automatic = isPair ? dynamic_cast<Fl_Check_Button*>(&fields_[i + 1]->widget()) : nullptr;
    if (automatic) setActive(fields_[i]->widget(), automatic->value() == 0);
  }
}

void Form::show()
{
  for (const auto& field : fields_)
    field->present();
  updateSliders();
}

void Form::follow()
{
  for (const auto& field : fields_)
    field->follow();
  updateSliders();
}

bool Form::take()
{
  for (const auto& field : fields_) {
    if (field->isValid()) continue;
    Shell::get().warning(complaintAbout(field->row(), field->value()));
    field->widget().take_focus();
    if (auto* input = dynamic_cast<Fl_Input*>(&field->widget())) input->position(input->size(), 0);
    return false;
  }
  for (const auto& field : fields_)
    field->take();
  return true;
}

} // namespace nalt
