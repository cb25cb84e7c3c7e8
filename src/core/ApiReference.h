#pragma once

#include <ranges>
#include <span>
#include <string>
#include <string_view>

namespace nalt {

/// What an argument of a script function must be.
enum class ApiType {
  boolean,  ///< any value; only false and nil are false
  integer,  ///< a number, cut off toward zero
  number,   ///<
  text,     ///< a number is taken as its text
  file,     ///< a path; either separator will do
  value,    ///< boolean, number or text
  names,    ///< a text, or a table of texts
  function, ///< nil is allowed
};

/// Texts that an argument may be, in any letter case.
struct ApiChoices {
  std::string_view typeName; ///< what the type is called in documents
  std::span<const std::string_view> values;
  std::string_view unlisted = {}; ///< one more that is understood and not documented
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): rows are read by people, in this order
struct ApiArgument {
  std::string_view name;
  ApiType type;
  /// A sentence. The choices follow it when it ends in ":"; empty where an argument before it tells what it is.
  std::string_view meaning;
  /// As Lua writes it; empty for an argument that must be there.
  std::string_view otherwise = {};
  const ApiChoices* choices = nullptr;
  std::string_view error = {}; ///< raised for a text that is none of the choices, or a number that is out of range
  int maximum = -1;            ///< an integer is in range from 0 to this; -1 where nothing is raised

  bool optional() const { return !otherwise.empty(); }
};

/// What a function gives back, and with it what it gives when there is nothing it could work on.
enum class ApiResult {
  nothing,
  boolean,        ///< false
  integer,        ///< 0
  index,          ///< -1
  number,         ///< 0
  text,           ///< ""
  texts,          ///< a table with keys from 1; an empty one
  uv,             ///< two numbers; 0, 0
  size,           ///< two integers; -1, -1
  point,          ///< three numbers; 0, 0, 0
  color,          ///< three integers; 0, 0, 0
  colorOrIndex,   ///< three integers or -1; -1
  matrix,         ///< 16 numbers, row after row; the identity
  textAndNumbers, ///< ""
  integerOrText,  ///< ""
  valuePerName,   ///< one value or nil for each name; nil for each
  numberPerName,  ///< one number for each name; 0 for each
};

/// Whether a function has nothing to work on without a current model, or only when no script runs.
enum class ApiNeeds { run, model };

/// How a call chooses among the forms of a function.
enum class ApiFormBy {
  choice, ///< the first argument with choices is the label
  count,  ///< the number of arguments
  order,  ///< the form is another order of all arguments, meant when a boolean stands where a number should
};

/// One way in which the arguments of a function can go on behind the fixed ones.
struct ApiForm {
  std::string_view label;
  std::span<const ApiArgument> arguments;
  std::string_view signature = {}; ///< how documents write the arguments, if not by their names
};

/// One function of the table `nalt`: the row that argument checks, recorded comments and documents are made from.
///
/// The arguments of a call are the fixed ones, then those of one form or any number of groups of `group`, then up to
/// as many booleans as `last` has.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): rows are read by people, in this order
struct ApiFunction {
  std::string_view name;
  std::string_view description = {}; ///< sentences; a line feed breaks the line in a recorded comment
  std::string_view returns = {};     ///< what the result is; empty for a procedure
  ApiResult result = ApiResult::nothing;
  ApiNeeds needs = ApiNeeds::model;

  std::span<const ApiArgument> arguments = {};
  std::span<const ApiArgument> group = {};
  int groupsNeeded = 1;
  std::span<const ApiArgument> last = {};
  std::span<const ApiForm> forms = {};
  ApiFormBy formBy = ApiFormBy::choice;

  /// Raised for a wrong number of arguments; empty where Lua's own errors are enough.
  std::string_view countError = {};
  /// Raised for an argument of a group that has the wrong type. "%n" stands for its position, "%s" for the name
  /// before it. Empty where Lua's own errors are enough.
  std::string_view groupError = {};

  /// Raised when no script runs; empty where the call then just gives its neutral result.
  std::string_view noRunError = {};

  /// What stands behind the opening bracket in documents, if it isn't the names of the arguments.
  std::string_view signature = {};
  /// What recorded comments call the function, if not by its name.
  std::string_view commentName = {};
  /// The whole recorded comment, where it isn't made from the row.
  std::string_view comment = {};
  /// The function that this is only another name of. Its row holds all else.
  std::string_view aliasOf = {};
};

/// Functions that belong together.
struct ApiFamily {
  std::string_view title;
  std::span<const ApiFunction> functions;
  std::string_view introduction; ///< a paragraph: what the functions have in common
  /// Lua that shows them at work; it runs with any model open. Empty where there is nothing to show.
  std::string_view example = {};
};

/// All functions that scripts can call. Constant data: any thread may read it.
class ApiReference {
public:
  /// The families in the order in which scripts get their functions.
  static std::span<const ApiFamily> families();
  /// Every function, aliases too, in that order.
  static auto functions() { return families() | std::views::transform(&ApiFamily::functions) | std::views::join; }

  /// Null if there is no such function. An alias has a row of its own.
  static const ApiFunction* find(std::string_view name);
  /// The row that says what `function` does: its own, or for an alias that of the function it stands for.
  static const ApiFunction& resolve(const ApiFunction& function);
  /// The other name of `function`, empty if it has none.
  static std::string_view aliasFor(const ApiFunction& function);

  /// What documents write behind "nalt.": name and arguments. May have several lines.
  static std::string signature(const ApiFunction& function);
  /// The lines that document a function in a recorded script, without a line feed at the end. Empty for an unknown
  /// name; an alias has the lines of the function it stands for.
  static std::string commentText(std::string_view name);
};

} // namespace nalt
