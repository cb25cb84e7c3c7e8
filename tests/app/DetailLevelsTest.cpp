#include "core/VPBase.h"
#include "scene/image/Sync.h"
#include "tests/app/GuiFixture.h"

#include <FL/Fl_Widget.H>

namespace nalt {

namespace {

/// Counts how often it is told of the model's state.
class BoundPanel : public Fl_Widget, public VPBase {
public:
  BoundPanel() : Fl_Widget(0, 0, 10, 10) {}
  void draw() override {}
  Fl_Widget& widget() override { return *this; }
  bool drawsScene() const override { return true; }
  void bind(Model&, std::uint32_t) override { ++bound; }
  void unbind() override {}
  void setActive(bool) override {}

  int bound = 0;
};

/// A model whose parts are exchanged at 10 and at 100 units from the viewer, and which is gone at 1000.
class DetailLevels : public GuiFixture {
protected:
  DetailLevels()
  {
    gui.newModel("untitled.flt");
    model = gui.currentModel();
    auto& file = *model->fltFile();
    constexpr double limits[] = {0, 10, 100, 1000};
    for (int i = 0; i < 3; ++i) {
      auto* lod = file.create<fltapi::LodRecord>();
      lod->set(fltapi::LodRecord::fields.switchOut, limits[i]);
      lod->set(fltapi::LodRecord::fields.switchIn, limits[i + 1]);
      file.header()->addChild(lod, /*append=*/true);
    }
    model->sceneRoot();
    panel = new BoundPanel; // the model owns it
    model->add(panel);
    model->bindViewports();
    panel->bound = 0;
  }
  int state() const { return model->sync()->lodState(); }

  Model* model = nullptr;
  BoundPanel* panel = nullptr;
};

} // namespace

TEST_F(DetailLevels, StartWithTheMost)
{
  ASSERT_EQ(model->sync()->stateCount(), 3);
  EXPECT_EQ(state(), 2);
}

TEST_F(DetailLevels, GoDownAndUpStepByStep)
{
  pick("&Less Detail");
  EXPECT_EQ(state(), 1);
  pick("&Less Detail");
  EXPECT_EQ(state(), 0);
  pick("&More Detail");
  EXPECT_EQ(state(), 1);
  EXPECT_EQ(panel->bound, 3) << "each change shows";
}

TEST_F(DetailLevels, GoToTheirEnds)
{
  pick("L&east Detail");
  EXPECT_EQ(state(), 0);
  pick("M&ost Detail");
  EXPECT_EQ(state(), 2);
}

TEST_F(DetailLevels, StopAtTheirEndsWithoutAnythingBeingDone)
{
  pick("&More Detail");
  pick("M&ost Detail");
  EXPECT_EQ(state(), 2);
  EXPECT_EQ(panel->bound, 0);
  pick("L&east Detail");
  panel->bound = 0;
  pick("&Less Detail");
  pick("L&east Detail");
  EXPECT_EQ(state(), 0);
  EXPECT_EQ(panel->bound, 0);
}

TEST_F(DetailLevels, StayWhereTheyAreOverUndo)
{
  pick("L&east Detail");
  gui.currentModel()->paletteIndices().setRgbColor({.r = 1}, /*undoable=*/true);
  model->commandStack().undo();
  EXPECT_EQ(state(), 0);
  model->commandStack().redo();
  EXPECT_EQ(state(), 0);
}

} // namespace nalt
