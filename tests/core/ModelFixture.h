#pragma once

#include "core/Model.h"
#include "core/Preferences.h"
#include "core/ScriptRecorder.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/MakeRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace nalt {

using tests::make;
using tests::makeFace;

/// A script editor for tests: keeps what is recorded. It has one line for each script text.
class RecordedText : public ScriptRecorder {
public:
  bool isOn = true;
  bool withSelections = true;
  std::vector<std::string> comments;
  std::vector<std::string> scripts;

  bool recording() const override { return isOn; }
  bool implicitSelections() const override { return isOn && withSelections; }
  int lineCount() const override { return static_cast<int>(scripts.size()); }
  void appendComment(const std::string& text) override { comments.push_back(text); }
  void appendScript(const std::string& text) override { scripts.push_back(text); }
  void cutBackTo(int line) override { scripts.resize(static_cast<std::size_t>(line)); }
};

/// A fresh document, and a shell that keeps what is said about it. Nothing is recorded unless a test sets
/// `shell.recorder`.
class ModelFixture : public testing::Test {
protected:
  ModelFixture() : before_(Shell::install(&shell)) { model->createEmpty(); }
  ~ModelFixture() override
  {
    model.reset();
    Preferences::get() = {};
    Shell::install(before_);
  }

  fltapi::HeaderRecord& header() const { return *model->fltFile()->header(); }
  /// The header of another file that the document refers to. It has a group over a triangle.
  fltapi::HeaderRecord& addExternal()
  {
    others_.push_back(new fltapi::FltFile);
    auto& other = *others_.back();
    other.initNew();
    auto* group = make<fltapi::GroupRecord>(*other.header());
    auto* face = makeFace(*group, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    for (fltapi::PrimNodeRecord* node :
         {static_cast<fltapi::PrimNodeRecord*>(other.header()), static_cast<fltapi::PrimNodeRecord*>(group),
          static_cast<fltapi::PrimNodeRecord*>(face)})
      node->setExternalFile(&other);
    auto* reference = model->fltFile()->create<fltapi::ExternalRecord>();
    header().addChild(reference, /*append=*/true);
    reference->show(&other, "other.flt");
    return *other.header();
  }

  SelectionSet& selections() { return model->selections(); }
  std::vector<std::string> names() { return selections().names(); }

  RecordingShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 100, 100);

private:
  Shell* before_;
  std::vector<osg::ref_ptr<fltapi::FltFile>> others_;
};

} // namespace nalt
