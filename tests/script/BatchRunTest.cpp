#include "script/BatchRun.h"

#include "tests/script/ScriptTest.h"

#include <filesystem>

namespace nalt {

namespace {

/// Runs the program's batch mode with the arguments behind the program's own name.
class BatchRunTest : public ScriptTest {
protected:
  int run(std::vector<std::string> rest)
  {
    rest.insert(rest.begin(), "/bin/nalt");
    std::vector<char*> argv;
    for (auto& argument : rest)
      argv.push_back(argument.data());
    argv.push_back(nullptr);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = runBatch(static_cast<int>(rest.size()), argv.data());
    errors = testing::internal::GetCapturedStderr();
    output = testing::internal::GetCapturedStdout();
    return status;
  }

  std::string errors;
};

} // namespace

TEST(IsScript, KnowsTwoSpellings)
{
  EXPECT_TRUE(isScript("a.lua"));
  EXPECT_TRUE(isScript("/t/model.LUA"));
  EXPECT_TRUE(isScript(".lua"));
  EXPECT_FALSE(isScript("model.Lua"));
  EXPECT_FALSE(isScript("model.flt"));
  EXPECT_FALSE(isScript("lua"));
  EXPECT_FALSE(isScript("a.lua.flt"));
  EXPECT_FALSE(isScript("a.lua "));
  EXPECT_FALSE(isScript(""));
}

TEST_F(BatchRunTest, SaysWhichScriptItExecuted)
{
  const auto path = script("print(arg[-1], arg[0], arg[1], #arg)");
  EXPECT_EQ(run({path, "x"}), 0);
  EXPECT_EQ(output, "/bin/nalt " + path + " x 1\nExecuted " + path + ".\n");
  EXPECT_EQ(errors, "");
}

TEST_F(BatchRunTest, NamesTheScriptInFullButKeepsItsPathAsGiven)
{
  script("print(arg[0] .. ' ' .. NALT_PATH_TO_SCRIPT)");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  const auto here = std::filesystem::current_path().string();
  EXPECT_EQ(run({"test.lua"}), 0);
  EXPECT_EQ(output, "test.lua \nExecuted " + here + "/test.lua.\n");
  EXPECT_EQ(run({"./test.lua"}), 0);
  EXPECT_EQ(output, "./test.lua ././\nExecuted " + here + "/test.lua.\n");
  std::filesystem::current_path(before);
}

TEST_F(BatchRunTest, FailsWithAMessageAndAStatus)
{
  const auto path = script("print('before') error('too bad', 0)");
  EXPECT_EQ(run({path}), -1);
  EXPECT_EQ(output, "before\n");
  EXPECT_EQ(errors, "FAILED TO EXECUTE " + path + ".\ntoo bad\n");
}

TEST_F(BatchRunTest, FailsForAMissingScript)
{
  const auto path = folder / "none.lua";
  EXPECT_EQ(run({path}), -1);
  EXPECT_THAT(errors, testing::StartsWith("FAILED TO EXECUTE " + path + ".\ncannot open " + path));
}

TEST_F(BatchRunTest, IsActiveAndQuietOnlyWhileItRuns)
{
  EXPECT_EQ(run({script("assert(nalt.getVersion() == 2.9) nalt.newModel('a.flt')")}), 0);
  EXPECT_EQ(ScriptRun::active(), nullptr);
  EXPECT_FALSE(shell.isQuiet);
  EXPECT_FALSE(shell.isBatch);
  EXPECT_EQ(shell.modelCount(), 0) << "its models are closed";
}

} // namespace nalt
