#include "scene/image/Sync.h"

#include "fltapi/AllRecords.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/support/SampleFiles.h"

#include <gtest/gtest.h>

using namespace nalt;
using namespace nalt::tests;

namespace {

void show(const std::string& ending, const std::string& picture, const osg::Vec3d& direction)
{
  const auto path = sampleFile(ending);
  if (path.empty()) GTEST_SKIP() << "the sample models aren't there";
  const auto view = OffscreenView::create(640, 480);
  if (!view) GTEST_SKIP() << "no OpenGL without a display";
  const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
  ASSERT_TRUE(file->load(path));
  Sync sync(*file);
  sync.translateAll();
  view->setScene(sync.root());
  view->lookAlong(direction, {0, 0, 1});
  view->draw();
  view->save(picture);
  EXPECT_GT(view->coverage(), 0.02);
}

} // namespace

TEST(Samples, TankIsDrawn)
{
  show("t72-tank_des.flt", "tank", {1, 1, -0.6});
}

TEST(Samples, ShipIsDrawn)
{
  show("ddg-51.flt", "ship", {1, 1, -0.6});
}
