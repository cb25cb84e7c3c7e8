#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace nalt {

namespace {

RunMode modeOf(std::initializer_list<const char*> arguments, bool sizes = false)
{
  std::vector<const char*> argv = {"nalt"};
  argv.insert(argv.end(), arguments);
  return runModeOf(static_cast<int>(argv.size()), argv.data(), sizes);
}

} // namespace

TEST(CommandLine, WithoutArgumentsTheModellerStarts)
{
  EXPECT_EQ(modeOf({}), RunMode::modeller);
}

TEST(CommandLine, OnlyTwoSpellingsAreAScript)
{
  EXPECT_EQ(modeOf({"model.lua"}), RunMode::script);
  EXPECT_EQ(modeOf({"model.LUA"}), RunMode::script);
  EXPECT_EQ(modeOf({"model.Lua"}), RunMode::modeller);
}

TEST(CommandLine, OnlyTheFirstArgumentDecides)
{
  EXPECT_EQ(modeOf({"a.flt", "b.lua"}), RunMode::modeller);
  EXPECT_EQ(modeOf({"b.lua", "a.flt", "--help"}), RunMode::script);
}

TEST(CommandLine, OptionsComeBeforeAnythingElse)
{
  EXPECT_EQ(modeOf({"--help"}, true), RunMode::help);
  EXPECT_EQ(modeOf({"--version"}, true), RunMode::version);
}

TEST(CommandLine, TheSizesOfRecordsComeBeforeScripts)
{
  EXPECT_EQ(modeOf({}, true), RunMode::structSizes);
  EXPECT_EQ(modeOf({"a.lua"}, true), RunMode::structSizes);
}

TEST(CommandLine, APathOfAThousandSeparatorsIsStillAScript)
{
  std::string path;
  for (int i = 0; i < 1200; ++i)
    path += "/";
  path += "a.lua";
  EXPECT_EQ(modeOf({path.c_str()}), RunMode::script);
}

} // namespace nalt
