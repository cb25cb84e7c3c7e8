#include "core/MacroCommand.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/hierarchy/DeleteSelected.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/SampleFiles.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

// Whatever an edit does, undo brings the document back byte for byte, and redo brings the edit back.

namespace nalt {
namespace {

class Document {
public:
  explicit Document(bool withScene)
  {
    before_ = Shell::install(&shell);
    Preferences::get().maxCommands = 1'000'000;
    model->createEmpty();
    grow();
    if (withScene) model->sceneRoot();
  }
  ~Document()
  {
    model.reset();
    Preferences::get() = {};
    Shell::install(before_);
  }

  std::string bytes()
  {
    const auto path = folder / "dump.flt";
    EXPECT_TRUE(model->fltFile()->save(path));
    return tests::readFile(path);
  }

  RecordingShell shell;
  tests::TempFolder folder;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 0, 0);

private:
  template <class T>
  T* make(fltapi::PrimNodeRecord& parent)
  {
    auto* record = model->fltFile()->create<T>();
    parent.addChild(record, /*append=*/true);
    record->assignUniqueName();
    return record;
  }

  /// Groups, a switch with masks, long names, subfaces, layers of texture coordinates: what can go wrong.
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

void selectNodes(Model& model, const std::vector<std::string>& names)
{
  NameSearch search;
  search.names = names;
  ASSERT_TRUE(selectByName(model, search, /*undoable=*/false));
}

struct Edit {
  const char* name;
  std::function<void(Model&)> run;
};

void PrintTo(const Edit& edit, std::ostream* out)
{
  *out << edit.name;
}

const Edit edits[] = {
    {"deletePolygon",
     [](Model& model) {
       selectNodes(model, {"p7"});
       deleteSelected(model, true);
     }},
    {"deletePolygonsOfSeveralParents",
     [](Model& model) {
       selectNodes(model, {"p1", "p3", "p5", "p30", "p31"});
       deleteSelected(model, true);
     }},
    {"deleteGroup",
     [](Model& model) {
       selectNodes(model, {"g2"});
       deleteSelected(model, true);
     }},
    {"deleteSwitchChildren",
     [](Model& model) {
       selectNodes(model, {"a rather long name 1", "a rather long name 2"});
       deleteSelected(model, true);
     }},
    {"deleteCorner",
     [](Model& model) {
       selectNodes(model, {"p3/V1"});
       deleteSelected(model, true);
     }},
    {"deleteCornersUntilPolygonsGo",
     [](Model& model) {
       selectNodes(model, {"p1/V0", "p3/V0", "p3/V2", "p3/V4"});
       deleteSelected(model, true);
     }},
    {"deleteEverything",
     [](Model& model) {
       selectAll(model, SelectionMode::group, false);
       deleteSelected(model, true);
     }},
    {"select", [](Model& model) { selectAll(model, SelectionMode::polygon, true); }},
    {"setCurrentColorIndex", [](Model& model) { model.paletteIndices().set(PaletteKind::colorIndex, 17, true); }},
    {"setCurrentRgbColor",
     [](Model& model) { model.paletteIndices().setRgbColor({.r = 1, .g = 2, .b = 3, .a = 4}, true); }},
    {"macro",
     [](Model& model) {
       auto macro = std::make_unique<MacroCommand>("m.lua", std::vector<MacroParameter>{});
       auto& shell = Shell::get();
       shell.openMacros.push_back(macro.get());
       for (const auto* name : {"p2", "g3"}) {
         selectNodes(model, {name});
         deleteSelected(model, true);
       }
       shell.openMacros.clear();
       model.commandStack().add(std::move(macro));
     }},
};

class UndoLaw : public testing::TestWithParam<std::tuple<Edit, bool>> {};

TEST_P(UndoLaw, UndoAndRedoRestoreEveryByte)
{
  const auto& [edit, withScene] = GetParam();
  Document document(withScene);
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

INSTANTIATE_TEST_SUITE_P(Edits, UndoLaw, testing::Combine(testing::ValuesIn(edits), testing::Bool()),
                         [](const auto& one) {
                           return std::string(std::get<0>(one.param).name) +
                                  (std::get<1>(one.param) ? "Shown" : "Unseen");
                         });

// ---- random walks --------------------------------------------------------------------------------------------------

/// Edits, undos and redos in an order that chance decides, the same in every run.
class Walk {
public:
  Walk(Model& model, unsigned seed) : model_(model), random_(seed) {}

  void step()
  {
    const auto choice = below(10);
    if (choice < 3) {
      model_.commandStack().undo();
    } else if (choice < 5) {
      model_.commandStack().redo();
    } else if (choice < 7) {
      selectSomething();
    } else if (choice < 8) {
      model_.paletteIndices().set(PaletteKind::material, static_cast<int>(below(5)), true);
    } else {
      keepFew();
      deleteSelected(model_, true);
    }
  }

private:
  std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  void selectSomething()
  {
    constexpr std::array modes = {SelectionMode::vertex, SelectionMode::polygon, SelectionMode::object,
                                  SelectionMode::group, SelectionMode::lightPoint};
    selectAll(model_, modes[below(modes.size())], true);
  }
  /// One element of what is selected; deleting all of it each time would leave nothing to walk on.
  void keepFew()
  {
    const auto& families = model_.selections().current().families();
    if (families.empty()) return;
    auto few = families.begin()->second->clone();
    auto kept = below(few->size());
    few->discard([&](fltapi::PrimNodeRecord&, const fltapi::Record*) { return kept-- != 0; });
    if (!few->empty()) model_.selections().select(std::move(few), {});
  }

  Model& model_;
  std::mt19937 random_;
};

void walkAndReturn(Document& document, int steps, unsigned seed)
{
  const auto before = document.bytes();
  Walk walk(*document.model, seed);
  for (int i = 0; i < steps; ++i)
    walk.step();
  while (!document.model->commandStack().undoCommands().empty())
    document.model->commandStack().undo();
  EXPECT_EQ(document.bytes(), before);
}

TEST(UndoWalk, TenThousandStepsLeadBackToTheFirstByte)
{
  Document document(/*withScene=*/false);
  walkAndReturn(document, 10'000, 1);
}

TEST(UndoWalk, AWalkWithItsPictureLeadsBackToo)
{
  Document document(/*withScene=*/true);
  walkAndReturn(document, 2'000, 2);
}

TEST(UndoWalk, TheTankComesBackAfterTenThousandSteps)
{
  const auto tank = tests::sampleFile("t72-tank_des.flt");
  if (tank.empty()) GTEST_SKIP() << "the sample models aren't there";
  Document document(/*withScene=*/false);
  ASSERT_TRUE(document.model->load(tank));
  walkAndReturn(document, 10'000, 3);
}

TEST(UndoWalk, NothingOutlivesTheDocument)
{
  osg::observer_ptr<fltapi::FltFile> file;
  osg::observer_ptr<fltapi::HeaderRecord> header;
  {
    Document document(/*withScene=*/true);
    Walk walk(*document.model, 4);
    for (int i = 0; i < 500; ++i)
      walk.step();
    file = document.model->fltFile();
    header = document.model->fltFile()->header();
  }
  EXPECT_FALSE(file.valid());
  EXPECT_FALSE(header.valid());
  EXPECT_EQ(fltapi::oversizeRecordCount(), 0u);
}

} // namespace
} // namespace nalt
