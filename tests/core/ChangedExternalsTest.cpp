#include "core/ChangedExternals.h"

#include "core/Model.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* question = "At least one external reference was changed on disk. Do you want to reload changed "
                                 "external references? Note that the command list will be erased.";

/// A document that refers to the file "part.flt" with one group in it.
class ChangedExternalsTest : public testing::Test {
protected:
  ChangedExternalsTest() : before_(Shell::install(&shell))
  {
    writePart({"first"});
    const osg::ref_ptr<fltapi::FltFile> whole = new fltapi::FltFile;
    whole->initNew();
    auto* external = whole->create<fltapi::ExternalRecord>();
    external->set(fltapi::ExternalRecord::fields.path, folder / "part.flt");
    whole->header()->addChild(external, /*append=*/true);
    EXPECT_TRUE(whole->save(folder / "whole.flt"));
    EXPECT_TRUE(model->load(folder / "whole.flt"));
  }
  ~ChangedExternalsTest() override
  {
    model.reset();
    Shell::install(before_);
  }
  /// Each time with a later time stamp, however coarse the clock of the disk is.
  void writePart(const std::vector<std::string>& groups)
  {
    const osg::ref_ptr<fltapi::FltFile> part = new fltapi::FltFile;
    part->initNew();
    for (const auto& name : groups) {
      auto* group = part->create<fltapi::GroupRecord>();
      part->header()->addChild(group, /*append=*/true);
      group->setName(name);
    }
    const auto path = folder / "part.flt";
    EXPECT_TRUE(part->save(path));
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::minutes(++writes_));
  }
  std::vector<std::string> shownGroups()
  {
    std::vector<std::string> names;
    auto* external = static_cast<fltapi::ExternalRecord*>(model->fltFile()->header()->primaryChildAt(0));
    if (!external->referencedFile()) return names;
    for (const auto* group : external->referencedFile()->header()->primaryChildren())
      names.push_back(group->getName());
    return names;
  }

  tests::TempFolder folder;
  RecordingShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);

private:
  Shell* before_;
  int writes_ = 0;
};

TEST_F(ChangedExternalsTest, UnchangedFilesAskNothing)
{
  EXPECT_THAT(shownGroups(), ElementsAre("first"));
  EXPECT_FALSE(offerReloadOfExternals(*model));
  EXPECT_THAT(shell.questions, IsEmpty());
}

TEST_F(ChangedExternalsTest, YesReadsThemAgainAndErasesTheCommands)
{
  model->sceneRoot();
  selectAll(*model, SelectionMode::external, true);
  writePart({"first", "second"});
  EXPECT_TRUE(offerReloadOfExternals(*model));
  EXPECT_THAT(shell.questions, ElementsAre(question));
  EXPECT_THAT(shownGroups(), ElementsAre("first", "second"));
  EXPECT_THAT(model->commandStack().undoCommands(), IsEmpty());
  EXPECT_TRUE(model->selections().empty());
  EXPECT_FALSE(model->isDirty());
  auto* external = static_cast<fltapi::ExternalRecord*>(model->fltFile()->header()->primaryChildAt(0));
  EXPECT_NE(model->sync()->nodeOf(*external->referencedFile()->header()->primaryChildAt(1)), nullptr);
  EXPECT_FALSE(offerReloadOfExternals(*model));
}

TEST_F(ChangedExternalsTest, NoKeepsThemUntilTheyChangeOnceMore)
{
  selectAll(*model, SelectionMode::external, true);
  shell.answer = Answer::no;
  writePart({"first", "second"});
  EXPECT_FALSE(offerReloadOfExternals(*model));
  EXPECT_THAT(shownGroups(), ElementsAre("first"));
  EXPECT_EQ(model->commandStack().undoCommands().size(), 1u);
  EXPECT_FALSE(offerReloadOfExternals(*model));
  EXPECT_EQ(shell.questions.size(), 1u);
  writePart({"third"});
  offerReloadOfExternals(*model);
  EXPECT_EQ(shell.questions.size(), 2u);
}

TEST_F(ChangedExternalsTest, ADeletedReferenceAsksNothing)
{
  selectAll(*model, SelectionMode::external, false);
  model->fltFile()->header()->removeChild(model->fltFile()->header()->primaryChildAt(0));
  writePart({"second"});
  EXPECT_FALSE(offerReloadOfExternals(*model));
  EXPECT_THAT(shell.questions, IsEmpty());
}

} // namespace
} // namespace nalt
