#include "core/ApiReference.h"
#include "script/ApiDocuments.h"

#include <algorithm>
#include <map>
#include <vector>

namespace nalt {

namespace {

constexpr std::string_view introduction = R"(---@meta nalt

-- Script functions of Nalt for the language servers of Lua editors: add the folder of this file to the server's library.
-- Made from the table of script functions. Rewrite it with: cmake --build build --target documents

---The folder of the script with a separator at its end; empty for a bare file name.
---@type string
NALT_PATH_TO_SCRIPT = ""

---In a run with no window: the script at 0, its arguments from 1, the program at -1.
---@type table<integer, string>
arg = {}
)";

std::string typeOf(const ApiArgument& argument)
{
  if (argument.choices) return "nalt." + std::string(argument.choices->typeName);
  switch (argument.type) {
  case ApiType::boolean:
    return "boolean";
  case ApiType::integer:
    return "integer";
  case ApiType::number:
    return "number";
  case ApiType::text:
  case ApiType::file:
    return "string";
  case ApiType::value:
    return "boolean|number|string";
  case ApiType::names:
    return "string|string[]";
  case ApiType::function:
    return "nil|fun(kind: string): boolean?";
  }
  return {};
}

/// What stands behind "---@return", for each kind of result.
std::string_view resultTypes(ApiResult result)
{
  switch (result) {
  case ApiResult::nothing:
    return "";
  case ApiResult::boolean:
    return "boolean";
  case ApiResult::integer:
  case ApiResult::index:
    return "integer";
  case ApiResult::number:
    return "number";
  case ApiResult::text:
    return "string";
  case ApiResult::texts:
    return "string[]";
  case ApiResult::uv:
    return "number u, number v";
  case ApiResult::size:
    return "integer width, integer height";
  case ApiResult::point:
    return "number x, number y, number z";
  case ApiResult::color:
    return "integer red, integer green, integer blue";
  case ApiResult::colorOrIndex:
    return "integer red, integer? green, integer? blue";
  case ApiResult::matrix:
    return "number ...";
  case ApiResult::textAndNumbers:
    return "string type, number ...";
  case ApiResult::integerOrText:
    return "integer|string";
  case ApiResult::valuePerName:
    return "boolean|number|string|nil ...";
  case ApiResult::numberPerName:
    return "number ...";
  }
  return {};
}

std::string oneLine(std::string_view text)
{
  std::string result(text);
  std::ranges::replace(result, '\n', ' ');
  return result;
}

std::vector<std::span<const ApiArgument>> listsOf(const ApiFunction& function)
{
  std::vector<std::span<const ApiArgument>> lists{function.arguments, function.group, function.last};
  for (const auto& form : function.forms)
    lists.push_back(form.arguments);
  return lists;
}

std::string choiceTypes()
{
  std::map<std::string_view, const ApiChoices*> types;
  for (const auto& function : ApiReference::functions())
    for (const auto list : listsOf(function))
      for (const auto& argument : list)
        if (argument.choices) types[argument.choices->typeName] = argument.choices;
  std::string text;
  for (const auto& [name, choices] : types) {
    text.append("\n---@alias nalt.").append(name).append("\n");
    for (const auto value : choices->values)
      text.append("---| '\"").append(value).append("\"'\n");
  }
  return text;
}

/// "a: number, b?: boolean", as function types write arguments.
std::string typed(std::span<const ApiArgument> arguments)
{
  std::string text;
  for (const auto& argument : arguments) {
    text.append(text.empty() ? "" : ", ").append(argument.name).append(argument.optional() ? "?: " : ": ");
    text += typeOf(argument);
  }
  return text;
}

std::string overload(const ApiFunction& function, const ApiForm& form)
{
  std::string fixed;
  for (const auto& argument : function.arguments) {
    fixed.append(fixed.empty() ? "" : ", ").append(argument.name).append(": ");
    const bool isLabel = function.formBy == ApiFormBy::choice && &argument == function.arguments.data();
    fixed += isLabel ? '"' + std::string(form.label) + '"' : typeOf(argument);
  }
  const auto arguments =
      function.formBy == ApiFormBy::order ? typed(form.arguments) : fixed + ", " + typed(form.arguments);
  return "---@overload fun(" + arguments + "): " + std::string(resultTypes(function.result)) + '\n';
}

/// The types that the members of the groups and the flags behind them can have.
std::string variableType(const ApiFunction& function)
{
  std::string text;
  for (const auto list : {function.group, function.last})
    for (const auto& argument : list)
      if (const auto type = typeOf(argument); text.find(type) == std::string::npos)
        text += (text.empty() ? "" : "|") + type;
  return text;
}

bool takesMore(const ApiFunction& function)
{
  return !function.group.empty() || (!function.forms.empty() && function.formBy != ApiFormBy::order);
}

std::string entry(const ApiFunction& function)
{
  std::string text = "\n---" + oneLine(function.description) + '\n';
  if (!function.signature.empty() && takesMore(function)) {
    std::string call = "nalt." + ApiReference::signature(function);
    for (std::size_t at = 0; (at = call.find('\n', at)) != std::string::npos; at += 4)
      call.replace(at, 1, "\n---");
    text += "---```lua\n---" + call + "\n---```\n";
  }
  for (const auto& argument : function.arguments) {
    text.append("---@param ").append(argument.name).append(argument.optional() ? "? " : " ") += typeOf(argument);
    if (!argument.meaning.empty() && !argument.choices) text.append(" ").append(argument.meaning);
    if (argument.optional()) text.append(" Default: ").append(argument.otherwise).append(".");
    text += '\n';
  }
  if (takesMore(function)) text += "---@param ... " + (function.group.empty() ? "any" : variableType(function)) + '\n';
  if (function.result != ApiResult::nothing)
    text.append("---@return ").append(resultTypes(function.result)).append(" # ").append(function.returns).append("\n");
  for (const auto& form : function.forms)
    text += overload(function, form);

  std::string names;
  for (const auto& argument : function.arguments)
    names.append(names.empty() ? "" : ", ").append(argument.name);
  if (takesMore(function)) names += names.empty() ? "..." : ", ...";
  return text + "function nalt." + std::string(function.name) + '(' + names + ") end\n";
}

} // namespace

std::string apiAnnotations()
{
  std::string text(introduction);
  text += choiceTypes() + "\nnalt = {}\n";
  for (const auto& function : ApiReference::functions()) {
    if (function.aliasOf.empty()) {
      text += entry(function);
    } else {
      text.append("\nnalt.").append(function.name).append(" = nalt.").append(function.aliasOf).append("\n");
    }
  }
  return text;
}

} // namespace nalt
