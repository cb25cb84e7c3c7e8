// Whole files through load and save: what comes out is what went in.
#include "fltapi/AllRecords.h"
#include "tests/fltapi/support/SameBytes.h"
#include "tests/fltapi/support/Workbench.h"

#include <gmock/gmock.h>

namespace fltapi {
namespace {

using namespace nalt::tests;
using flt::generatedFile;
using flt::opcodesOf;
using flt::outline;
using flt::recordsOf;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

TEST(GeneratedFiles, loadWithoutAnError)
{
  for (const auto& [name, bytes] : flt::generatedFiles()) {
    Workbench bench;
    EXPECT_TRUE(bench.tryToLoad(bytes)) << name << testing::PrintToString(bench.host.warnings);
    EXPECT_THAT(bench.host.errors, IsEmpty()) << name;
  }
}

TEST(GeneratedFiles, areTheSameBytesWhenSavedTwice)
{
  for (const auto& [name, bytes] : flt::generatedFiles()) {
    for (const int version : {1570, 1580, 1600, 1620}) {
      Workbench bench;
      const auto file = bench.load(bytes);
      const auto once = bench.save(*file, version);
      EXPECT_TRUE(sameBytes(bench.save(*file, version), once)) << name << " in version " << version;
      EXPECT_TRUE(sameBytes(bench.roundTrip(once, version), once)) << name << " in version " << version;
    }
  }
}

TEST(GeneratedFiles, comeBackRecordByRecord)
{
  // The others hold what a load leaves out or a save moves, which has tests of its own.
  for (const auto* name : {"every-kind",
                           "unknown-ancillaries",
                           "long-comment",
                           "wide-switch",
                           "nested-subfaces",
                           "replication",
                           "meshes",
                           "transform-chain",
                           "light-points",
                           "texture-mappings",
                           "shaders",
                           "names-in-palettes",
                           "trackplanes",
                           "long-uv-list",
                           "vertex-list-16382",
                           "vertex-list-16383",
                           "vertex-list-16384",
                           "vertex-list-32764",
                           "double-instance",
                           "version-1620"}) {
    Workbench bench;
    const auto bytes = generatedFile(name);
    const auto saved = bench.roundTrip(bytes);
    EXPECT_EQ(outline(saved), outline(bytes)) << name;
    const auto before = recordsOf(bytes), after = recordsOf(saved);
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
      EXPECT_TRUE(before[i] == after[i]) << name << ", record " << i << " was " << testing::PrintToString(before[i])
                                         << " and is " << testing::PrintToString(after[i]);
  }
}

} // namespace
} // namespace fltapi
