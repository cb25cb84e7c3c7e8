#include "core/Model.h"
#include "tests/core/RecordingShell.h"

#include <FL/Fl_Box.H>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace nalt {

namespace {

class Panel : public Fl_Widget, public VPBase {
public:
  explicit Panel(bool draws, int* alive = nullptr) : Fl_Widget(0, 0, 10, 10), draws_(draws), alive_(alive)
  {
    if (alive_) ++*alive_;
  }
  ~Panel() override
  {
    if (alive_) --*alive_;
  }
  void draw() override {}
  Fl_Widget& widget() override { return *this; }
  bool drawsScene() const override { return draws_; }
  void bind(Model& model, std::uint32_t bit) override
  {
    boundTo = &model;
    bits.push_back(bit);
    gizmos = model.switches().gizmos;
  }
  void unbind() override { boundTo = nullptr; }
  void setActive(bool isActive) override { active = isActive; }

  Model* boundTo = nullptr;
  std::vector<std::uint32_t> bits;
  bool active = false;
  bool gizmos = false;

private:
  bool draws_;
  int* alive_;
};

class ModelTest : public testing::Test {
protected:
  ModelTest() : before_(Shell::install(&shell)) {}
  ~ModelTest() override
  {
    model.reset();
    Shell::install(before_);
  }

  Panel& addPanel(bool draws)
  {
    auto* panel = new Panel(draws, &panels);
    model->add(panel);
    return *panel;
  }

  RecordingShell shell;
  int panels = 0;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 100, 100);

private:
  Shell* before_;
};

} // namespace

TEST_F(ModelTest, IsNeverAChildOfTheGroupThatHappensToBeOpen)
{
  Fl_Group open(0, 0, 50, 50);
  const Model other(0, 0, 10, 10);
  EXPECT_EQ(open.children(), 0);
  EXPECT_EQ(Fl_Group::current(), &open);
  open.end();
}

TEST_F(ModelTest, DirtyPutsAStarOnTheTabAndTellsTheShell)
{
  model->createEmpty();
  model->setPath("/models/a.flt");
  model->nameTab({});
  EXPECT_EQ(model->tabText(), "a.flt");
  model->setDirty(true);
  EXPECT_EQ(model->tabText(), "a.flt*");
  model->setDirty(true);
  EXPECT_EQ(model->tabText(), "a.flt*");
  EXPECT_EQ(shell.documentChanges, 2);
  model->setDirty(false);
  EXPECT_EQ(model->tabText(), "a.flt");
  EXPECT_EQ(model->labelsize(), 11);
}

TEST_F(ModelTest, WithoutADocumentTheTabIsEmpty)
{
  model->setPath("/models/a.flt");
  model->nameTab({});
  model->setDirty(false);
  EXPECT_EQ(model->tabText(), "");
}

TEST_F(ModelTest, IsNewUntilItIsClean)
{
  model->createEmpty();
  EXPECT_TRUE(model->isNew());
  model->setDirty(true);
  EXPECT_TRUE(model->isNew());
  model->setDirty(false);
  EXPECT_FALSE(model->isNew());
}

TEST_F(ModelTest, ANameInUseGetsANumberAndKeepsItsStar)
{
  model->createEmpty();
  model->setPath("/other/a.flt");
  model->setDirty(true);
  model->nameTab({"a.flt"});
  EXPECT_EQ(model->tabText(), "a.flt <2>*");
}

TEST_F(ModelTest, EveryChildTakesABitThoughOnlyPanelsGetIt)
{
  model->createEmpty();
  Panel& first = addPanel(true);
  Panel& tree = addPanel(false);
  model->begin();
  new Fl_Box(0, 0, 5, 5);
  model->end();
  Panel& second = addPanel(true);
  model->bindViewports();
  EXPECT_EQ(first.bits, std::vector<std::uint32_t>{1});
  EXPECT_EQ(tree.bits, std::vector<std::uint32_t>{2});
  EXPECT_EQ(second.bits, std::vector<std::uint32_t>{8});
  EXPECT_EQ(model->viewports(), (std::vector<VPBase*>{&first, &second}));
  model->bindViewports();
  EXPECT_EQ(model->viewports().size(), 2U);
}

TEST_F(ModelTest, BitsComeRoundAfterThirtyTwoChildren)
{
  for (int i = 0; i < 33; ++i)
    addPanel(true);
  model->bindViewports();
  EXPECT_EQ(dynamic_cast<Panel*>(model->viewports()[31])->bits.front(), 0x80000000U);
  EXPECT_EQ(dynamic_cast<Panel*>(model->viewports()[32])->bits.front(), 1U);
}

TEST_F(ModelTest, OnlyOnePanelIsActive)
{
  Panel& first = addPanel(true);
  Panel& second = addPanel(true);
  model->bindViewports();
  model->setActiveViewport(&first);
  EXPECT_TRUE(first.active);
  model->setActiveViewport(&second);
  EXPECT_FALSE(first.active);
  EXPECT_TRUE(second.active);
  EXPECT_EQ(shell.activeViewportChanges, 2);
  model->setActiveViewport(&second);
  EXPECT_TRUE(second.active);
  EXPECT_EQ(shell.activeViewportChanges, 3) << "something else may have had the keys meanwhile";
}

TEST_F(ModelTest, RemovedViewportsForgetTheModel)
{
  Panel& kept = addPanel(true);
  addPanel(true);
  model->bindViewports();
  model->setActiveViewport(&kept);
  model->removeViewport(&kept, /*destroy=*/false);
  EXPECT_EQ(kept.boundTo, nullptr);
  EXPECT_EQ(model->activeViewport(), nullptr);
  EXPECT_EQ(model->viewports().size(), 1U);
  EXPECT_EQ(panels, 2);
  model->removeAllViewports(/*destroy=*/true);
  EXPECT_EQ(panels, 1);
  EXPECT_TRUE(model->viewports().empty());
  delete &kept;
}

TEST_F(ModelTest, SwitchesReachEveryPanel)
{
  Panel& panel = addPanel(true);
  DisplaySwitches switches;
  switches.gizmos = false;
  model->bindViewports();
  EXPECT_TRUE(panel.gizmos);
  model->setSwitches(switches);
  EXPECT_FALSE(panel.gizmos);
}

} // namespace nalt
