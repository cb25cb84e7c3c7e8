// What belongs to another file can be looked at and selected, and nothing here changes it.

#include "core/hierarchy/DeleteSelected.h"
#include "core/hierarchy/SetParent.h"
#include "core/hierarchy/Shift.h"
#include "core/selection/PivotCommand.h"
#include "core/selection/SelectOperations.h"
#include "tests/core/ModelFixture.h"
#include "tests/support/TempFolder.h"

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExternalContent : public ModelFixture {
protected:
  ExternalContent() : content(addExternal()), group(content.findChild<fltapi::GroupRecord>())
  {
    face = static_cast<fltapi::FaceRecord*>(group->primaryChildAt(0));
    own = make<fltapi::GroupRecord>(header());
    before = bytes();
  }

  /// What a save of the other file would write.
  std::string bytes() const
  {
    EXPECT_TRUE(content.file()->save(folder / "other.flt"));
    return tests::readFile(folder / "other.flt");
  }
  void select(const Selection& selection)
  {
    Selections all;
    all.add(selection);
    selections().select(all, {.undoable = false, .updatePivot = true, .script = {}, .comment = {}});
  }
  void expectUntouched()
  {
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(model->isDirty());
    EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
  }
  /// Each kind of element that can be selected of it.
  std::vector<std::unique_ptr<Selection>> everyKind() const
  {
    std::vector<std::unique_ptr<Selection>> all;
    all.push_back(selectionOf(content));
    all.push_back(selectionOf(*group));
    all.push_back(selectionOf(*face));
    all.push_back(all.back()->convert(SelectionMode::vertex));
    all.push_back(all[2]->convert(SelectionMode::edge));
    return all;
  }

  tests::TempFolder folder;
  fltapi::HeaderRecord& content;
  fltapi::GroupRecord* group;
  fltapi::FaceRecord* face = nullptr;
  fltapi::GroupRecord* own = nullptr;
  std::string before;
};

TEST_F(ExternalContent, IsNotDeletedWhateverIsSelectedOfIt)
{
  for (const auto& selection : everyKind()) {
    shell.messages.clear();
    select(*selection);
    EXPECT_TRUE(selections().containsExternal());
    deleteSelected(*model, /*undoable=*/true);
    EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't delete external records."));
    EXPECT_TRUE(selections().current().find(selection->mode())) << "it stays selected";
    expectUntouched();
  }
}

TEST_F(ExternalContent, StaysWhenOwnNodesAreDeletedWithIt)
{
  select(*selectionOf(*group));
  selections().add(*selectionOf(*face), {.undoable = false, .updatePivot = true, .script = {}, .comment = {}});
  shell.messages.clear();
  selections().add(*selectionOf(*own), {.undoable = false, .updatePivot = true, .script = {}, .comment = {}});
  deleteSelected(*model, /*undoable=*/true);
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't delete external records.")) << "one message for all";
  EXPECT_EQ(own->parent(), nullptr);
  EXPECT_EQ(bytes(), before);
  model->commandStack().undo();
  EXPECT_EQ(own->parent(), &header());
}

TEST_F(ExternalContent, GoesWithTheReferenceAndComesBackWithIt)
{
  select(*selectionOf(*content.parent()));
  deleteSelected(*model, /*undoable=*/true);
  EXPECT_THAT(shell.messages, IsEmpty()) << "the reference is the document's own";
  EXPECT_EQ(header().findChild<fltapi::ExternalRecord>(), nullptr);
  model->commandStack().undo();
  ASSERT_TRUE(header().findChild<fltapi::ExternalRecord>());
  EXPECT_EQ(header().findChild<fltapi::ExternalRecord>()->primaryChildAt(0), &content);
}

TEST_F(ExternalContent, IsNotShifted)
{
  const auto second = make<fltapi::GroupRecord>(content);
  second->setExternalFile(content.file());
  before = bytes();
  for (const auto shift : {Shift::farLeft, Shift::left, Shift::right, Shift::farRight}) {
    shell.messages.clear();
    select(*selectionOf(*second));
    EXPECT_FALSE(shiftSelected(*model, shift, /*undoable=*/true));
    EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't modify externally referenced geometry."));
    expectUntouched();
  }
}

TEST_F(ExternalContent, AndItsReferenceAreNoParents)
{
  for (auto* node : {static_cast<fltapi::PrimNodeRecord*>(group), static_cast<fltapi::PrimNodeRecord*>(face),
                     static_cast<fltapi::PrimNodeRecord*>(&content), content.parent()}) {
    shell.messages.clear();
    select(*selectionOf(*node));
    EXPECT_FALSE(setParent(*model, /*undoable=*/true));
    EXPECT_THAT(shell.messages, ElementsAre("WARNING: Can't set parent based on externally referenced selection."));
    EXPECT_EQ(model->currentParent(), &header());
    expectUntouched();
  }
}

TEST_F(ExternalContent, IsLeftOutWhereAWholeFileIsSearched)
{
  EXPECT_FALSE(selectAll(*model, SelectionMode::polygon, false));
  EXPECT_FALSE(selectVerticesByLocation(*model, 0, 0, false));
  EXPECT_FALSE(selectByNumberOfVertices(*model, 3, false, false));
  EXPECT_FALSE(selectNakedEdges(*model, false));
  NameSearch search;
  search.names = {face->getName()};
  EXPECT_FALSE(selectByName(*model, search, false));
  EXPECT_TRUE(selectAll(*model, SelectionMode::group, false));
  EXPECT_THAT(names(), ElementsAre(own->getName()));
}

TEST_F(ExternalContent, IsNotSelectedTogetherWithAReferenceThatShowsIt)
{
  auto* second = make<fltapi::ExternalRecord>(header());
  second->show(content.file(), "other.flt");
  select(*selectionOf(*face));
  NodeSelection references(SelectionMode::external);
  references.insert({content.parent()});
  references.insert({second});
  EXPECT_FALSE(selections().add(references));
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Recursive selection is not allowed."));
  EXPECT_THAT(names(), ElementsAre(face->getName()));
}

TEST_F(ExternalContent, CanBeLookedAt)
{
  select(*selectionOf(*face));
  EXPECT_EQ(selections().pivot(), osg::Vec3d(0.5, 0.5, 0));
  changePivot(*model, {1, 2, 3}, /*undoable=*/false);
  EXPECT_TRUE(convertSelection(*model, SelectionMode::vertex, false));
  EXPECT_EQ(selections().size(), 3U);
  EXPECT_TRUE(selectNakedEdges(*model, false));
  EXPECT_TRUE(convertSelection(*model, SelectionMode::external, false));
  EXPECT_THAT(names(), ElementsAre(content.parent()->getName()));
  expectUntouched();
}

} // namespace
} // namespace nalt
