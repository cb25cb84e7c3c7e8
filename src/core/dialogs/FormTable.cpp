#include "core/dialogs/FormTable.h"

#include "core/NumberText.h"

namespace nalt {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>; // Clang 16 can't tell this by itself

bool isWhole(const FieldValue& value)
{
  return std::holds_alternative<int*>(value);
}

std::string limitsInWords(const Limits& limits)
{
  const bool hasLeast = limits.least > -std::numeric_limits<double>::infinity();
  const bool hasMost = limits.most < std::numeric_limits<double>::infinity();
  if (hasLeast && limits.leastExcluded)
    return " greater than " + textOfNumber(limits.least) +
           (hasMost ? " and of at most " + textOfNumber(limits.most) : std::string());
  if (hasLeast && hasMost) return " from " + textOfNumber(limits.least) + " to " + textOfNumber(limits.most);
  if (hasLeast) return " of at least " + textOfNumber(limits.least);
  if (hasMost) return " of at most " + textOfNumber(limits.most);
  return "";
}

} // namespace

std::string FormRow::title() const
{
  std::string title = name ? name : label;
  if (title.ends_with(':')) title.pop_back();
  return title;
}

std::string textOf(const FieldValue& value)
{
  return std::visit(Overloaded{[](int* number) { return std::to_string(*number); },
                               [](double* number) { return textOfNumber(*number); },
                               [](float* number) { return textOfNumber(*number); },
                               [](const auto&) { return std::string(); }},
                    value);
}

std::string stateOf(const FieldValue& value)
{
  const auto colorText = [](const auto* color, int parts) {
    std::string text;
    for (int i = 0; i < parts; ++i)
      text += textOfNumber((*color)[i]) + ' ';
    return text;
  };
  return std::visit(Overloaded{[](bool* flag) { return std::string(*flag ? "1" : "0"); },
                               [&](osg::Vec3f* color) { return colorText(color, 3); },
                               [&](osg::Vec4f* color) { return colorText(color, 4); },
                               [](const ChoiceValue& choice) { return std::to_string(choice.get(choice.target)); },
                               [&](const auto&) { return textOf(value); }},
                    value);
}

bool setFromText(const FieldValue& value, const Limits& limits, const std::string& text)
{
  const auto take = [&](auto* target, const auto& number) {
    if (!number || !limits.allow(*number)) return false;
    *target = static_cast<std::remove_pointer_t<decltype(target)>>(*number);
    return true;
  };
  return std::visit(Overloaded{[&](int* target) { return take(target, wholeNumberFromText(text)); },
                               [&](double* target) { return take(target, numberFromText(text)); },
                               [&](float* target) { return take(target, numberFromText(text)); },
                               [](const auto&) { return false; }},
                    value);
}

std::string complaintAbout(const FormRow& row, const FieldValue& value)
{
  return "Invalid value for \"" + row.title() + "\".\nIt must be a " + (isWhole(value) ? "whole number" : "number") +
         limitsInWords(row.limits) + ".";
}

} // namespace nalt
