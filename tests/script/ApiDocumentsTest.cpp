#include "script/ApiDocuments.h"

#include "core/ApiReference.h"
#include "tests/script/ScriptTest.h"
#include "tests/support/Surroundings.h"

#include <algorithm>

namespace nalt {

namespace {

using ApiDocuments = ScriptTest;

constexpr const char* advice = "Rewrite it with: cmake --build build --target documents";

/// Where the texts begin to differ, so that a failure shows a line and not a book.
std::string firstDifference(const std::string& a, const std::string& b)
{
  const auto [at, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  if (at == a.end() && other == b.end()) return {};
  const auto line = a.rfind('\n', static_cast<std::size_t>(at - a.begin()));
  return a.substr(line == std::string::npos ? 0 : line + 1, 120);
}

std::string committed(const std::string& name)
{
  const std::string folder = tests::sourceFolder;
  return tests::readFile(folder + "/docs/" + name);
}

} // namespace

TEST_F(ApiDocuments, TheManualSaysWhatTheTableSays)
{
  EXPECT_EQ(firstDifference(apiManual(), committed("lua-api.md")), "") << advice;
}

TEST_F(ApiDocuments, TheAnnotationsSayWhatTheTableSays)
{
  EXPECT_EQ(firstDifference(apiAnnotations(), committed("nalt.d.lua")), "") << advice;
}

TEST_F(ApiDocuments, TheManualHasEveryFunction)
{
  const auto text = apiManual();
  for (const auto& function : ApiReference::functions()) {
    const std::string name(function.name);
    const bool found = function.aliasOf.empty() ? text.find("\n### " + name + "\n") != std::string::npos
                                                : text.find("`nalt." + name + "` is another name") != std::string::npos;
    EXPECT_TRUE(found) << name;
  }
  EXPECT_THAT(text, testing::HasSubstr("\n### selectAll\n\n```lua\nnalt.selectAll(selectionMode)\n```\n\n"
                                       "Selects all primitives of a given mode.\n\n"
                                       "| Argument | Type | Default | Meaning |\n|---|---|---|---|\n"
                                       "| `selectionMode` | string |  | One of the following strings: `\"VERTEX\"`, "));
}

TEST_F(ApiDocuments, TheAnnotationsAreLuaThatDefinesEveryFunction)
{
  std::string check = "nalt = nil\n" + apiAnnotations() + "\nlocal n = 0\nfor _ in pairs(nalt) do n = n + 1 end\n";
  for (const auto& function : ApiReference::functions())
    check += "assert(type(nalt." + std::string(function.name) + ") == 'function')\n";
  EXPECT_EQ(printed(check + "print(n)"), "250\n");
}

TEST_F(ApiDocuments, TheAnnotationsTellTypesAndForms)
{
  EXPECT_THAT(apiAnnotations(),
              testing::HasSubstr("\n---Increases the complexity of the selected geometry by subdividing the current "
                                 "polygons.\n"
                                 "---@param iterations integer The number of subdividing iterations.\n"
                                 "---@param subdivideBorders? boolean true if borders should be subdivided. Default: "
                                 "false.\n"
                                 "---@return boolean # true if any geometry was subdivided.\n"
                                 "function nalt.subdivide(iterations, subdivideBorders) end\n"));
  EXPECT_THAT(apiAnnotations(), testing::HasSubstr("---@overload fun(keepFloor: boolean, height: number): boolean\n"));
}

} // namespace nalt
