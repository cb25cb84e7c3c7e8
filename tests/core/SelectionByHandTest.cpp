#include "core/Model.h"
#include "core/ScriptRecorder.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/core/RecordingShell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LineRecorder : public ScriptRecorder {
public:
  bool isOn = true;
  bool withSelections = true;
  std::vector<std::string> comments;
  std::vector<std::string> lines;

  bool recording() const override { return isOn; }
  bool implicitSelections() const override { return isOn && withSelections; }
  int lineCount() const override { return static_cast<int>(lines.size()); }
  void appendComment(const std::string& text) override
  {
    if (!text.empty()) comments.push_back(text);
  }
  void appendScript(const std::string& text) override
  {
    if (!text.empty()) lines.push_back(text);
  }
  void cutBackTo(int) override {}
};

class ShellWithRecorder : public RecordingShell {
public:
  LineRecorder recorder;
  ScriptRecorder* scriptRecorder() override { return &recorder; }
};

class SelectionByHand : public testing::Test {
protected:
  SelectionByHand() : before_(Shell::install(&shell))
  {
    model->createEmpty();
    first = addGroup();
    second = addGroup();
    byHand.byHand = true;
  }
  ~SelectionByHand() override
  {
    model.reset();
    Shell::install(before_);
  }
  fltapi::GroupRecord* addGroup()
  {
    auto* group = model->fltFile()->create<fltapi::GroupRecord>();
    model->fltFile()->header()->addChild(group, /*append=*/true);
    group->assignUniqueName();
    return group;
  }

  ShellWithRecorder shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 100, 100);
  fltapi::GroupRecord* first = nullptr;
  fltapi::GroupRecord* second = nullptr;
  SelectionChange byHand;

private:
  Shell* before_;
};

} // namespace

TEST_F(SelectionByHand, IsRecordedAsTheNamesOfWhatIsSelectedAfterwards)
{
  auto& selections = model->selections();
  selections.select(selectionOf(*first), byHand);
  selections.add(*selectionOf(*second), byHand);
  selections.remove(*selectionOf(*first), byHand);
  const auto one = "\"" + first->getName() + "\", ";
  const auto two = "\"" + second->getName() + "\", ";
  EXPECT_THAT(shell.recorder.lines, ElementsAre("nalt.selectByName(" + one + "true, false)",
                                                "nalt.selectByName(" + one + two + "true, false)",
                                                "nalt.selectByName(" + two + "true, false)"));
  ASSERT_FALSE(shell.recorder.comments.empty());
  EXPECT_THAT(shell.recorder.comments.front(),
              testing::HasSubstr("-- Selects all nodes with at least one specific name."));
}

TEST_F(SelectionByHand, ThatEndsEmptyIsRecordedAsSuch)
{
  model->selections().select(selectionOf(*first), byHand);
  model->selections().clear(byHand);
  EXPECT_EQ(shell.recorder.lines.back(), "nalt.selectNone()");
  EXPECT_EQ(shell.recorder.comments.back(), "--\n-- nalt.selectNone()\n-- Clears all selections.");
}

TEST_F(SelectionByHand, IsNotRecordedWithoutImplicitSelections)
{
  shell.recorder.withSelections = false;
  model->selections().select(selectionOf(*first), byHand);
  model->selections().clear(byHand);
  EXPECT_THAT(shell.recorder.lines, IsEmpty());
  EXPECT_THAT(shell.recorder.comments, IsEmpty());
  EXPECT_EQ(model->commandStack().undoCommands().size(), 2U);
}

} // namespace nalt
