#include "core/hierarchy/DeleteCommand.h"

#include "core/hierarchy/DeleteSelected.h"
#include "core/selection/SelectOperations.h"
#include "tests/core/ModelFixture.h"

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeleteCommandTest : public ModelFixture {
protected:
  DeleteCommandTest() : object(make<fltapi::ObjectRecord>(header())) {}

  fltapi::FaceRecord* makePentagon()
  {
    return makeFace(*object, {{0, 0, 0}, {2, 0, 0}, {3, 2, 0}, {1, 3, 0}, {0, 2, 0}});
  }
  static fltapi::VertexListRecord& listOf(const fltapi::FaceRecord& face)
  {
    return *face.findChild<fltapi::VertexListRecord>();
  }
  bool select(const std::vector<std::string>& wanted)
  {
    NameSearch search;
    search.names = wanted;
    return selectByName(*model, search, /*undoable=*/false);
  }
  void deleteThese(const std::vector<std::string>& wanted)
  {
    ASSERT_TRUE(select(wanted));
    deleteSelected(*model, /*undoable=*/true);
  }
  CommandStack& stack() { return model->commandStack(); }

  fltapi::ObjectRecord* object;
};

TEST_F(DeleteCommandTest, SaysWhatItDoesInEveryText)
{
  makePentagon();
  deleteThese({"p1"});
  ASSERT_EQ(stack().undoCommands().size(), 1U);
  const auto& command = *stack().undoCommands().back();
  EXPECT_EQ(command.name(), "Delete");
  EXPECT_EQ(command.scriptText(), "nalt.delete()");
  EXPECT_EQ(command.commentText(), "--\n-- nalt.delete()\n-- Deletes the currently selected nodes.");
}

TEST_F(DeleteCommandTest, NodesComeBackToTheirPlacesWithTheirNames)
{
  auto* first = makePentagon();
  auto* second = makePentagon();
  auto* third = makePentagon();
  deleteThese({"p1", "p3"});
  EXPECT_EQ(object->primaryChildCount(), 1);
  EXPECT_FALSE(model->fltFile()->isNameTaken("p3"));
  stack().undo();
  ASSERT_EQ(object->primaryChildCount(), 3);
  EXPECT_EQ(object->primaryChildAt(0), first);
  EXPECT_EQ(object->primaryChildAt(1), second);
  EXPECT_EQ(object->primaryChildAt(2), third);
  EXPECT_EQ(third->getName(), "p3");
  EXPECT_TRUE(model->fltFile()->isNameTaken("p3"));
  EXPECT_THAT(names(), ElementsAre("p1", "p3"));
  EXPECT_TRUE(model->isDirty());
}

TEST_F(DeleteCommandTest, AParentThatWentAwayIsTheHeaderAgainAfterUndo)
{
  makePentagon();
  model->setCurrentParent(object);
  deleteThese({object->getName()});
  EXPECT_EQ(model->currentParent(), &header());
  stack().undo();
  EXPECT_EQ(model->currentParent(), &header());
}

TEST_F(DeleteCommandTest, CornersThatNoListTakesAreToldOfAndTheRestComesBack)
{
  auto* face = makePentagon();
  const osg::ref_ptr<fltapi::Record> ofNoFile =
      fltapi::makeRecord(fltapi::defaultBuffer(fltapi::VertexListRecord::code));
  auto* lost = static_cast<fltapi::VertexListRecord*>(ofNoFile.get());
  fltapi::VertexListRecord::Vertices corners;
  for (int i = 0; i < 4; ++i)
    corners.emplace_back(model->fltFile()->create<fltapi::VertexRecord>());
  lost->setVertices(corners);
  auto command = std::make_unique<DeleteCommand>(*model);
  command->addListChange(*lost);
  command->setRemaining(*lost, {true, false, true, false}); // one in the middle and the last one
  command->addListChange(listOf(*face));
  command->setRemaining(listOf(*face), {false, true, true, true, true});
  command->redo();
  stack().add(std::move(command));
  EXPECT_EQ(lost->vertexCount(), 2);
  EXPECT_EQ(face->vertexCount(), 4);

  stack().undo();
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: DeleteCommand::undo: Failed to insert vertex",
                                          "WARNING: DeleteCommand::undo: Failed to add vertex"));
  EXPECT_EQ(lost->vertexCount(), 2);
  EXPECT_EQ(face->vertexCount(), 5) << "the other list has its corner again";
  EXPECT_THAT(stack().undoCommands(), IsEmpty());
  EXPECT_EQ(stack().redoCommands().size(), 1U) << "the command changes sides all the same";
}

TEST_F(DeleteCommandTest, ReplacedRecordsTakeTheirPlacesInTheCommand)
{
  auto* face = makePentagon();
  auto* other = makePentagon();
  deleteThese({"p1", "p2/V1"});
  // Somebody makes object, polygon and list anew, as a redo may have to.
  auto* newObject = make<fltapi::ObjectRecord>(header());
  auto* newOther = makeFace(*newObject, {});
  const osg::ref_ptr<fltapi::FaceRecord> newFace = model->fltFile()->create<fltapi::FaceRecord>();
  newFace->setName("young");
  const std::pair<fltapi::Record*, fltapi::Record*> pairs[] = {
      {object, newObject}, {face, newFace}, {other, newOther}, {&listOf(*other), &listOf(*newOther)}};
  for (const auto& [old, young] : pairs)
    stack().replaceRecord(*old, *young);
  stack().undo();
  EXPECT_EQ(newFace->parent(), newObject);
  EXPECT_EQ(newObject->primaryChildAt(0), newFace);
  EXPECT_EQ(newOther->vertexCount(), 5);
  EXPECT_EQ(listOf(*other).vertexCount(), 4);
}

TEST_F(DeleteCommandTest, EverythingCornersOfAPolygonThatChangedMeanwhileIsToldOf)
{
  auto* face = makePentagon();
  ASSERT_TRUE(select({"p1/V1"}));
  listOf(*face).removeVertex(listOf(*face).vertexAt(1));
  deleteSelected(*model, /*undoable=*/true);
  EXPECT_THAT(shell.messages, ElementsAre("WARNING: Parent vertex list not found when removing vertex."));
  EXPECT_THAT(stack().undoCommands(), IsEmpty());
  EXPECT_EQ(face->vertexCount(), 4);
}

} // namespace
} // namespace nalt
