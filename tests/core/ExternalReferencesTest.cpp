#include "core/ExternalReferences.h"

#include "core/Externals.h"
#include "core/Model.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/Host.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace nalt {

namespace {

using fltapi::ExternalRecord;
using fltapi::FltFile;

/// Opens models without the content of their references.
class NoExternals : public fltapi::Host {
public:
  bool loadsExternals() const override { return loads; }
  void warning(const std::string& text) override { warnings.push_back(text); }

  bool loads = true;
  std::vector<std::string> warnings;
};

/// A model that refers to "wheel.flt" twice and to "door.flt" once.
class ExternalReferencesTest : public testing::Test {
protected:
  ExternalReferencesTest() : shellBefore_(Shell::install(&shell)), hostBefore_(fltapi::Host::install(&host))
  {
    for (const char* name : {"wheel.flt", "door.flt", "gate.flt"})
      writeModel(name, {});
    writeModel("car.flt", {"wheel.flt", "wheel.flt", "door.flt"});
  }
  ~ExternalReferencesTest() override
  {
    model.reset();
    fltapi::Host::install(hostBefore_);
    Shell::install(shellBefore_);
  }

  void writeModel(const std::string& name, const std::vector<std::string>& references) const
  {
    const osg::ref_ptr<FltFile> file = new FltFile;
    file->initNew();
    auto* group = file->create<fltapi::GroupRecord>();
    file->header()->addChild(group, /*append=*/true);
    for (const std::string& path : references) {
      auto* reference = file->create<ExternalRecord>();
      reference->set(ExternalRecord::fields.path, path);
      group->addChild(reference, /*append=*/true);
    }
    EXPECT_TRUE(file->save(folder / name));
  }

  void open()
  {
    model = std::make_unique<Model>(0, 0, 0, 0);
    ASSERT_TRUE(model->load(folder / "car.flt"));
    model->sceneRoot();
  }

  /// Loads the content of the references to `path` anew.
  bool load(const char* path)
  {
    dropExternals(*model, {path});
    const bool complete = readExternals(*model, {path});
    showExternals(*model);
    return complete;
  }

  std::string state() const
  {
    std::string text;
    for (const auto& info : externalReferencesOf(*model))
      text += info.path + " " + std::to_string(info.references) + (info.loaded ? " loaded" : " empty") + "; ";
    return text;
  }

  tests::TempFolder folder;
  RecordingShell shell;
  NoExternals host;
  std::unique_ptr<Model> model;

private:
  Shell* shellBefore_;
  fltapi::Host* hostBefore_;
};

} // namespace

TEST_F(ExternalReferencesTest, AreListedByPathWithHowOftenTheyAreUsed)
{
  open();
  EXPECT_EQ(state(), "door.flt 1 loaded; wheel.flt 2 loaded; ");
  EXPECT_EQ(externalReferencesOf(*model)[0].foundPath, folder / "door.flt");
}

TEST_F(ExternalReferencesTest, UnloadingTakesTheContentOutOfDocumentAndScene)
{
  open();
  auto& reference = static_cast<ExternalRecord&>(
      *model->fltFile()->header()->findDescendants(ExternalRecord::code, /*followInstances=*/true).front());
  const osg::ref_ptr<FltFile> content = reference.referencedFile();
  const auto& group = *content->header()->primaryChildAt(0);
  ASSERT_TRUE(model->sync()->nodeOf(group));
  dropExternals(*model, {"wheel.flt"});
  EXPECT_EQ(state(), "door.flt 1 loaded; wheel.flt 2 empty; ");
  EXPECT_EQ(reference.primaryChildCount(), 0);
  EXPECT_FALSE(model->sync()->nodeOf(group));
  EXPECT_FALSE(model->isDirty());
}

TEST_F(ExternalReferencesTest, AreLoadedOnDemandWherePreferencesLeaveThemOut)
{
  host.loads = false;
  open();
  EXPECT_EQ(state(), "door.flt 1 empty; wheel.flt 2 empty; ");
  EXPECT_TRUE(load("wheel.flt"));
  EXPECT_EQ(state(), "door.flt 1 empty; wheel.flt 2 loaded; ");
}

TEST_F(ExternalReferencesTest, AMissingFileIsAWarningAndTheReferenceStaysEmpty)
{
  open();
  std::filesystem::remove(folder / "door.flt");
  EXPECT_FALSE(load("door.flt"));
  EXPECT_EQ(state(), "door.flt 1 empty; wheel.flt 2 loaded; ");
  EXPECT_THAT(host.warnings, testing::ElementsAre("Failed reading external reference door.flt"));
}

TEST_F(ExternalReferencesTest, ChangesLetGoOfSelectionAndCommands)
{
  open();
  ASSERT_TRUE(selectAll(*model, SelectionMode::group, /*undoable=*/true));
  ASSERT_FALSE(model->commandStack().undoCommands().empty());
  dropExternals(*model, {"wheel.flt"});
  EXPECT_TRUE(model->selections().empty());
  EXPECT_TRUE(model->commandStack().undoCommands().empty());
  EXPECT_TRUE(model->commandStack().redoCommands().empty());
}

TEST_F(ExternalReferencesTest, CanBeLedToAnotherFile)
{
  open();
  EXPECT_TRUE(redirectExternals(*model, "wheel.flt", "gate.flt"));
  EXPECT_EQ(state(), "door.flt 1 loaded; gate.flt 2 empty; ");
  EXPECT_TRUE(load("gate.flt"));
  EXPECT_EQ(state(), "door.flt 1 loaded; gate.flt 2 loaded; ");
  EXPECT_TRUE(model->isDirty());
}

TEST_F(ExternalReferencesTest, APathThatDoesNotFitIntoTheRecordChangesNothing)
{
  open();
  EXPECT_FALSE(redirectExternals(*model, "wheel.flt", std::string(200, 'x')));
  EXPECT_FALSE(redirectExternals(*model, "wheel.flt", "wheel.flt"));
  EXPECT_FALSE(redirectExternals(*model, "none.flt", "gate.flt"));
  EXPECT_EQ(state(), "door.flt 1 loaded; wheel.flt 2 loaded; ");
  EXPECT_FALSE(model->isDirty());
}

} // namespace nalt
