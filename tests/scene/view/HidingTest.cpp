#include "tests/scene/view/SmallScene.h"

#include "core/selection/SelectOperations.h"
#include "scene/image/ModUserData.h"
#include "scene/view/ViewportCount.h"

namespace nalt {
namespace {

class HidingTest : public SmallScene {
protected:
  static bool isShown(const fltapi::PrimNodeRecord& node, const Viewport& in)
  {
    return (ModUserData::nodeMaskOf(node) & in.bits()) != 0;
  }
};

TEST_F(HidingTest, HiddenPolygonsComeBackWhenTheyAreUnhidden)
{
  select(*first);
  pick("Hide Selected");
  EXPECT_FALSE(isShown(*first, *view));
  EXPECT_TRUE(isShown(*second, *view));
  pick("Unhide Selected");
  EXPECT_TRUE(isShown(*first, *view));
}

TEST_F(HidingTest, IsolatingHidesEverythingElseUntilAllIsUnhidden)
{
  select(*first);
  pick("Isolate Selected");
  EXPECT_TRUE(isShown(*first, *view));
  EXPECT_TRUE(isShown(*object, *view));
  EXPECT_FALSE(isShown(*second, *view));
  pick("Unhide All");
  EXPECT_TRUE(isShown(*second, *view));
}

TEST_F(HidingTest, WhatIsHiddenInOneViewportStaysInTheOthers)
{
  changeViewportCount(*model, 2);
  view = viewport(1);
  select(*first);
  pick("Hide Selected");
  EXPECT_FALSE(isShown(*first, *viewport(1)));
  EXPECT_TRUE(isShown(*first, *viewport(0)));
}

TEST_F(HidingTest, ASelectedCornerStandsForItsPolygon)
{
  select(*first);
  ASSERT_TRUE(convertSelection(*model, SelectionMode::vertex, false));
  pick("Hide Selected");
  EXPECT_FALSE(isShown(*first, *view));
  EXPECT_TRUE(isShown(*second, *view));
}

TEST_F(HidingTest, NothingSelectedHidesNothing)
{
  pick("Hide Selected");
  pick("Isolate Selected");
  EXPECT_TRUE(isShown(*first, *view));
}

TEST_F(HidingTest, HidingIsNoEdit)
{
  model->setDirty(false);
  select(*first);
  pick("Hide Selected");
  EXPECT_TRUE(model->commandStack().undoCommands().empty());
  EXPECT_FALSE(model->isDirty());
}

TEST_F(HidingTest, FitToSelectionFramesWhatIsSelected)
{
  select(*first);
  const CameraPose before = view->camera().pose();
  pick("Fit To Selection");
  const CameraPose now = view->camera().pose();
  EXPECT_NEAR(now.centre.x(), 2.0, 1e-9);
  EXPECT_NEAR(now.centre.y(), 2.0, 1e-9);
  EXPECT_NE(now.distance, before.distance);
  EXPECT_EQ(now.orientation, before.orientation);

  selectNone(*model, false);
  CameraPose far = now;
  far.distance = 321.0;
  view->camera().setPose(far);
  pick("Fit To Selection");
  EXPECT_EQ(view->camera().pose().distance, 321.0);
}

} // namespace
} // namespace nalt
