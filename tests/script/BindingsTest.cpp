#include "core/ApiReference.h"
#include "tests/script/ScriptTest.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace nalt {

namespace {

using BindingsTest = ScriptTest;

/// The neutral results as Lua text, with the type of each.
const std::map<ApiResult, std::string> neutralTexts{
    {ApiResult::nothing, ""},
    {ApiResult::boolean, "boolean:false"},
    {ApiResult::integer, "number:0"},
    {ApiResult::index, "number:-1"},
    {ApiResult::number, "number:0"},
    {ApiResult::text, "string:"},
    {ApiResult::texts, "table:0"},
    {ApiResult::uv, "number:0 number:0"},
    {ApiResult::size, "number:-1 number:-1"},
    {ApiResult::point, "number:0 number:0 number:0"},
    {ApiResult::color, "number:0 number:0 number:0"},
    {ApiResult::colorOrIndex, "number:-1"},
    {ApiResult::matrix, "number:1 number:0 number:0 number:0 number:0 number:1 number:0 number:0 "
                        "number:0 number:0 number:1 number:0 number:0 number:0 number:0 number:1"},
    {ApiResult::textAndNumbers, "string:"},
    {ApiResult::integerOrText, "string:"},
    {ApiResult::valuePerName, ""},
    {ApiResult::numberPerName, ""},
};

/// Lua that makes `described(...)`: types and values of all that a call gave.
constexpr const char* described = "local function described(...)\n"
                                  "  local texts = {}\n"
                                  "  for i = 1, select('#', ...) do\n"
                                  "    local value = select(i, ...)\n"
                                  "    texts[i] = type(value) .. ':' .. (type(value) == 'table' and #value or "
                                  "tostring(value))\n"
                                  "  end\n"
                                  "  return table.concat(texts, ' ')\n"
                                  "end\n";

/// A value that an argument takes.
std::string exampleOf(const ApiArgument& argument)
{
  if (argument.choices) return '"' + std::string(argument.choices->values.front()) + '"';
  switch (argument.type) {
  case ApiType::boolean:
    return "true";
  case ApiType::integer:
  case ApiType::number:
    return "1";
  case ApiType::function:
    return "print";
  default:
    return "\"x\"";
  }
}

void append(std::string& list, std::span<const ApiArgument> arguments)
{
  for (const auto& argument : arguments)
    list += (list.empty() ? "" : ", ") + exampleOf(argument);
}

/// A call with every argument that the function can take, each good.
/// @param script an existing file, for functions that run one
std::string fullCall(const ApiFunction& row, const std::string& script)
{
  const auto& function = ApiReference::resolve(row);
  std::string list;
  append(list, function.arguments);
  if (!function.forms.empty() && function.formBy != ApiFormBy::order) append(list, function.forms.front().arguments);
  append(list, function.group);
  append(list, function.last);
  auto call = "nalt." + std::string(row.name) + "(" + list + ")";
  if (row.name == "executeMacro") call.replace(call.find("\"x\""), 3, '"' + script + '"');
  return call;
}

std::vector<std::string> lines(const std::string& text)
{
  std::vector<std::string> result;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);)
    result.push_back(line);
  return result;
}

} // namespace

TEST_F(BindingsTest, RegisterEveryFunctionAndNothingElse)
{
  std::vector<std::string> expected;
  for (const auto& function : ApiReference::functions())
    expected.emplace_back(function.name);
  auto found = lines(printed("for name, value in pairs(nalt) do\n"
                             "  assert(type(value) == 'function')\n"
                             "  print(name)\n"
                             "end"));
  EXPECT_EQ(found.size(), 250u);
  EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected));
}

TEST_F(BindingsTest, MakeAliasesTheSameFunction)
{
  for (const auto& function : ApiReference::functions()) {
    if (function.aliasOf.empty()) continue;
    EXPECT_EQ(printed("print(nalt." + std::string(function.name) + " == nalt." + std::string(function.aliasOf) + ")"),
              "true\n");
  }
  EXPECT_EQ(printed("print(nalt.applyAttributes == nalt.applyComment)"), "false\n");
}

TEST_F(BindingsTest, LetScriptsReplaceFunctionsForThemselvesOnly)
{
  EXPECT_EQ(printed("nalt.getVersion = function() return 7 end print(nalt.getVersion())"), "7\n");
  EXPECT_EQ(printed("print(nalt.getVersion())"), "2.9\n");
}

// ---- nothing to work on ---------------------------------------------------------------------------------------------

// Wrong arguments too: they are looked at only when there is something to work on.
TEST_F(BindingsTest, GiveNeutralResultsInABatchRunWithoutAModel)
{
  std::string text = described;
  std::vector<std::string> expected;
  for (const auto& row : ApiReference::functions()) {
    const auto& function = ApiReference::resolve(row);
    if (function.needs != ApiNeeds::model) continue;
    text += "print(described(nalt." + std::string(row.name) + "()))\n";
    expected.push_back(neutralTexts.at(function.result));
  }
  ASSERT_TRUE(executeBatch(text)) << error;
  EXPECT_THAT(lines(output), testing::ElementsAreArray(expected));
  EXPECT_TRUE(shell.messages.empty());
}

TEST_F(BindingsTest, GiveOneNeutralValueForEachName)
{
  EXPECT_EQ(printed(std::string(described) + "print(described(nalt.getAttributes('a', 'b')))\n"
                                             "print(described(nalt.getTextureAttributes(0, 'a', 'b', 'c')))\n"
                                             "print(described(nalt.getLightPointAnimationAttributes()))\n"
                                             "print(described(nalt.reportStatistics('a', 'b')))"),
            "nil:nil nil:nil\nnil:nil nil:nil nil:nil\n\nnumber:0 number:0\n");
}

TEST_F(BindingsTest, GiveAsManyNeutralValuesAsACallCanName)
{
  EXPECT_EQ(printed("local names = {} for i = 1, 200 do names[i] = 'a' end\n"
                    "print(select('#', nalt.getAttributes(table.unpack(names))))"),
            "200\n");
}

TEST_F(BindingsTest, GiveNeutralResultsWhenNoScriptRuns)
{
  std::string text =
      "local function same(a, b) if a ~= b then error(tostring(a) .. ' is not ' .. tostring(b)) end end\n";
  text += described;
  for (const auto& row : ApiReference::functions()) {
    const auto& function = ApiReference::resolve(row);
    if (!function.noRunError.empty()) continue;
    text += "same(described(nalt." + std::string(row.name) + "()), '" + neutralTexts.at(function.result) + "')\n";
  }
  ScriptRun run(false);
  EXPECT_TRUE(runScript(run, script(text), error, {}, {}, "")) << error;
  EXPECT_TRUE(shell.messages.empty());
  EXPECT_TRUE(shell.calls.empty());
}

// ---- functions that nothing does yet --------------------------------------------------------------------------------

TEST_F(BindingsTest, CallEveryFunctionWithAllItsArguments)
{
  const auto macro = script("", "macro.lua");
  for (const auto& row : ApiReference::functions()) {
    const auto& function = ApiReference::resolve(row);
    SCOPED_TRACE(row.name);
    shell.messages.clear();
    shell.newModel("current.flt");
    const std::string notYet = "WARNING: Not implemented yet: nalt." + std::string(function.name);
    const auto result = printed(described + ("print(described(" + fullCall(row, macro) + "))"));
    if (std::ranges::count(shell.messages, notYet) == 0) continue;
    EXPECT_THAT(shell.messages, testing::ElementsAre(notYet)) << "once for each call";
    const auto neutral = function.result == ApiResult::valuePerName    ? "nil:nil"
                         : function.result == ApiResult::numberPerName ? "number:0"
                                                                       : neutralTexts.at(function.result);
    EXPECT_EQ(result, neutral + "\n");
  }
}

TEST_F(BindingsTest, DoWhatTheyAreSaidToDo)
{
  const std::vector<std::string> done{
      "getVersion",    "newModel",        "openModel",
      "saveModel",     "saveModelAs",     "isModelUnsaved",
      "closeModel",    "setCurrentModel", "getCurrentModelFilename",
      "saveAllModels", "closeAllModels",  "getTolerance",
      "setTolerance",
  };
  for (const auto& name : done) {
    shell.messages.clear();
    shell.newModel("current.flt");
    printed(fullCall(*ApiReference::find(name), {}));
    EXPECT_THAT(shell.messages, testing::Not(testing::Contains(testing::HasSubstr("Not implemented yet")))) << name;
  }
}

TEST_F(BindingsTest, WarnBesideTheNeutralResult)
{
  shell.newModel("a.flt");
  EXPECT_EQ(printed("print(nalt.applyColor(), nalt.getMaxTextureIndex(), nalt.setAttributes('a', 1))"),
            "false -1 false\n");
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Not implemented yet: nalt.applyColor",
                                                   "WARNING: Not implemented yet: nalt.getMaxTextureIndex",
                                                   "WARNING: Not implemented yet: nalt.applyAttributes"));
}

} // namespace nalt
