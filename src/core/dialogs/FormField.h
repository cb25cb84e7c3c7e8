#pragma once

#include "core/dialogs/FormTable.h"

#include <functional>
#include <memory>
#include <string>

class Fl_Widget;

namespace nalt {

/// The widget of one value, between reading and taking it over.
class FormField {
public:
  virtual ~FormField() = default;

  /// The widget, made in the current FLTK group.
  virtual Fl_Widget& widget() = 0;
  /// Puts the value into the widget.
  void present();
  /// The same when the value changed since then, so that what the user entered is kept otherwise.
  void follow();
  /// Whether `take` will do.
  virtual bool isValid() const { return true; }
  /// Takes what the widget holds over into the value.
  virtual void take() = 0;

  const FormRow& row() const { return row_; }
  const FieldValue& value() const { return value_; }

  /// The field of a row, `w` pixels wide at most. `changed` is called when the user changed something.
  static std::unique_ptr<FormField> make(const FormRow& row, const FieldValue& value, int x, int y, int w,
                                         std::function<void()> changed);

protected:
  virtual void show() = 0;

  FormField(const FormRow& row, const FieldValue& value, std::function<void()> changed)
      : row_(row), value_(value), changed_(std::move(changed))
  {}

  /// Sizes, tooltip and callback that all have.
  void prepare(Fl_Widget& widget);

private:
  const FormRow& row_;
  FieldValue value_;
  std::function<void()> changed_;
  std::string presented_; ///< state of the value that the widget was given
};

} // namespace nalt
