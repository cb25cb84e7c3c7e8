#include "scene/view/Viewport.h"

#include "tests/scene/view/ViewportFixture.h"

#include <osg/Geode>
#include <osg/Geometry>

#include <map>
#include <set>
#include <string>

namespace nalt {

namespace {

osg::ref_ptr<osg::Group> triangle(float size)
{
  osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array;
  for (const osg::Vec3f& vertex : {osg::Vec3f(0, 0, 0), osg::Vec3f(size, 0, 0), osg::Vec3f(0, size, 0)})
    vertices->push_back(vertex);
  osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
  geometry->setVertexArray(vertices);
  geometry->addPrimitiveSet(new osg::DrawArrays(GL_POLYGON, 0, 3));
  osg::ref_ptr<osg::Geode> geode = new osg::Geode;
  geode->addDrawable(geometry);
  osg::ref_ptr<osg::Group> group = new osg::Group;
  group->addChild(geode);
  return group;
}

using ViewportTest = ViewportFixture;

} // namespace

TEST_F(ViewportTest, AnEmptyModelLeavesTheCameraAndFollowsTheGrid)
{
  CameraPose pose;
  pose.centre.set(1, 2, 3);
  view->camera().setPose(pose);
  view->fitInView();
  EXPECT_EQ(textOf(view->camera().pose()), textOf(pose));
  EXPECT_EQ(view->camera().speed().pan, 1.0);
  EXPECT_EQ(view->camera().speed().zoom, 2.0);
}

TEST_F(ViewportTest, FitFramesTheModelAndLeavesTheNearClipOutOfTheSpeed)
{
  model->sceneRoot()->addChild(triangle(6.0F));
  view->updateCameraSpeed();
  const double radius = std::sqrt(72.0) / 2.0;
  EXPECT_NEAR(view->camera().speed().pan, radius + 0.1, 1e-6);
  view->fitInView();
  EXPECT_NEAR(view->camera().speed().pan, radius, 1e-6);
  EXPECT_NEAR(view->camera().speed().zoom, 2.0 * radius, 1e-6);
  EXPECT_NEAR(view->camera().pose().centre.x(), 3.0, 1e-6);
}

TEST_F(ViewportTest, AModelThatIsOpenedHasTheNearClipInItsSpeed)
{
  const double radius = std::sqrt(72.0) / 2.0;
  Model opened(0, 0, 800, 600);
  opened.createEmpty();
  opened.sceneRoot()->addChild(triangle(6.0F));
  createViewports(opened, 1);
  const auto* shown = dynamic_cast<Viewport*>(opened.viewports().front());
  EXPECT_NEAR(shown->camera().speed().pan, radius + 0.1, 1e-6);
  EXPECT_NEAR(shown->camera().speed().zoom, 2.0 * (radius + 0.1), 1e-6);
  EXPECT_NEAR(shown->camera().pose().centre.x(), 3.0, 1e-6) << "it is framed nevertheless";
}

TEST_F(ViewportTest, ANamedViewZoomsToTheModelWhenWanted)
{
  model->sceneRoot()->addChild(triangle(6.0F));
  CameraPose far;
  far.distance = 500.0;
  view->camera().setPose(far);
  Preferences::get().zoomViewpointToModel = false;
  view->viewAlong({0, 0, -1});
  EXPECT_NEAR(view->camera().pose().distance, 500.0, 1e-6);
  Preferences::get().zoomViewpointToModel = true;
  view->viewAlong({0, 0, -1});
  EXPECT_LT(view->camera().pose().distance, 30.0);
}

TEST_F(ViewportTest, StoredViewsGoFromModelToModel)
{
  CameraPose pose;
  pose.centre.set(1, 2, 3);
  pose.distance = 9.0;
  view->camera().setPose(pose);
  const std::string stored = view->storedView();

  Model other(0, 0, 400, 300);
  other.createEmpty();
  createViewports(other, 1);
  auto* otherView = dynamic_cast<Viewport*>(other.viewports().front());
  EXPECT_TRUE(otherView->recallView(stored));
  EXPECT_EQ(otherView->storedView(), stored);
  EXPECT_FALSE(otherView->recallView("1 2 3 4 5 6 7"));
  EXPECT_EQ(otherView->storedView(), stored);
}

TEST_F(ViewportTest, ANewSceneKeepsTheView)
{
  model->sceneRoot()->addChild(triangle(6.0F));
  CameraPose pose;
  pose.centre.set(1, 2, 3);
  pose.distance = 9.0;
  view->camera().setPose(pose);
  view->setOrthographic(true);
  model->createEmpty(); // another document with another scene
  model->bindViewports();
  EXPECT_EQ(view->scene().model(), model->sceneRoot());
  EXPECT_EQ(textOf(view->camera().pose()), textOf(pose));
  EXPECT_TRUE(view->orthographic());
}

TEST_F(ViewportTest, EachOneDrawsWhatHasItsBit)
{
  Model two(0, 0, 800, 600);
  two.createEmpty();
  createViewports(two, 2);
  auto* second = dynamic_cast<Viewport*>(two.viewports().at(1));
  second->sceneView().setState(new osg::State);
  second->sceneView().setViewport(0, 0, 800, 600);
  second->sceneView().cull();
  EXPECT_EQ(second->sceneView().getCullVisitor()->getTraversalMask(), 2U);
}

TEST_F(ViewportTest, StylesSwitchTheGroupsThatDraw)
{
  EXPECT_NE(view->scene().polygons()->getNodeMask(), 0U);
  EXPECT_NE(view->scene().lines()->getNodeMask(), 0U);
  ViewStyle style;
  style.appearance = Appearance::solid;
  view->setStyle(style);
  EXPECT_NE(view->scene().polygons()->getNodeMask(), 0U);
  EXPECT_EQ(view->scene().lines()->getNodeMask(), 0U);
  style.appearance = Appearance::wireframe;
  view->setStyle(style);
  EXPECT_EQ(view->scene().polygons()->getNodeMask(), 0U);
  EXPECT_NE(view->scene().lines()->getNodeMask(), 0U);
}

TEST_F(ViewportTest, TextureLayersCanBeLeftOut)
{
  const osg::StateSet* polygons = view->scene().polygons()->getStateSet();
  const auto isForcedOff = [polygons](unsigned unit) {
    return polygons->getTextureMode(unit, GL_TEXTURE_2D) ==
           unsigned(osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE);
  };
  EXPECT_FALSE(isForcedOff(0));
  DisplaySwitches switches;
  switches.textureLayers = 0x81;
  model->setSwitches(switches);
  EXPECT_FALSE(isForcedOff(0));
  EXPECT_TRUE(isForcedOff(1));
  EXPECT_FALSE(isForcedOff(7));
  ViewStyle style = view->style();
  style.texture = false;
  view->setStyle(style);
  EXPECT_TRUE(isForcedOff(0));
  EXPECT_TRUE(isForcedOff(7));
}

TEST_F(ViewportTest, BackfacesOfLinesAreShownOrForcedAway)
{
  const osg::StateSet* lines = view->scene().lines()->getStateSet();
  EXPECT_EQ(lines->getMode(GL_CULL_FACE), unsigned(osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE));
  ViewStyle style;
  style.wireframeBackface = false;
  view->setStyle(style);
  EXPECT_EQ(lines->getMode(GL_CULL_FACE), unsigned(osg::StateAttribute::ON | osg::StateAttribute::OVERRIDE));
}

TEST_F(ViewportTest, AThickLineNumberOfZeroIsRefused)
{
  ViewportPreferences preferences;
  preferences.thickLineNumber = 5;
  view->setPreferences(preferences);
  preferences.thickLineNumber = 0;
  view->setPreferences(preferences);
  EXPECT_EQ(view->preferences().thickLineNumber, 5);
}

TEST_F(ViewportTest, ClipDistancesCountOnlyWhenNotAutomatic)
{
  EXPECT_EQ(view->sceneView().getComputeNearFarMode(), osg::CullSettings::COMPUTE_NEAR_FAR_USING_BOUNDING_VOLUMES);
  EXPECT_EQ(view->sceneView().getCullingMode(), 1);
  ViewportPreferences preferences;
  preferences.automaticClip = false;
  preferences.nearClip = 2.0;
  view->setPreferences(preferences);
  EXPECT_EQ(view->sceneView().getComputeNearFarMode(), osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
  EXPECT_EQ(view->sceneView().getCullingMode(), 7);
  EXPECT_EQ(view->camera().lens().nearClip, 2.0);
}

TEST_F(ViewportTest, TheMenuHasFiftyFiveEntriesAndItsOwnCheckMarks)
{
  const auto items = viewportMenu(view, nullptr);
  EXPECT_EQ(items.size(), 55U + 1U); // and the end mark
  const auto valueOf = [&](const std::string& label) {
    for (const Fl_Menu_Item& item : viewportMenu(view, nullptr))
      if (item.label() && label == item.label()) return item.value() != 0;
    ADD_FAILURE() << "no entry " << label;
    return false;
  };
  EXPECT_TRUE(valueOf("Scribed"));
  EXPECT_TRUE(valueOf("Perspective"));
  EXPECT_TRUE(valueOf("Head Light"));
  view->setOrthographic(true);
  EXPECT_TRUE(valueOf("Orthographic"));
  EXPECT_FALSE(valueOf("Perspective"));
}

TEST_F(ViewportTest, EveryActionDoesWhatItsMarkSays)
{
  for (const ViewportAction& action : viewportActions()) {
    if (!action.run || !action.isOn) continue;
    SCOPED_TRACE(action.label);
    const bool before = action.isOn(*view);
    runViewportAction(action, *view, /*byKey=*/false);
    if (action.isChoice)
      EXPECT_TRUE(action.isOn(*view));
    else
      EXPECT_NE(action.isOn(*view), before);
  }
}

TEST_F(ViewportTest, TheAppearanceKeyGoesRound)
{
  const ViewportAction* scribed = nullptr;
  for (const ViewportAction& action : viewportActions())
    if (std::string(action.label) == "Scribed") scribed = &action;
  ASSERT_TRUE(scribed);
  for (const Appearance wanted : {Appearance::solid, Appearance::wireframe, Appearance::scribed}) {
    runViewportAction(*scribed, *view, /*byKey=*/true);
    EXPECT_EQ(view->style().appearance, wanted);
  }
}

TEST(ViewportActions, KeysAreUniqueApartFromChoicesThatShareOne)
{
  std::map<int, const ViewportAction*> seen;
  for (const ViewportAction& action : viewportActions()) {
    if (action.key == 0) continue;
    const auto [place, isNew] = seen.try_emplace(action.key, &action);
    if (isNew) continue;
    EXPECT_TRUE(action.runKey && action.runKey == place->second->runKey) << action.label;
  }
}

TEST(ViewportLayout, OnePanelIsTheWholeArea)
{
  for (const int count : {1, 0, 5, -3}) {
    const auto panels = panelLayout(10, 20, 301, 201, count);
    ASSERT_EQ(panels.size(), 1U);
    EXPECT_STREQ(panels[0].name, "ll");
    EXPECT_EQ(panels[0].w, 301);
    EXPECT_EQ(panels[0].h, 201);
  }
}

TEST(ViewportLayout, PanelsCoverTheAreaWithoutOverlap)
{
  for (const int count : {1, 2, 3, 4}) {
    std::set<std::pair<int, int>> pixels;
    std::size_t sum = 0;
    for (const PanelRect& panel : panelLayout(0, 0, 31, 21, count)) {
      for (int y = panel.y; y < panel.y + panel.h; ++y)
        for (int x = panel.x; x < panel.x + panel.w; ++x)
          pixels.insert({x, y});
      sum += static_cast<std::size_t>(panel.w * panel.h);
    }
    EXPECT_EQ(pixels.size(), 31U * 21U);
    EXPECT_EQ(sum, 31U * 21U);
  }
}

TEST_F(ViewportTest, PanelsKeepASizeThatCanBeTakenHoldOf)
{
  Model four(0, 0, 800, 600);
  four.createEmpty();
  createViewports(four, 4);
  four.resize(0, 0, 60, 50);
  for (VPBase* viewport : four.viewports()) {
    EXPECT_GE(viewport->widget().w(), 15);
    EXPECT_GE(viewport->widget().h(), 15);
  }
}

TEST(ViewportLayout, TheRemainderGoesToTheRightAndBelow)
{
  const auto panels = panelLayout(0, 0, 31, 21, 4);
  EXPECT_STREQ(panels[0].name, "ul");
  EXPECT_EQ(panels[0].w, 15);
  EXPECT_EQ(panels[1].w, 16);
  EXPECT_EQ(panels[2].h, 11);
  EXPECT_STREQ(panels[3].name, "lr");
}

} // namespace nalt
