#include "tests/core/ModelFixture.h"

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectionByHand : public ModelFixture {
protected:
  SelectionByHand()
  {
    shell.recorder = &recorder;
    first = make<fltapi::GroupRecord>(header());
    second = make<fltapi::GroupRecord>(header());
    byHand.byHand = true;
  }

  RecordedText recorder;
  fltapi::GroupRecord* first = nullptr;
  fltapi::GroupRecord* second = nullptr;
  SelectionChange byHand;
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
  EXPECT_THAT(recorder.scripts, ElementsAre("nalt.selectByName(" + one + "true, false)",
                                            "nalt.selectByName(" + one + two + "true, false)",
                                            "nalt.selectByName(" + two + "true, false)"));
  ASSERT_FALSE(recorder.comments.empty());
  EXPECT_THAT(recorder.comments.front(), testing::HasSubstr("-- Selects all nodes with at least one specific name."));
}

TEST_F(SelectionByHand, ThatEndsEmptyIsRecordedAsSuch)
{
  model->selections().select(selectionOf(*first), byHand);
  model->selections().clear(byHand);
  EXPECT_EQ(recorder.scripts.back(), "nalt.selectNone()");
  EXPECT_EQ(recorder.comments.back(), "--\n-- nalt.selectNone()\n-- Clears all selections.");
}

TEST_F(SelectionByHand, IsNotRecordedWithoutImplicitSelections)
{
  recorder.withSelections = false;
  model->selections().select(selectionOf(*first), byHand);
  model->selections().clear(byHand);
  EXPECT_THAT(recorder.scripts, IsEmpty());
  EXPECT_THAT(recorder.comments, IsEmpty());
  EXPECT_EQ(model->commandStack().undoCommands().size(), 2U);
}

} // namespace nalt
