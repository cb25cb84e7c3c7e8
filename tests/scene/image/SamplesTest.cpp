#include "scene/image/Sync.h"

#include "fltapi/AllRecords.h"
#include "tests/scene/image/LogCapture.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/support/SampleFiles.h"

#include <gtest/gtest.h>
#include <osgDB/ReadFile>

#include <cstdlib>
#include <filesystem>

using namespace nalt;
using namespace nalt::tests;

namespace {

constexpr int width = 320;
constexpr int height = 240;
const osg::Vec3d direction(1, 1, -0.6);

bool isBackground(const osg::Vec4ub& pixel)
{
  const auto empty = OffscreenView::background();
  return pixel.r() == empty.r() && pixel.g() == empty.g() && pixel.b() == empty.b();
}

struct Difference {
  double silhouette = 0; ///< pixels that only one picture covers, as a share of those that either does
  double color = 0;      ///< mean over the pixels that both cover, 0 to 255
};

Difference compare(const OffscreenView& one, const OffscreenView& other)
{
  int onlyOne = 0;
  int both = 0;
  double sum = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto a = one.pixel(x, y);
      const auto b = other.pixel(x, y);
      if (isBackground(a) != isBackground(b)) ++onlyOne;
      if (isBackground(a) || isBackground(b)) continue;
      ++both;
      for (int i = 0; i < 3; ++i)
        sum += std::abs(a[i] - b[i]) / 3.0;
    }
  }
  return {.silhouette = static_cast<double>(onlyOne) / std::max(onlyOne + both, 1), .color = sum / std::max(both, 1)};
}

} // namespace

TEST(Samples, LookAsOpenSceneGraphsOwnReaderShowsThem)
{
  const auto files = sampleFiles();
  if (files.empty()) GTEST_SKIP() << "the sample models aren't there";
  const auto ours = OffscreenView::create(width, height);
  const auto theirs = OffscreenView::create(width, height);
  if (!ours || !theirs) GTEST_SKIP() << "no OpenGL without a display";
  for (int number = 0; const auto& path : files) {
    SCOPED_TRACE(path);
    const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
    file->setQuiet(true);
    ASSERT_TRUE(file->load(path));
    Sync sync(*file);
    sync.translateAll();
    ours->setScene(sync.root());
    ours->lookAlong(direction, {0, 0, 1});
    ours->draw();

    const LogCapture quiet; // it tells of every texture that isn't there
    const osg::ref_ptr<osgDB::Options> sameUnits = new osgDB::Options("noUnitsConversion");
    const auto reference = osgDB::readRefNodeFile(path, sameUnits);
    ASSERT_TRUE(reference);
    theirs->setScene(reference);
    theirs->lookAs(*ours);
    theirs->draw();

    const auto name = std::to_string(++number) + "-" + std::filesystem::path(path).stem().string();
    ours->save(name + "-ours");
    theirs->save(name + "-theirs");
    const auto difference = compare(*ours, *theirs);
    EXPECT_LT(difference.silhouette, 0.02);
    EXPECT_LT(difference.color, 15); // blended polygons of one geometry are not sorted by distance
    RecordProperty(name, std::to_string(difference.silhouette) + " " + std::to_string(difference.color));
    ours->setScene(nullptr);
    theirs->setScene(nullptr);
  }
}
