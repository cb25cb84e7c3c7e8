#include "core/ApiReference.h"
#include "script/ApiDocuments.h"
#include "script/Bindings.h"

#include <algorithm>
#include <set>

namespace nalt {

namespace {

constexpr std::string_view introduction = R"(# Script functions

<!-- Made from the table of script functions. Rewrite it with: cmake --build build --target documents -->

A script is a Lua 5.2 file. It is run from the script editor, as a macro, or with no window by

    nalt script.lua [argument...]

All functions are in the table `nalt`. Beside it there are these globals:

| Global | What it is |
|---|---|
| `NALT_PATH_TO_SCRIPT` | the folder of the script with a separator at its end; empty for a bare file name |
| `arg` | in a run with no window: `arg[0]` the script, `arg[1]` and so on the arguments, `arg[-1]` the program |
| `print` | writes to the script editor, or to standard output; `{}` and the like print as nothing |
| the parameters of a macro | each under its name |

What holds for all functions:

- Indices of palettes, masks and matrices count from 0, tables from 1. Angles are degrees, colors 0 to 255.
- An optional argument may be left out with all behind it. `nil` is false where a boolean stands, and an error elsewhere.
- Names that are one of a list are taken in any case: `"polygon"` is `"POLYGON"`.
- File names may have either separator; relative ones start at the working folder.
- A wrong number or type of arguments is an error, which ends the script unless `pcall` catches it. What can't be done
  with the selection, a palette or a file is a warning in the output, and the function gives its neutral result: `false`,
  `0`, `""`, `-1` for an index, `nil` for an attribute. Without a model it gives that without a warning.
- No question is asked while a script runs.

In a run with no window the exit status is 255 when the script failed, else 0. `NALT_LOG` names a file that output and
errors are added to; `NALT_NO_LINE_FEED=ON` leaves the line ends behind what is printed away.
)";

/// Without the line breaks that belong to recorded comments.
std::string flowing(std::string_view text)
{
  std::string result(text);
  std::ranges::replace(result, '\n', ' ');
  return result;
}

std::string capitalized(std::string_view text)
{
  std::string result(text);
  if (!text.starts_with("true ") && !text.starts_with("false ") && !result.empty() && result[0] >= 'a' &&
      result[0] <= 'z')
    result[0] = static_cast<char>(result[0] - 'a' + 'A');
  return result;
}

std::string_view typeName(ApiType type)
{
  switch (type) {
  case ApiType::boolean:
    return "boolean";
  case ApiType::integer:
    return "integer";
  case ApiType::number:
    return "number";
  case ApiType::text:
    return "string";
  case ApiType::file:
    return "file name";
  case ApiType::value:
    return "boolean, number or string";
  case ApiType::names:
    return "string or table of strings";
  case ApiType::function:
    return "function or nil";
  }
  return {};
}

class ArgumentTable {
public:
  void add(std::span<const ApiArgument> arguments)
  {
    for (const auto& argument : arguments)
      add(argument);
  }

  std::string text() const
  {
    return rows_.empty() ? rows_ : "\n| Argument | Type | Default | Meaning |\n|---|---|---|---|\n" + rows_;
  }

private:
  void add(const ApiArgument& argument)
  {
    if (argument.meaning.empty() || !told_.insert(argument.name).second) return;
    rows_.append("| `").append(argument.name).append("` | ").append(typeName(argument.type)).append(" | ");
    if (argument.optional()) rows_.append("`").append(argument.otherwise).append("`");
    rows_ += " | " + capitalized(argument.meaning);
    if (argument.choices && argument.meaning.ends_with(':')) rows_ += choices(*argument.choices);
    rows_ += " |\n";
  }

  static std::string choices(const ApiChoices& choices)
  {
    std::string text;
    for (const auto choice : choices.values)
      text.append(text.empty() ? " " : ", ").append("`\"").append(choice).append("\"`");
    return text;
  }

  std::string rows_;
  std::set<std::string_view> told_;
};

std::string entry(const ApiFunction& function)
{
  std::string text = "\n### " + std::string(function.name) + "\n\n";
  text += "```lua\nnalt." + ApiReference::signature(function) + "\n```\n\n" + flowing(function.description) + '\n';
  if (const auto alias = ApiReference::aliasFor(function); !alias.empty())
    text += "`nalt." + std::string(alias) + "` is another name of it.\n";
  if (!isImplemented(function.name)) text += "\n*Not implemented yet: warns and gives its neutral result.*\n";

  ArgumentTable arguments;
  arguments.add(function.arguments);
  if (function.formBy != ApiFormBy::order)
    for (const auto& form : function.forms)
      arguments.add(form.arguments);
  arguments.add(function.group);
  arguments.add(function.last);
  text += arguments.text();

  if (!function.returns.empty()) text += "\nReturns " + std::string(function.returns) + '\n';
  return text;
}

/// As GitHub and its like make it from a heading.
std::string anchor(std::string_view heading)
{
  std::string text;
  for (const char c : heading)
    text += c == ' ' ? '-' : static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return text;
}

} // namespace

std::string apiManual()
{
  std::string text(introduction);
  text += "\nFamilies:\n\n";
  for (const auto& family : ApiReference::families())
    text += "- [" + std::string(family.title) + "](#" + anchor(family.title) + ")\n";
  for (const auto& family : ApiReference::families()) {
    text += "\n## " + std::string(family.title) + "\n\n" + std::string(family.introduction) + '\n';
    if (!family.example.empty()) text += "\nExample:\n\n```lua\n" + std::string(family.example) + "```\n";
    for (const auto& function : family.functions)
      if (function.aliasOf.empty()) text += entry(function);
  }
  return text;
}

} // namespace nalt
