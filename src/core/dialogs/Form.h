#pragma once

#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/FormTable.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace nalt {

class FormField;

/// The widgets of a table of values, in groups that are put where they are wanted. They show copies: values change when
/// `take` is called, and only then. A slider can't be moved while the check behind it on its line is on, which stands
/// for "automatic". The tables must outlive the form. Needs a display.
class Form {
public:
  Form();
  ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  /// Makes the rows of one group in the current FLTK group, `w` pixels wide, labels in a column in front of the
  /// fields. Gives the lower edge.
  template <class Values>
  int addGroup(std::span<const FormRowOf<Values>> rows, Values& values, int x, int y, int w)
  {
    std::vector<Line> lines;
    for (const FormRowOf<Values>& row : rows)
      lines.push_back({&row, row.value ? row.value(values) : FieldValue(static_cast<bool*>(nullptr))});
    return addLines(lines, x, y, w);
  }

  /// Puts the values as they are into the widgets.
  void show();
  /// Only those that changed since they were shown last; elsewhere what the user entered is kept.
  void follow();
  /// Takes what the widgets hold over into the values. If one of them can't be taken, none is: a message says why, and
  /// the field has the focus.
  bool take();

  /// After the user changed something.
  std::function<void()> onChange;
  /// A button of a row was pressed; `place` counts from 0.
  std::function<void(const FormRow& row, int place)> onButton;

private:
  struct Line {
    const FormRow* row;
    FieldValue value;
  };
  struct Place {
    int x;
    int y;
    int w;
  };

  int addLines(const std::vector<Line>& lines, int x, int y, int w);
  static int labelWidthFrom(const std::vector<Line>& lines, std::size_t first);
  int addField(const Line& line, const Place& place);
  void addButtons(const FormRow& row, const Place& place);

  Actions actions_;
  void updateSliders();

  std::vector<std::unique_ptr<FormField>> fields_;
};

/// Room that `text` takes in a dialog, in pixels. Needs a display.
int dialogTextWidth(const char* text);

} // namespace nalt
