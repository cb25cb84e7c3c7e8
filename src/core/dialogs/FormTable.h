#pragma once

#include <limits>
#include <optional>
#include <osg/Vec3f>
#include <osg/Vec4f>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

/// Dialogs as tables: one row for each value, which says how it is called, what it may be, and where it is kept. Forms
/// (Form.h) are built from such tables. Nothing here needs a display.
namespace nalt {

/// A value that is one of a few, wherever it is kept.
struct ChoiceValue {
  void* target;
  int (*get)(const void* target);
  void (*set)(void* target, int choice);
};

/// Where a row's value is kept.
using FieldValue = std::variant<bool*, int*, double*, float*, osg::Vec3f*, osg::Vec4f*, ChoiceValue>;

/// What a number may be.
struct Limits {
  double least = -std::numeric_limits<double>::infinity();
  double most = std::numeric_limits<double>::infinity();
  bool leastExcluded = false; ///< the number must be greater than `least`

  bool allow(double number) const { return number <= most && (leastExcluded ? number > least : number >= least); }
};

/// What a table says of one row, apart from where its value is kept.
struct FormRow {
  enum class Kind { group, heading, check, number, slider, choice, color, buttons };

  Kind kind;
  const char* label;
  const char* tooltip = nullptr;
  Limits limits = {};
  int firstChoice = 0;                   ///< the number that the first of `choices` stands for
  std::vector<const char*> choices = {}; ///< entries of a choice, labels of buttons
  bool joined = false;                   ///< on the line of the row before
  const char* name = nullptr;            ///< in messages, where the label says too little

  /// "Max Commands" of "Max Commands:".
  std::string title() const;
};

template <class Values>
struct FormRowOf : FormRow {
  FieldValue (*value)(Values&) = nullptr; ///< null for what shows no value

  /// The same row on the line of the one before.
  FormRowOf onSameLine(const char* messageName = nullptr) const
  {
    FormRowOf row = namedInMessages(messageName);
    row.joined = true;
    return row;
  }
  FormRowOf namedInMessages(const char* messageName) const
  {
    FormRowOf row = *this;
    row.name = messageName;
    return row;
  }
};

template <class Values>
using FormTable = std::vector<FormRowOf<Values>>;

/// The text of a number field, and the other way round: false, with the value as it was, when `text` is no number or
/// none within the limits.
std::string textOf(const FieldValue& value);
bool setFromText(const FieldValue& value, const Limits& limits, const std::string& text);

/// The value as a text, so that two can be compared, whatever its kind.
std::string stateOf(const FieldValue& value);

/// What to tell somebody who entered something else.
std::string complaintAbout(const FormRow& row, const FieldValue& value);

/// Makes the rows of a table for `Values`. The template arguments lead to the member that the row shows.
template <class Values>
struct RowsFor {
  using Row = FormRowOf<Values>;

  static Row group(const char* label) { return {{FormRow::Kind::group, label}}; }
  static Row heading(const char* label) { return {{FormRow::Kind::heading, label}}; }
  static Row buttons(const char* label, std::vector<const char*> labels, const char* tooltip = nullptr)
  {
    Row row{{FormRow::Kind::buttons, label, tooltip}};
    row.choices = std::move(labels);
    return row;
  }

  template <auto... path>
  static Row check(const char* label, const char* tooltip)
  {
    return {{FormRow::Kind::check, label, tooltip}, at<path...>};
  }
  template <auto... path>
  static Row number(const char* label, const char* tooltip, const Limits& limits)
  {
    return {{FormRow::Kind::number, label, tooltip, limits}, at<path...>};
  }
  template <auto... path>
  static Row slider(const char* label, const char* tooltip, const Limits& limits)
  {
    return {{FormRow::Kind::slider, label, tooltip, limits}, at<path...>};
  }
  template <auto... path>
  static Row choice(const char* label, const char* tooltip, int first, std::vector<const char*> choices)
  {
    Row row{{FormRow::Kind::choice, label, tooltip}, at<path...>};
    row.firstChoice = first;
    row.choices = std::move(choices);
    return row;
  }
  template <auto... path>
  static Row color(const char* label, const char* tooltip)
  {
    return {{FormRow::Kind::color, label, tooltip}, at<path...>};
  }

private:
  template <auto... path>
  static FieldValue at(Values& values)
  {
    return pointTo((values.*....*path));
  }
  template <class T>
  static FieldValue pointTo(T& value)
  {
    if constexpr (std::is_enum_v<T>) {
      return ChoiceValue{&value, [](const void* target) { return static_cast<int>(*static_cast<const T*>(target)); },
                         [](void* target, int choice) { *static_cast<T*>(target) = static_cast<T>(choice); }};
    } else {
      return &value;
    }
  }
};

/// The rows from each group title up to the next one.
template <class Values>
std::vector<std::span<const FormRowOf<Values>>> groupsOf(std::span<const FormRowOf<Values>> rows)
{
  std::vector<std::span<const FormRowOf<Values>>> groups;
  for (std::size_t first = 0, i = 1; i <= rows.size(); ++i) {
    if (i < rows.size() && rows[i].kind != FormRow::Kind::group) continue;
    groups.push_back(rows.subspan(first, i - first));
    first = i;
  }
  return groups;
}

} // namespace nalt
