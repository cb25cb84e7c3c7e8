#pragma once

#include "app/DatabaseHost.h"
#include "app/Gui.h"
#include "app/MenuTable.h"
#include "core/Clipboard.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nalt {

/// The controller without a display; a test gives the answers and sees what was asked.
class AskingGui : public Gui {
public:
  AskingGui() : Gui(/*headless=*/true) {}

  Answer ask(const std::string& text) override
  {
    questions.push_back(text);
    return answer;
  }
  Answer askOrCancel(const std::string& text) override { return ask(text); }

  std::vector<std::string> questions;
  Answer answer = Answer::yes;
};

/// The controller without a display, and models of squares for it to work on.
class GuiFixture : public testing::Test {
protected:
  GuiFixture()
  {
    Preferences::get() = Preferences();
    gui.setScriptOutput([this](const std::string& line) { said.push_back(line); });
  }
  ~GuiFixture() override { Clipboard::get().clear(); }

  /// A file with an object of unit squares in a row, beside each other.
  std::string savedSquares(const std::string& name, int count, int version = 1620) const
  {
    const std::string path = folder / name;
    const osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
    file->initNew();
    auto* group = addNode<fltapi::GroupRecord>(*file, *file->header(), "g1");
    auto* object = addNode<fltapi::ObjectRecord>(*file, *group, "o1");
    for (int i = 0; i < count; ++i)
      addSquare(*file, *object, i);
    EXPECT_TRUE(file->save(path, version));
    return path;
  }

  template <class T>
  static T* addNode(fltapi::FltFile& file, fltapi::PrimNodeRecord& parent, const std::string& name)
  {
    T* node = file.create<T>();
    parent.addChild(node, /*append=*/true);
    node->setName(name);
    return node;
  }

  static void addSquare(fltapi::FltFile& file, fltapi::PrimNodeRecord& parent, int place)
  {
    auto* face = addNode<fltapi::FaceRecord>(file, parent, "p" + std::to_string(place + 1));
    auto* list = file.create<fltapi::VertexListRecord>();
    face->addChild(list, /*append=*/true);
    const double x = place;
    for (const osg::Vec3d& corner :
         {osg::Vec3d(x, 0, 0), osg::Vec3d(x + 1, 0, 0), osg::Vec3d(x + 1, 1, 0), osg::Vec3d(x, 1, 0)}) {
      auto* vertex = file.create<fltapi::VertexRecord>();
      vertex->setPosition(corner);
      list->addVertex(vertex);
    }
  }

  /// The menu entry with that label, its "&" included.
  static const MenuRow& entry(const std::string& label)
  {
    static const MenuRow none{MenuRow::Kind::end};
    for (const MenuRow& row : menuRows())
      if (row.label && label == row.label) return row;
    ADD_FAILURE() << "there is no entry " << label;
    return none;
  }
  bool isActive(const std::string& label) const { return entry(label).run && entry(label).enabled(gui); }
  void pick(const std::string& label)
  {
    ASSERT_TRUE(isActive(label)) << label;
    entry(label).run(gui);
  }

  tests::TempFolder folder;
  std::vector<std::string> said; ///< by messages
  AskingGui gui;
  DatabaseHost host{gui};
};

} // namespace nalt
