#include "core/ApiReference.h"

#include "core/api/Families.h"

#include <array>
#include <set>
#include <unordered_map>

namespace nalt {

namespace {

using Rows = std::unordered_map<std::string_view, const ApiFunction*>;

Rows rowsByName()
{
  Rows rows;
  for (const auto& function : ApiReference::functions())
    rows.emplace(function.name, &function);
  return rows;
}

std::string joinedNames(std::span<const ApiArgument> arguments)
{
  std::string text;
  for (const auto& argument : arguments)
    text.append(text.empty() ? "" : ", ").append(argument.name);
  return text;
}

/// The forms under a signature, one a line. They close its bracket.
std::string formLines(const ApiFunction& function)
{
  if (function.formBy == ApiFormBy::order) return {};
  std::string text;
  for (const auto& form : function.forms) {
    text.append("\n  ").append(form.label).append(": ");
    text += form.signature.empty() ? joinedNames(form.arguments) + ')' : std::string(form.signature);
  }
  return text;
}

/// The lines of a recorded comment, each with its mark in front.
class CommentLines {
public:
  void add(const std::string& text)
  {
    std::size_t start = 0;
    for (;;) {
      const auto end = text.find('\n', start);
      text_ += "\n-- " + text.substr(start, end - start);
      if (end == std::string::npos) return;
      start = end + 1;
    }
  }

  void add(const ApiArgument& argument)
  {
    if (argument.meaning.empty() || !told_.insert(argument.name).second) return;
    std::string line(argument.name);
    if (argument.optional()) line.append(" (optional, default ").append(argument.otherwise).append(")");
    add(line.append(": ").append(argument.meaning));
    if (!argument.choices || !argument.meaning.ends_with(':')) return;
    for (const auto choice : argument.choices->values)
      add("  \"" + std::string(choice) + '"');
  }

  void add(std::span<const ApiArgument> arguments)
  {
    for (const auto& argument : arguments)
      add(argument);
  }

  const std::string& text() const { return text_; }

private:
  std::string text_ = "--";
  std::set<std::string_view> told_; ///< forms share arguments; each is told once
};

} // namespace

std::span<const ApiFamily> ApiReference::families()
{
  using namespace api;
  static const std::array all{
      models,
      hierarchy,
      selection,
      transforms,
      creation,
      surface,
      textureCoordinates,
      geometry,
      attributes,
      reports,
      grid,
      colorPalette,
      texturePalette,
      materialPalette,
      textureMappingPalette,
      lightPointPalette,
      shaderPalette,
      services,
  };
  return all;
}

const ApiFunction* ApiReference::find(std::string_view name)
{
  static const Rows rows = rowsByName();
  const auto found = rows.find(name);
  return found == rows.end() ? nullptr : found->second;
}

const ApiFunction& ApiReference::resolve(const ApiFunction& function)
{
  const auto* target = find(function.aliasOf);
  return target ? *target : function;
}

std::string_view ApiReference::aliasFor(const ApiFunction& function)
{
  for (const auto& other : functions())
    if (other.aliasOf == function.name) return other.name;
  return {};
}

std::string ApiReference::signature(const ApiFunction& function)
{
  std::string text(function.name);
  text += '(';
  text += function.signature.empty() ? joinedNames(function.arguments) + ')' : std::string(function.signature);
  return text + formLines(function);
}

std::string ApiReference::commentText(std::string_view name)
{
  const auto* row = find(name);
  if (!row) return {};
  const auto& function = resolve(*row);
  if (!function.comment.empty()) return std::string(function.comment);

  CommentLines lines;
  auto call = signature(function);
  if (!function.commentName.empty()) call.replace(0, function.name.size(), function.commentName);
  lines.add("nalt." + call);
  if (const auto alias = aliasFor(function); !alias.empty())
    lines.add("(nalt." + std::string(alias) + " is an alias that works exactly in the same way)");
  lines.add(std::string(function.description));
  lines.add(function.arguments);
  if (function.formBy != ApiFormBy::order)
    for (const auto& form : function.forms)
      lines.add(form.arguments);
  lines.add(function.group);
  lines.add(function.last);
  if (!function.returns.empty()) lines.add("returns: " + std::string(function.returns));
  return lines.text();
}

} // namespace nalt
