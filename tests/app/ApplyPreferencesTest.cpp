#include "app/dialogs/ApplyPreferences.h"

#include "app/DatabaseHost.h"
#include "app/Gui.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportLayout.h"

#include <gtest/gtest.h>

#include <memory>

namespace nalt {

namespace {

class Edit : public Command {
public:
  void undo() override {}
  void redo() override {}
  void replaceRecord(fltapi::Record&, fltapi::Record&) override {}
};

class ApplyPreferencesTest : public testing::Test {
protected:
  ApplyPreferencesTest() { Preferences::get() = Preferences(); }
  ~ApplyPreferencesTest() override { Preferences::get() = Preferences(); }

  static Viewport& viewport(Model& model, std::size_t i = 0)
  {
    return dynamic_cast<Viewport&>(*model.viewports().at(i));
  }

  Gui gui{/*headless=*/true};
  DatabaseHost host{gui};
  Model& model = *gui.newModel("untitled.flt");
};

} // namespace

TEST_F(ApplyPreferencesTest, ASmallerLimitShortensTheCommandListAtOnce)
{
  for (int i = 0; i < 5; ++i)
    model.commandStack().add(std::make_unique<Edit>());
  Preferences wanted;
  wanted.maxCommands = 2;
  applyPreferences(gui, wanted);
  EXPECT_EQ(model.commandStack().undoCommands().size(), 2U);
}

TEST_F(ApplyPreferencesTest, GizmosFollowInAllOpenModels)
{
  Model& other = *gui.newModel("untitled.flt");
  Preferences wanted;
  wanted.showGizmos = false;
  applyPreferences(gui, wanted);
  EXPECT_FALSE(model.switches().gizmos);
  EXPECT_FALSE(other.switches().gizmos);
}

TEST_F(ApplyPreferencesTest, TheCameraTakesTheSensitivityOver)
{
  createViewports(model, 1);
  const auto before = viewport(model).camera().speed().rotate;
  Preferences wanted;
  wanted.sensitivity.rotate = 100;
  applyPreferences(gui, wanted);
  EXPECT_GT(viewport(model).camera().speed().rotate, before);
}

TEST_F(ApplyPreferencesTest, OneViewportTakesItsPreferences)
{
  createViewports(model, 2);
  ViewportPreferences wanted;
  wanted.fieldOfView = 90;
  applyViewportPreferences(viewport(model, 1), wanted);
  EXPECT_EQ(viewport(model, 1).camera().lens().fieldOfView, 90);
  EXPECT_EQ(viewport(model, 0).camera().lens().fieldOfView, 60);
}

} // namespace nalt
