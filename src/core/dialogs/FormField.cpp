#include "core/dialogs/FormField.h"

#include "core/dialogs/CheckBox.h"
#include "core/dialogs/ColorButton.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/Form.h"

#include <FL/Fl_Choice.H>
#include <FL/Fl_Hor_Value_Slider.H>
#include <FL/Fl_Input.H>

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

using namespace dialog;

constexpr int numberWidth = 84;
constexpr int colorWidth = 44;
constexpr int choiceExtra = 44; // the frame and the arrow of a choice
constexpr int checkExtra = 26;

class CheckField : public FormField {
public:
  CheckField(const FormRow& row, bool& target, int x, int y, int w, std::function<void()> changed)
      : FormField(row, &target, std::move(changed)),
        target_(target),
        button_(new CheckBox(x, y, std::min(w, dialogTextWidth(row.label) + checkExtra), rowHeight, row.label))
  {
    prepare(*button_);
  }
  Fl_Widget& widget() override { return *button_; }
  void show() override { button_->value(target_ ? 1 : 0); }
  void take() override { target_ = button_->value() != 0; }

private:
  bool& target_;
  CheckBox* button_;
};

class NumberField : public FormField {
public:
  NumberField(const FormRow& row, const FieldValue& value, int x, int y, int w, std::function<void()> changed)
      : FormField(row, value, std::move(changed)), input_(new Fl_Input(x, y, std::min(w, numberWidth), rowHeight))
  {
    input_->textsize(textSize);
    input_->when(FL_WHEN_CHANGED);
    prepare(*input_);
  }
  Fl_Widget& widget() override { return *input_; }
  void show() override { input_->value(textOf(value()).c_str()); }
  bool isValid() const override
  {
    // Tried on a copy, so that one bad field leaves all values as they are.
    int whole = 0;
    double number = 0;
    const FieldValue copy = std::holds_alternative<int*>(value()) ? FieldValue(&whole) : FieldValue(&number);
    return setFromText(copy, row().limits, input_->value());
  }
  void take() override { setFromText(value(), row().limits, input_->value()); }

private:
  Fl_Input* input_;
};

class SliderField : public FormField {
public:
  SliderField(const FormRow& row, int& target, int x, int y, int w, std::function<void()> changed)
      : FormField(row, &target, std::move(changed)),
        target_(target),
        slider_(new Fl_Hor_Value_Slider(x, y, w, rowHeight))
  {
    slider_->type(FL_HOR_NICE_SLIDER);
    slider_->bounds(row.limits.least, row.limits.most);
    slider_->step(1);
    slider_->textsize(textSize);
    prepare(*slider_);
  }
  Fl_Widget& widget() override { return *slider_; }
  void show() override { slider_->value(target_); }
  void take() override { target_ = static_cast<int>(std::lround(slider_->value())); }

private:
  int& target_;
  Fl_Hor_Value_Slider* slider_;
};

class ChoiceField : public FormField {
public:
  ChoiceField(const FormRow& row, const FieldValue& value, int x, int y, int w, std::function<void()> changed)
      : FormField(row, value, std::move(changed)), menu_(new Fl_Choice(x, y, std::min(w, widthFor(row)), rowHeight))
  {
    for (const char* choice : row.choices)
      menu_->add(choice);
    menu_->textsize(textSize);
    prepare(*menu_);
  }
  Fl_Widget& widget() override { return *menu_; }
  void show() override
  {
    const int last = static_cast<int>(row().choices.size()) - 1;
    menu_->value(std::clamp(get() - row().firstChoice, 0, last));
  }
  void take() override { set(menu_->value() + row().firstChoice); }

private:
  static int widthFor(const FormRow& row)
  {
    int widest = 0;
    for (const char* choice : row.choices)
      widest = std::max(widest, dialogTextWidth(choice));
    return widest + choiceExtra;
  }
  int get() const
  {
    if (const auto* number = std::get_if<int*>(&value())) return **number;
    const auto& choice = std::get<ChoiceValue>(value());
    return choice.get(choice.target);
  }
  void set(int picked) const
  {
    if (const auto* number = std::get_if<int*>(&value())) {
      **number = picked;
      return;
    }
    const auto& choice = std::get<ChoiceValue>(value());
    choice.set(choice.target, picked);
  }

  Fl_Choice* menu_;
};

/// The alpha of a colour with four parts stays as it is.
class ColorField : public FormField {
public:
  ColorField(const FormRow& row, const FieldValue& value, int x, int y, std::function<void()> changed)
      : FormField(row, value, changed), button_(new ColorButton(x, y, colorWidth, rowHeight, row.title()))
  {
    button_->tooltip(row.tooltip);
    button_->onChange = std::move(changed);
  }
  Fl_Widget& widget() override { return *button_; }
  void show() override
  {
    const float* from = parts();
    button_->setRgb(osg::Vec3f(from[0], from[1], from[2]));
  }
  void take() override { std::copy_n(button_->rgb().ptr(), 3, parts()); }

private:
  float* parts() const
  {
    if (const auto* three = std::get_if<osg::Vec3f*>(&value())) return (*three)->ptr();
    return std::get<osg::Vec4f*>(value())->ptr();
  }

  ColorButton* button_;
};

} // namespace

void FormField::present()
{
  show();
  presented_ = stateOf(value_);
}

void FormField::follow()
{
  if (stateOf(value_) != presented_) present();
}

void FormField::prepare(Fl_Widget& widget)
{
  widget.labelsize(textSize);
  widget.tooltip(row_.tooltip);
  widget.callback([](Fl_Widget*, void* field) { static_cast<FormField*>(field)->changed_(); }, this);
}

std::unique_ptr<FormField> FormField::make(const FormRow& row, const FieldValue& value, int x, int y, int w,
                                           std::function<void()> changed)
{
  switch (row.kind) {
  case FormRow::Kind::check:
    return std::make_unique<CheckField>(row, *std::get<bool*>(value), x, y, w, std::move(changed));
  case FormRow::Kind::number:
    return std::make_unique<NumberField>(row, value, x, y, w, std::move(changed));
  case FormRow::Kind::slider:
    return std::make_unique<SliderField>(row, *std::get<int*>(value), x, y, w, std::move(changed));
  case FormRow::Kind::choice:
    return std::make_unique<ChoiceField>(row, value, x, y, w, std::move(changed));
  case FormRow::Kind::color:
    return std::make_unique<ColorField>(row, value, x, y, std::move(changed));
  case FormRow::Kind::group:
  case FormRow::Kind::heading:
  case FormRow::Kind::buttons:
    break;
  }
  return nullptr;
}

} // namespace nalt
