#include "app/SettingsFile.h"

#include "tests/support/TempFolder.h"

#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace nalt {
namespace {

std::string bigEndian(double value)
{
  const auto bits = __builtin_bswap64(std::bit_cast<std::uint64_t>(value));
  return {reinterpret_cast<const char*>(&bits), sizeof bits};
}

class SettingsFileTest : public testing::Test {
protected:
  tests::TempFolder folder;
  std::string path = folder / "nalt.cfg";
  SettingsFile file{path};
};

TEST_F(SettingsFileTest, ASettingsFileHas4488BytesAndBeginsWithItsVersion)
{
  const auto bytes = encodeSettings({});
  EXPECT_EQ(bytes.size(), 4488u);
  EXPECT_EQ(bytes.substr(0, 8), bigEndian(2.4));
}

TEST_F(SettingsFileTest, EveryPreferenceStandsAtItsPlace)
{
  Settings settings;
  settings.preferences.tolerance = 0.25;
  settings.preferences.maxCommands = 0x01020304;
  settings.preferences.relativeTexturePaths = true;
  settings.preferences.zoomViewpointToModel = false;
  const auto bytes = encodeSettings(settings);
  EXPECT_EQ(bytes[4128], 0);
  EXPECT_EQ(bytes.substr(4136, 8), bigEndian(0.25));
  EXPECT_EQ(bytes.substr(4168, 4), std::string("\x01\x02\x03\x04"));
  EXPECT_EQ(bytes[4128 + 88 + 4], 1);
}

TEST_F(SettingsFileTest, WhatIsWrittenComesBack)
{
  Settings settings;
  settings.window = {.x = 30, .y = 40, .width = 900, .height = 700, .maximized = true, .recentFiles = {"/a.flt", "b"}};
  settings.preferences.sensitivity = {.pan = 1, .zoom = 2, .rotate = 3, .autoPan = false, .autoZoom = false};
  settings.preferences.gizmoSize = 33;
  settings.preferences.reloadShaders = false;
  settings.viewport.axesCorner = AxesCorner::bottomRight;
  settings.viewport.smallFeaturePixels = 2.5F;
  settings.viewport.gridAxisColor = {0.1F, 0.2F, 0.3F, 0.4F};
  file.write(settings);

  Settings read;
  const auto result = file.read(read);
  EXPECT_TRUE(result.hasWindow);
  EXPECT_FALSE(result.newerVersion);
  EXPECT_EQ(encodeSettings(read), encodeSettings(settings));
  EXPECT_EQ(read.window.recentFiles[0], "/a.flt");
  EXPECT_TRUE(read.window.maximized);
}

TEST_F(SettingsFileTest, AMissingFileIsWrittenWithDefaults)
{
  Settings settings;
  EXPECT_FALSE(file.read(settings).newerVersion);
  EXPECT_EQ(tests::readFile(path), encodeSettings({}));
}

TEST_F(SettingsFileTest, ANegativePositionIsReadAsZero)
{
  Settings settings;
  settings.window.x = -5;
  settings.window.y = -1000;
  file.write(settings);
  Settings read;
  read.window.x = 7;
  file.read(read);
  EXPECT_EQ(read.window.x, 0);
  EXPECT_EQ(read.window.y, 0);
}

TEST_F(SettingsFileTest, ANewerFileLeavesDefaultsAndIsReplacedAtOnce)
{
  auto bytes = encodeSettings({});
  bytes.replace(0, 8, bigEndian(2.5));
  bytes[4128] = 0;
  tests::writeFile(path, bytes);
  Settings settings;
  EXPECT_TRUE(file.read(settings).newerVersion);
  EXPECT_TRUE(settings.preferences.zoomViewpointToModel);
  EXPECT_EQ(tests::readFile(path).substr(0, 8), bigEndian(2.4));
}

TEST_F(SettingsFileTest, AShorterFileLeavesTheRestStanding)
{
  Settings settings;
  settings.preferences.tolerance = 0.5;
  settings.preferences.parameterPrecision = 5;
  settings.viewport.nearClip = 3;
  tests::writeFile(path, encodeSettings(settings).substr(0, 4128 + 16));
  Settings read;
  EXPECT_TRUE(file.read(read).hasWindow);
  EXPECT_EQ(read.preferences.tolerance, 0.5);
  EXPECT_EQ(read.preferences.parameterPrecision, 12);
  EXPECT_EQ(read.viewport.nearClip, 0.1);
}

TEST_F(SettingsFileTest, AFileThatEndsAmongTheRecentFilesStillSaysWhereTheWindowWas)
{
  Settings settings;
  settings.window = {.x = 30, .y = 40, .width = 900, .height = 700, .maximized = true, .recentFiles = {"/a.flt", "/b"}};
  tests::writeFile(path, encodeSettings(settings).substr(0, 8 + 24 + 1024 + 100));
  Settings read;
  EXPECT_TRUE(file.read(read).hasWindow);
  EXPECT_EQ(read.window.width, 900);
  EXPECT_TRUE(read.window.maximized);
  EXPECT_EQ(read.window.recentFiles[0], "/a.flt");
  EXPECT_EQ(read.window.recentFiles[1], "");
}

TEST_F(SettingsFileTest, AFileThatEndsInTheWindowsPlaceLeavesItAlone)
{
  Settings settings;
  settings.window.width = 900;
  tests::writeFile(path, encodeSettings(settings).substr(0, 8 + 16));
  Settings read;
  EXPECT_FALSE(file.read(read).hasWindow);
  EXPECT_EQ(encodeSettings(read).substr(4128), encodeSettings({}).substr(4128));
}

TEST_F(SettingsFileTest, AnInfiniteVersionIsNewerAndNoNumberIsOld)
{
  auto bytes = encodeSettings({});
  bytes.replace(0, 8, bigEndian(std::numeric_limits<double>::infinity()));
  tests::writeFile(path, bytes);
  Settings settings;
  EXPECT_TRUE(file.read(settings).newerVersion);
  bytes.replace(0, 8, bigEndian(std::numeric_limits<double>::quiet_NaN()));
  tests::writeFile(path, bytes);
  EXPECT_FALSE(file.read(settings).newerVersion);
}

TEST_F(SettingsFileTest, AnEmptyFileLeavesTheDefaultsStanding)
{
  tests::writeFile(path, "");
  Settings read;
  const auto result = file.read(read);
  EXPECT_FALSE(result.hasWindow);
  EXPECT_FALSE(result.newerVersion);
  EXPECT_EQ(encodeSettings(read), encodeSettings({}));
  EXPECT_EQ(tests::readFile(path), "") << "only a missing file is written at once";
}

TEST_F(SettingsFileTest, AFileThatCantBeWrittenStaysWholeWithoutAWord)
{
  Settings settings;
  settings.preferences.tolerance = 0.5;
  file.write(settings);
  const auto before = tests::readFile(path);
  const SettingsFile folderInItsPlace(folder.path());
  folderInItsPlace.write(settings);
  const SettingsFile nowhere(folder / "missing/nalt.cfg");
  nowhere.write(settings);
  Settings read;
  EXPECT_FALSE(nowhere.read(read).newerVersion);
  EXPECT_EQ(encodeSettings(read), encodeSettings({}));
  EXPECT_EQ(tests::readFile(path), before);
}

TEST_F(SettingsFileTest, EveryPrefixOfAFileIsHarmless)
{
  const auto whole = encodeSettings({});
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    Settings read;
    decodeSettings(std::string_view(whole).substr(0, length), read);
    EXPECT_EQ(encodeSettings(read), whole) << length;
  }
}

TEST_F(SettingsFileTest, DamagedValuesKeepTheDefaults)
{
  Settings broken;
  broken.preferences.tolerance = -1;
  broken.preferences.viewportCount = 9;
  broken.preferences.parameterPrecision = 400;
  broken.viewport.thickLineNumber = 0;
  auto bytes = encodeSettings(broken);
  bytes.replace(4128 + 64, 8, std::string(8, '\xff')); // gizmo size: not a number
  Settings read;
  decodeSettings(bytes, read);
  EXPECT_EQ(read.preferences.tolerance, 0.0001);
  EXPECT_EQ(read.preferences.viewportCount, 1);
  EXPECT_EQ(read.preferences.parameterPrecision, 12);
  EXPECT_EQ(read.preferences.gizmoSize, 75.0);
  EXPECT_EQ(read.viewport.thickLineNumber, 10);
}

TEST_F(SettingsFileTest, RecentPathsAreCutAt1023Characters)
{
  Settings settings;
  settings.window.recentFiles = {std::string(1023, 'a'), std::string(1024, 'b')};
  file.write(settings);
  Settings read;
  file.read(read);
  EXPECT_EQ(read.window.recentFiles[0], std::string(1023, 'a'));
  EXPECT_EQ(read.window.recentFiles[1], std::string(1023, 'b'));
}

TEST_F(SettingsFileTest, WithoutAPathNothingHappens)
{
  Settings settings;
  const SettingsFile nowhere("");
  nowhere.write(settings);
  EXPECT_FALSE(nowhere.read(settings).hasWindow);
}

} // namespace
} // namespace nalt
