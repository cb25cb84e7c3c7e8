#include "tests/core/UndoLaw.h"

#include "core/MacroCommand.h"
#include "core/hierarchy/DeleteSelected.h"
#include "core/selection/PivotCommand.h"
#include "core/selection/SelectOperations.h"
#include "scene/image/Highlight.h"
#include "scene/image/Marks.h"
#include "tests/fltapi/support/GeneratedFiles.h"
#include "tests/support/SampleFiles.h"

#include <random>

namespace nalt {
namespace {

using tests::UndoDocument;
using tests::UndoEdit;

void selectNodes(Model& model, const std::vector<std::string>& names)
{
  NameSearch search;
  search.names = names;
  ASSERT_TRUE(selectByName(model, search, /*undoable=*/false));
}

const UndoEdit edits[] = {
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
    {"changePivot",
     [](Model& model) {
       changePivot(model, {1, 2, 3}, true);
     }},
    {"deleteByMacroInMacro",
     [](Model& model) {
       auto outer = std::make_unique<MacroCommand>("outer.lua", std::vector<MacroParameter>{});
       auto inner = std::make_unique<MacroCommand>("inner.lua", std::vector<MacroParameter>{});
       auto& macros = Shell::get().openMacros;
       macros.push_back(outer.get());
       selectNodes(model, {"p2"});
       deleteSelected(model, true);
       macros.push_back(inner.get());
       selectNodes(model, {"p1/V0", "p1/V1"});
       deleteSelected(model, true);
       macros.pop_back();
       model.commandStack().add(std::move(inner));
       macros.pop_back();
       model.commandStack().add(std::move(outer));
     }},
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

class UndoLaw : public testing::TestWithParam<std::tuple<UndoEdit, bool>> {};

TEST_P(UndoLaw, UndoAndRedoRestoreEveryByte)
{
  const auto& [edit, withScene] = GetParam();
  UndoDocument document(withScene);
  tests::expectUndoLaw(document, edit);
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
      smallStep();
    } else {
      keepFew();
      deleteSelected(model_, true);
    }
  }

private:
  std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  void smallStep()
  {
    switch (below(3)) {
    case 0:
      model_.paletteIndices().set(PaletteKind::material, static_cast<int>(below(5)), true);
      break;
    case 1:
      model_.paletteIndices().setRgbColor({.r = static_cast<std::uint8_t>(below(256))}, true);
      break;
    default:
      changePivot(model_, {static_cast<double>(below(9)), 0, 0}, true);
    }
  }
  void selectSomething()
  {
    constexpr std::array modes = {SelectionMode::vertex, SelectionMode::edge,  SelectionMode::polygon,
                                  SelectionMode::object, SelectionMode::group, SelectionMode::lightPoint};
    const auto mode = modes[below(modes.size())];
    switch (below(6)) {
    case 0:
      invertSelection(model_, mode, true);
      break;
    case 1:
      convertSelection(model_, mode, true);
      break;
    case 2:
      selectParents(model_, true);
      break;
    case 3:
      selectPrevious(model_, true);
      break;
    default:
      selectAll(model_, mode, true);
    }
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

/// The marks of the records, by which the scene highlights them, are those of what is selected.
void expectMarksLikeSelection(Model& model)
{
  std::size_t marked = 0;
  const auto count = [&](const fltapi::Record& record) {
    marked += (record.marks() & Mark::selected ? 1 : 0) + (record.marks() & Mark::edge ? 1 : 0);
  };
  for (auto* node : model.fltFile()->header()->findDescendants(fltapi::opcodes::vertexList, true)) {
    for (const auto& vertex : static_cast<fltapi::VertexListRecord*>(node)->vertices())
      count(*vertex);
  }
  for (const auto& info : selectionModes()) {
    for (const auto opcode : {info.opcode, info.secondOpcode}) {
      if (opcode == 0) continue;
      for (auto* node : model.fltFile()->header()->findDescendants(opcode, true))
        count(*node);
    }
  }
  EXPECT_EQ(marked, model.selections().size());
}

/// Sanitizers make each step a good deal longer.
constexpr int longWalk =
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    2'000;
#else
    10'000;
#endif

void walkAndReturn(UndoDocument& document, int steps, unsigned seed)
{
  const auto before = document.bytes();
  Walk walk(*document.model, seed);
  for (int i = 0; i < steps; ++i) {
    walk.step();
    if (i % (steps / 20) == 0) expectMarksLikeSelection(*document.model);
  }
  while (!document.model->commandStack().undoCommands().empty())
    document.model->commandStack().undo();
  EXPECT_EQ(document.bytes(), before);
  expectMarksLikeSelection(*document.model);
}

class UndoWalk : public testing::TestWithParam<bool> {};

TEST_P(UndoWalk, TenThousandStepsLeadBackToTheFirstByte)
{
  UndoDocument document(GetParam());
  walkAndReturn(document, longWalk, 1);
}

TEST_P(UndoWalk, TheTankComesBackAfterTenThousandSteps)
{
  const auto tank = tests::sampleFile("t72-tank_des.flt");
  if (tank.empty()) GTEST_SKIP() << "the sample models aren't there";
  UndoDocument document(/*withScene=*/false);
  ASSERT_TRUE(document.model->load(tank));
  if (GetParam()) document.model->sceneRoot();
  walkAndReturn(document, longWalk, 3);
}

TEST_P(UndoWalk, AFileWithEveryKindOfRecordComesBack)
{
  UndoDocument document(/*withScene=*/false);
  const auto path = document.folder / "every-kind.flt";
  tests::writeFile(path, tests::flt::generatedFile("every-kind"));
  ASSERT_TRUE(document.model->load(path));
  if (GetParam()) document.model->sceneRoot();
  walkAndReturn(document, longWalk, 5);
}

INSTANTIATE_TEST_SUITE_P(Scenes, UndoWalk, testing::Bool(),
                         [](const auto& one) { return one.param ? "Shown" : "Unseen"; });

TEST(UndoWalkEnd, NothingOutlivesTheDocument)
{
  osg::observer_ptr<fltapi::FltFile> file;
  osg::observer_ptr<fltapi::HeaderRecord> header;
  std::vector<osg::observer_ptr<fltapi::Record>> records;
  {
    UndoDocument document(/*withScene=*/true);
    file = document.model->fltFile();
    header = document.model->fltFile()->header();
    for (const auto opcode : {fltapi::opcodes::face, fltapi::opcodes::vertexList, fltapi::opcodes::object}) {
      for (auto* record : header->findDescendants(opcode, true))
        records.emplace_back(record);
    }
    Walk walk(*document.model, 4);
    for (int i = 0; i < 500; ++i)
      walk.step();
  }
  EXPECT_FALSE(file.valid());
  EXPECT_FALSE(header.valid());
  for (const auto& record : records)
    EXPECT_FALSE(record.valid());
  EXPECT_EQ(fltapi::oversizeRecordCount(), 0u);
}

} // namespace
} // namespace nalt
