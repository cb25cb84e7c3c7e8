// Real files, where they are to be found: what OpenSceneGraph's own reader sees in a file is what it sees in the saved
// one, and saving settles after the first time.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/PolygonSummary.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/Surroundings.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace fltapi {
namespace {

namespace fs = std::filesystem;
using namespace nalt::tests;
using testing::ElementsAre;
using testing::IsEmpty;

/// NALT_TEST_DATA, or the folder beside the sources where such files are usually kept.
fs::path sampleFolder()
{
  if (const char* folder = std::getenv("NALT_TEST_DATA")) return folder;
  return fs::path(sourceFolder) / "../shared/data";
}

class SampleFiles : public testing::Test {
protected:
  void SetUp() override
  {
    std::error_code none;
    for (const auto& entry : fs::recursive_directory_iterator(sampleFolder(), none)) {
      if (entry.path().extension() == ".flt") files.push_back(entry.path().string());
    }
    std::ranges::sort(files);
    if (files.empty()) {
      GTEST_SKIP() << "no .flt files in " << sampleFolder() << "; NALT_TEST_DATA may name a folder that has some";
    }
    testing::internal::CaptureStderr(); // some hold offsets that lead nowhere
  }
  void TearDown() override
  {
    if (!files.empty()) testing::internal::GetCapturedStderr();
  }
  osg::ref_ptr<FltFile> load(const std::string& path)
  {
    osg::ref_ptr<FltFile> file = new FltFile;
    EXPECT_TRUE(file->load(path)) << path << testing::PrintToString(bench.host.warnings);
    return file;
  }

  std::vector<std::string> files;
  Workbench bench;
};

TEST_F(SampleFiles, loadWithoutAnError)
{
  for (const auto& path : files) {
    load(path);
    EXPECT_THAT(bench.host.errors, IsEmpty()) << path;
  }
}

TEST_F(SampleFiles, areTheSameBytesWhenSavedAgain)
{
  for (const auto& path : files) {
    const auto file = load(path);
    for (const int version : {1570, 1580, 1600, 1620}) {
      const auto once = bench.save(*file, version);
      EXPECT_TRUE(sameBytes(bench.save(*file, version), once)) << path << " in version " << version;
      EXPECT_TRUE(sameBytes(bench.roundTrip(once, version), once)) << path << " in version " << version;
    }
  }
}

TEST_F(SampleFiles, keepTheirRecordsInTheirOwnVersion)
{
  for (const auto& path : files) {
    const auto bytes = readFile(path);
    const auto version = static_cast<int>(flt::bigEndian(bytes, 12, 4));
    if (version < 1570) continue;
    const auto saved = bench.save(*load(path), version);
    auto before = flt::recordsOf(bytes), after = flt::recordsOf(saved);
    // The vertices are laid out anew; headers before 15.8 come in several lengths.
    const auto laidOut = [](const flt::ListedRecord& record) {
      return isVertexOpcode(record.opcode) || record.opcode == opcodes::vertexPalette ||
             record.opcode == opcodes::vertexList || record.opcode == opcodes::header;
    };
    std::erase_if(before, laidOut);
    std::erase_if(after, laidOut);
    ASSERT_EQ(before.size(), after.size()) << path;
    for (std::size_t i = 0; i < before.size(); ++i)
      EXPECT_TRUE(before[i] == after[i]) << path << ", record " << i << testing::PrintToString(before[i])
                                         << testing::PrintToString(after[i]);
  }
}

TEST_F(SampleFiles, showOtherReadersTheSamePolygons)
{
  int saves = 0;
  for (const auto& path : files) {
    const auto original = polygonSummary(path);
    ASSERT_FALSE(original.empty()) << path;
    const auto file = load(path);
    for (const int version : {1570, 1620}) {
      // The other reader remembers files by their paths.
      const auto copy = bench.path(std::to_string(++saves) + ".flt");
      EXPECT_TRUE(file->save(copy, version));
      EXPECT_EQ(polygonSummary(copy), original) << path << " in version " << version;
    }
  }
}

// Generated files go the same way, so that the tests show it where there are no samples.
TEST(GeneratedFilesInOtherReaders, showTheSamePolygons)
{
  Workbench bench;
  for (const std::string name : {"version-1540", "version-1570", "version-1580", "version-1620", "nested-instances",
                                 "vertex-list-16384", "wide-switch"}) {
    writeFile(bench.path(name + ".flt"), flt::generatedFile(name));
    const auto original = polygonSummary(bench.path(name + ".flt"));
    const auto file = bench.load(flt::generatedFile(name));
    for (const int version : {1570, 1620}) {
      const auto copy = bench.path(name + std::to_string(version));
      EXPECT_TRUE(file->save(copy + ".flt", version));
      EXPECT_EQ(polygonSummary(copy + ".flt"), original) << name << " in version " << version;
    }
  }
}

} // namespace
} // namespace fltapi
