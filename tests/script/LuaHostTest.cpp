#include "tests/script/ScriptTest.h"

#include <algorithm>

namespace nalt {

namespace {

using LuaHost = ScriptTest;

MacroParameter parameter(const std::string& name, MacroParameter::Type type)
{
  MacroParameter result;
  result.name = name;
  result.type = type;
  result.stringValue = "text";
  result.booleanValue = true;
  result.numberValue = 2.5;
  result.fileValue = "a/file";
  result.folderValue = "a/folder";
  return result;
}

} // namespace

// ---- running a file -------------------------------------------------------------------------------------------------

TEST_F(LuaHost, RunsAScriptAndLeavesNoError)
{
  error = "old";
  EXPECT_TRUE(execute("print('hello')"));
  EXPECT_EQ(error, "");
  EXPECT_EQ(output, "hello\n");
}

TEST_F(LuaHost, ReportsASyntaxErrorAndRunsNothing)
{
  EXPECT_FALSE(execute("print('ran')\nif then"));
  EXPECT_THAT(error, testing::EndsWith("test.lua:2: unexpected symbol near 'then'"));
  EXPECT_EQ(output, "");
}

TEST_F(LuaHost, ReportsWhereAScriptFailed)
{
  EXPECT_FALSE(execute("print('before')\nerror('too bad')\nprint('after')"));
  EXPECT_THAT(error, testing::EndsWith("test.lua:2: too bad"));
  EXPECT_EQ(output, "before\n");
}

TEST_F(LuaHost, SaysSoWhenAnErrorHasNoText)
{
  EXPECT_FALSE(execute("error({})"));
  EXPECT_EQ(error, "UNDEFINED ERROR MESSAGE");
  EXPECT_FALSE(execute("error()"));
  EXPECT_EQ(error, "UNDEFINED ERROR MESSAGE");
}

TEST_F(LuaHost, TakesANumberAsErrorText)
{
  EXPECT_FALSE(execute("error(42, 0)"));
  EXPECT_EQ(error, "42");
}

TEST_F(LuaHost, CanFailWithAnEmptyText)
{
  EXPECT_FALSE(execute("error('', 0)"));
  EXPECT_EQ(error, "");
}

TEST_F(LuaHost, ReportsAMissingFile)
{
  ScriptRun run(false);
  EXPECT_FALSE(runScript(run, folder / "none.lua", error, {}, {}, ""));
  EXPECT_THAT(error, testing::StartsWith("cannot open " + folder / "none.lua"));
}

TEST_F(LuaHost, TakesBackslashesInTheScriptPath)
{
  tests::writeFile(folder / "back.lua", "");
  std::string path = folder / "back.lua";
  std::replace(path.begin(), path.end(), '/', '\\');
  ScriptRun run(false);
  EXPECT_TRUE(runScript(run, path, error, {}, {}, "")) << error;
}

TEST_F(LuaHost, LeavesAPathWithAThousandSeparatorsAlone)
{
  std::string path = folder.path();
  for (int i = 0; i < 1000; ++i)
    path += "\\.";
  ScriptRun run(false);
  EXPECT_FALSE(runScript(run, path, error, {}, {}, ""));
  EXPECT_THAT(error, testing::HasSubstr("\\.\\.")); // as it was given
}

TEST_F(LuaHost, StartsEachRunWithAFreshState)
{
  EXPECT_TRUE(execute("leftover = 1; string.gone = 1"));
  EXPECT_TRUE(execute("assert(leftover == nil and string.gone == nil)")) << error;
}

TEST_F(LuaHost, OpensAllStandardLibraries)
{
  EXPECT_TRUE(execute("assert(io.open and os.getenv and string.rep and table.sort and math.pi and coroutine.wrap and "
                      "debug.traceback and bit32.band and require)"))
      << error;
}

TEST_F(LuaHost, ClosesTheStateWhileTheRunIsStillActive)
{
  EXPECT_EQ(printed("setmetatable({}, {__gc = function() print('collected ' .. nalt.getVersion()) end})"),
            "collected 2.9\n");
}

// The error leaves through the C++ code between Lua and the script.
TEST_F(LuaHost, KeepsErrorsInsideProtectedCalls)
{
  EXPECT_EQ(printed("local good, text = pcall(nalt.newModel, {})\n"
                    "print(good, text)"),
            "false bad argument #1 to 'nalt.newModel' (string expected, got table)\n");
}

// ---- globals --------------------------------------------------------------------------------------------------------

TEST_F(LuaHost, MakesParametersGlobals)
{
  parameters = {
      parameter("s", MacroParameter::Type::string), parameter("b", MacroParameter::Type::boolean),
      parameter("n", MacroParameter::Type::number), parameter("f", MacroParameter::Type::file),
      parameter("d", MacroParameter::Type::folder), parameter("u", static_cast<MacroParameter::Type>(5)),
  };
  EXPECT_EQ(printed("print(s, b, n, f, d, u)"), "text true 2.5 a/file a/folder <nil> \n");
}

TEST_F(LuaHost, LetsALaterParameterOverrideAnEarlierOne)
{
  parameters = {parameter("p", MacroParameter::Type::string), parameter("p", MacroParameter::Type::number)};
  EXPECT_EQ(printed("print(p)"), "2.5\n");
}

TEST_F(LuaHost, GivesArgumentsToABatchRun)
{
  arguments = {"one", "two words", ""};
  EXPECT_TRUE(executeBatch("print(arg[-1]); print(arg[0]); print(#arg); print(arg[1], arg[2], '[' .. arg[3] .. ']')\n"
                           "for key in pairs(arg) do assert(type(key) == 'number') end"))
      << error;
  EXPECT_EQ(output, "nalt\n" + folder / "test.lua" + "\n3\none two words []\n");
}

TEST_F(LuaHost, GivesNoArgumentsToAnInteractiveRun)
{
  arguments = {"one"};
  EXPECT_EQ(printed("print(arg)"), "<nil> \n");
}

TEST_F(LuaHost, TellsTheFolderOfTheScript)
{
  EXPECT_EQ(printed("print(NALT_PATH_TO_SCRIPT)"), folder.path() + "/\n");
}

TEST(PathToScript, IsTheFolderOfAnAbsolutePath)
{
  EXPECT_EQ(pathToScript("/t/a.lua"), "/t/");
  EXPECT_EQ(pathToScript("/a.lua"), "/");
  EXPECT_EQ(pathToScript("C:\\t\\a.lua"), "C:\\t\\");
}

TEST(PathToScript, IsEmptyForABareName)
{
  EXPECT_EQ(pathToScript("a.lua"), "");
  EXPECT_EQ(pathToScript(""), "");
}

TEST(PathToScript, HasARelativeFolderTwice)
{
  EXPECT_EQ(pathToScript("sub/a.lua"), "sub/sub/");
  EXPECT_EQ(pathToScript("sub\\a.lua"), "sub\\sub\\");
  EXPECT_EQ(pathToScript("./a.lua"), "././");
}

TEST(PathToScript, ResolvesAPathThatStartsInTheFolderAbove)
{
  EXPECT_EQ(pathToScript("../t/a.lua"), "../t/");
  EXPECT_EQ(pathToScript("../a.lua"), "../");
}

// ---- print ----------------------------------------------------------------------------------------------------------

TEST_F(LuaHost, PrintsValuesWithBlanksBetween)
{
  EXPECT_EQ(printed("print(nil, true, 1.5, {})"), "<nil>  true 1.5 \n");
  EXPECT_EQ(printed("print({}, print, 'a', false)"), "  a false\n");
  EXPECT_EQ(printed("print(1, 1e20, 'b')"), "1 1e+20 b\n");
  EXPECT_EQ(printed("print()"), "\n");
  EXPECT_EQ(printed("print('')"), "\n");
}

TEST_F(LuaHost, PrintsTextsWhole)
{
  EXPECT_EQ(printed("print('a\\0b')"), std::string("a\0b\n", 4));
}

TEST_F(LuaHost, PrintGivesNothingBack)
{
  EXPECT_EQ(printed("print(select('#', print('x')))"), "x\n0\n");
}

TEST_F(LuaHost, DoesntChangeWhatItPrints)
{
  EXPECT_EQ(printed("local n = 7; print(n); print(type(n))"), "7\nnumber\n");
}

TEST_F(LuaHost, PrintsNothingWithoutAnActiveRun)
{
  ScriptRun run(false);
  testing::internal::CaptureStdout();
  EXPECT_TRUE(runScript(run, script("print('unheard')"), error, {}, {}, "")) << error;
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// ---- line feeds and log ---------------------------------------------------------------------------------------------

TEST_F(LuaHost, LeavesLineEndsAwayWhenToldSo)
{
  for (const char* value : {"ON", "on", "On"}) {
    setenv("NALT_NO_LINE_FEED", value, 1);
    EXPECT_EQ(printed("print('a') print('b')"), "ab") << value;
  }
  for (const char* value : {"1", "", "true", "ON "}) {
    setenv("NALT_NO_LINE_FEED", value, 1);
    EXPECT_EQ(printed("print('a') print('b')"), "a\nb\n") << value;
  }
}

TEST_F(LuaHost, AddsOutputToTheLog)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  EXPECT_EQ(printed("print('one')"), "one\n");
  EXPECT_EQ(printed("print('two')"), "two\n");
  EXPECT_EQ(tests::readFile(folder / "log"), "one\ntwo\n");
}

TEST_F(LuaHost, AddsErrorsToTheLog)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  EXPECT_FALSE(execute("error('bad', 0)"));
  EXPECT_EQ(tests::readFile(folder / "log"), "ERROR: bad\n");
  EXPECT_FALSE(execute("error({})"));
  EXPECT_EQ(tests::readFile(folder / "log"), "ERROR: bad\nERROR: UNDEFINED ERROR MESSAGE\n");
}

TEST_F(LuaHost, LogsNoEmptyError)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  EXPECT_FALSE(execute("print('x') error('', 0)"));
  EXPECT_EQ(tests::readFile(folder / "log"), "x\n");
}

TEST_F(LuaHost, LogsWithoutLineEndsToo)
{
  setenv("NALT_LOG", (folder / "log").c_str(), 1);
  setenv("NALT_NO_LINE_FEED", "ON", 1);
  EXPECT_FALSE(execute("print('x') error('bad', 0)"));
  EXPECT_EQ(tests::readFile(folder / "log"), "xERROR: bad");
}

TEST_F(LuaHost, GoesOnWhenTheLogCantBeWritten)
{
  setenv("NALT_LOG", (folder / "none/log").c_str(), 1);
  EXPECT_EQ(printed("print('x')"), "x\n");
}

} // namespace nalt
