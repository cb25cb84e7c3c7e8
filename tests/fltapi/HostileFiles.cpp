// Files that no sound program writes: each loads, or is refused with a message, and neither takes long.
#include "tests/fltapi/support/HostileFiles.h"
#include "fltapi/AllRecords.h"
#include "fltapi/visitors/VertexVisitors.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"
#include "tests/support/ProcessorTime.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <malloc.h>
#include <random>
#include <sys/stat.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// What the program does with every document: look at it, copy it, save it, load it again.
void use(Workbench& bench, FltFile& file)
{
  for (const int version : {1570, 1620}) {
    // What an old version can't hold is gone after the first save, and an empty level after the second.
    const auto saved = bench.roundTrip(bench.save(file, version), version);
    EXPECT_TRUE(sameBytes(bench.roundTrip(saved, version), saved)) << "in version " << version;
  }
  const osg::ref_ptr<FltFile> copy = new FltFile(file);
  EXPECT_TRUE(sameBytes(bench.save(*copy), bench.save(file)));
  file.header()->center();
  file.header()->findDescendants(opcodes::face, /*followInstances=*/false);
  if (auto* node = file.header()->firstPrimaryChild()) {
    EXPECT_TRUE(file.header()->isAncestorOf(*node));
    EXPECT_FALSE(node->isAncestorOf(*file.header()));
    const osg::ref_ptr<PrimNodeRecord> renamed = node->cloneTree(/*rename=*/true);
    EXPECT_TRUE(renamed);
  }
}

TEST(HostileFiles, loadOrAreRefusedWithAMessage)
{
  for (const auto& hostile : flt::hostileFiles()) {
    SCOPED_TRACE(hostile.name);
    Workbench bench;
    osg::ref_ptr<FltFile> file;
    EXPECT_LT(processorSeconds([&] { file = bench.tryToLoad(hostile.bytes); }), 2.0);
    if (hostile.loads) {
      EXPECT_EQ(file != nullptr, *hostile.loads) << testing::PrintToString(bench.host.warnings);
    }
    if (file) {
      EXPECT_LT(processorSeconds([&] { use(bench, *file); }), 5.0);
      continue;
    }
    auto messages = bench.host.errors;
    messages.insert(messages.end(), bench.host.warnings.begin(), bench.host.warnings.end());
    ASSERT_THAT(messages, Not(IsEmpty()));
    EXPECT_THAT(messages.back(), HasSubstr(hostile.message));
  }
}

/// Watches the heap while a file is read.
class HeapWatch : public RecordingHost {
public:
  void progress(double) override
  {
    if (calls_++ % 500 == 0) peak = std::max(peak, used());
  }
  static std::size_t used()
  {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
  }
  std::size_t peak = 0;

private:
  int calls_ = 0;
};

TEST(HostileFiles, madeOfNothingButHeadsTakeLittleMemory)
{
  constexpr std::size_t few = 4 << 20;
  for (const auto& hostile : flt::headsOfRecords(100000)) {
    const TempFolder folder;
    writeFile(folder / "heads.flt", hostile.bytes);
    HeapWatch watch;
    const auto before = HeapWatch::used();
    const osg::ref_ptr<FltFile> file = new FltFile;
    file->load(folder / "heads.flt");
    EXPECT_LT(watch.peak - std::min(watch.peak, before), few + 30 * hostile.bytes.size()) << hostile.name;
  }
}

/// A load fails, or what it kept is used like any document.
void expectSafe(const std::string& bytes)
{
  Workbench bench;
  if (const auto file = bench.tryToLoad(bytes)) {
    bench.save(*file, 1570);
    EXPECT_FALSE(bench.save(*file).empty());
  } else {
    EXPECT_FALSE(bench.host.errors.empty() && bench.host.warnings.empty());
  }
}

TEST(HostileFiles, cutOffAnywhereLoadOrAreRefused)
{
  for (const auto& [name, bytes] : flt::generatedFiles()) {
    SCOPED_TRACE(name);
    // The first bytes are headers and palettes, which all files have.
    const auto first = name == "every-kind" ? std::size_t{0} : bytes.size() - std::min<std::size_t>(bytes.size(), 600);
    const auto step = name == "every-kind" ? std::size_t{61} : std::size_t{7};
    for (auto length = first; length < bytes.size(); length += step)
      expectSafe(bytes.substr(0, length));
  }
}

TEST(HostileFiles, withChangedBytesLoadOrAreRefused)
{
  std::mt19937 random(4711);
  for (const auto& [name, bytes] : flt::generatedFiles()) {
    if (bytes.size() > 30000) continue;
    SCOPED_TRACE(name);
    for (int round = 0; round < 12; ++round) {
      auto changed = bytes;
      for (int i = 0; i < 3; ++i)
        changed[random() % changed.size()] = static_cast<char>(random());
      expectSafe(changed);
    }
  }
}

TEST(HostileFiles, thatAreNoFilesAreRefused)
{
  Workbench bench;
  std::filesystem::create_directory(bench.path("folder.flt"));
  ASSERT_EQ(mkfifo(bench.path("fifo.flt").c_str(), 0600), 0);
  std::filesystem::create_symlink(bench.path("nowhere.flt"), bench.path("dangling.flt"));
  for (const auto& path : {bench.path("folder.flt"), bench.path("fifo.flt"), bench.path("dangling.flt"),
                           bench.path("missing.flt"), std::string("/dev/zero"), std::string("/dev/null")}) {
    const osg::ref_ptr<FltFile> file = new FltFile;
    bench.host.errors.clear();
    EXPECT_FALSE(file->load(path));
    EXPECT_THAT(bench.host.errors, ElementsAre("Failed opening file " + path + " for reading."));
  }
  const osg::ref_ptr<FltFile> file = new FltFile;
  EXPECT_FALSE(file->load(""));
}

} // namespace
} // namespace fltapi
