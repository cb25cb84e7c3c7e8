#pragma once

#include "core/Model.h"
#include "core/Preferences.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/MakeRecords.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace nalt::tests {

// Whatever an edit does, undo brings the document back byte for byte, and redo brings the edit back. Every class of
// commands joins with a row of its own.

/// A document with what can go wrong in it: groups, a switch with masks, long names, subfaces, layers of texture
/// coordinates.
class UndoDocument {
public:
  explicit UndoDocument(bool withScene)
  {
    before_ = Shell::install(&shell);
    Preferences::get().maxCommands = 1'000'000;
    model->createEmpty();
    grow();
    if (withScene) model->sceneRoot();
  }
  ~UndoDocument()
  {
    model.reset();
    Preferences::get() = {};
    Shell::install(before_);
  }

  /// What a save writes, without the numbers of the next names: these only grow.
  std::string bytes()
  {
    const auto path = folder / "dump.flt";
    EXPECT_TRUE(model->fltFile()->save(path));
    auto all = readFile(path);
    using Header = fltapi::HeaderRecord;
    for (const auto& next :
         {Header::fields.nextGroup, Header::fields.nextLod, Header::fields.nextObject, Header::fields.nextFace,
          Header::fields.nextDof, Header::fields.nextSound, Header::fields.nextSwitch, Header::fields.nextLightPoint,
          Header::fields.nextLightPointSystem, Header::fields.nextMesh})
      all.replace(next.offset(), 2, 2, '\0');
    return all;
  }

  RecordingShell shell;
  TempFolder folder{memoryFolder()};
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);

private:
  void grow()
  {
    auto& header = *model->fltFile()->header();
    for (int g = 0; g < 3; ++g) {
      auto* group = make<fltapi::GroupRecord>(header);
      group->setComment("group number " + std::to_string(g));
      auto* toggle = make<fltapi::SwitchRecord>(*group);
      for (int o = 0; o < 4; ++o) {
        auto* object = make<fltapi::ObjectRecord>(*toggle);
        object->setName("a rather long name " + std::to_string(g * 10 + o));
        toggle->setBit(0, o, o % 2 == 0);
        for (int p = 0; p < 5; ++p)
          addPolygon(*object, 3 + p % 3, g * 100 + o * 10 + p);
      }
    }
  }
  void addPolygon(fltapi::PrimNodeRecord& parent, int corners, int place)
  {
    auto* face = make<fltapi::FaceRecord>(parent);
    auto* list = model->fltFile()->create<fltapi::VertexListRecord>();
    face->addChild(list, /*append=*/true);
    auto* layers = model->fltFile()->create<fltapi::UVListRecord>();
    layers->resize(8);
    layers->set(fltapi::UVListRecord::fields.mask, 0xc0000000);
    list->addChild(layers, /*append=*/true);
    for (int i = 0; i < corners; ++i) {
      auto* vertex = model->fltFile()->create<fltapi::NormalTextureVertexRecord>();
      vertex->setPosition({place + i * 0.5, i * 1.25, static_cast<double>(place)});
      list->addVertex(vertex);
      layers->setUV(i, 2, {static_cast<float>(i), static_cast<float>(place)});
    }
    if (place % 4 == 0) {
      auto* subface = make<fltapi::FaceRecord>(*face);
      subface->addChild(model->fltFile()->create<fltapi::VertexListRecord>(), /*append=*/true);
    }
  }

  Shell* before_ = nullptr;
};

struct UndoEdit {
  const char* name;
  std::function<void(Model&)> run;
};

inline void PrintTo(const UndoEdit& edit, std::ostream* out)
{
  *out << edit.name;
}

/// Save, edit, save, undo, save, redo, save: the first is like the third, the second like the fourth, twice over. The
/// edit has to leave one command.
inline void expectUndoLaw(UndoDocument& document, const UndoEdit& edit)
{
  auto& model = *document.model;
  const auto before = document.bytes();
  edit.run(model);
  ASSERT_EQ(model.commandStack().undoCommands().size(), 1u);
  const auto after = document.bytes();
  const auto selectedAfter = model.selections().names();
  for (int round = 0; round < 2; ++round) {
    model.commandStack().undo();
    EXPECT_EQ(document.bytes(), before);
    model.commandStack().redo();
    EXPECT_EQ(document.bytes(), after);
    EXPECT_EQ(model.selections().names(), selectedAfter);
  }
}

} // namespace nalt::tests
