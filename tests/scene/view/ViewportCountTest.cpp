#include "tests/scene/view/ViewportFixture.h"

#include "scene/view/ViewportCount.h"

#include <FL/Fl_Box.H>

namespace nalt {
namespace {

using ViewportCountTest = ViewportFixture;

TEST_F(ViewportCountTest, FormerViewportsKeepTheirSetupAndNewOnesTheCameraOfTheActiveOne)
{
  CameraPose pose;
  pose.centre.set(1, 2, 3);
  pose.distance = 7.0;
  view->camera().setPose(pose);
  view->setOrthographic(true);
  ViewStyle style = view->style();
  style.appearance = Appearance::wireframe;
  view->setStyle(style);
  view->showGrid(true);

  changeViewportCount(*model, 4);
  ASSERT_EQ(model->viewports().size(), 4U);
  EXPECT_EQ(viewport(0)->name(), "ul");
  EXPECT_TRUE(viewport(0)->isActive());
  EXPECT_TRUE(viewport(0)->orthographic());
  EXPECT_TRUE(viewport(0)->showsGrid());
  EXPECT_EQ(viewport(0)->style().appearance, Appearance::wireframe);
  EXPECT_EQ(viewport(3)->style().appearance, Appearance::scribed);
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_EQ(textOf(viewport(i)->camera().pose()), textOf(pose));
}

TEST_F(ViewportCountTest, FewerViewportsTakeTheWholeAreaAgain)
{
  changeViewportCount(*model, 3);
  changeViewportCount(*model, 1);
  ASSERT_EQ(model->viewports().size(), 1U);
  EXPECT_EQ(viewport(0)->w(), 800);
  EXPECT_EQ(viewport(0)->h(), 600);
  EXPECT_EQ(model->activeViewport(), viewport(0));
  EXPECT_EQ(model->children(), 2); // the viewport, and what keeps the seams inside
}

TEST_F(ViewportCountTest, AnotherNumberThanOneToFourIsOne)
{
  changeViewportCount(*model, 2);
  changeViewportCount(*model, 9);
  EXPECT_EQ(model->viewports().size(), 1U);
}

TEST_F(ViewportCountTest, TheSameNumberChangesNothing)
{
  changeViewportCount(*model, 1);
  EXPECT_EQ(viewport(0), view);
}

TEST_F(ViewportCountTest, EachHasItsOwnBit)
{
  changeViewportCount(*model, 4);
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(viewport(i)->bits() & bits, 0U);
    bits |= viewport(i)->bits();
  }
}

} // namespace
} // namespace nalt
