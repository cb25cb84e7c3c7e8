// Selecting in grids of quads: what the menu does with everything at once, and clicks on one of many.
#include "app/Gui.h"
#include "core/Model.h"
#include "core/Preferences.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/Highlight.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>
#include <malloc.h>
#include <memory>

namespace {

using namespace nalt;

template <class T>
T* addTo(fltapi::PrimNodeRecord& parent)
{
  auto* record = parent.file()->create<T>();
  parent.addChild(record, /*append=*/true);
  return record;
}

/// A document with about that many quads below objects of a row each.
class Grid {
public:
  explicit Grid(std::int64_t quads)
  {
    Preferences::get().maxCommands = 10;
    model.createEmpty();
    const int side = static_cast<int>(std::sqrt(quads));
    auto* group = addTo<fltapi::GroupRecord>(*model.fltFile()->header());
    for (int row = 0; row < side; ++row) {
      auto* object = addTo<fltapi::ObjectRecord>(*group);
      for (int column = 0; column < side; ++column)
        addQuad(*object, column, row);
    }
  }

  Gui gui{/*headless=*/true};
  Model model{0, 0, 0, 0};

private:
  static void addQuad(fltapi::PrimNodeRecord& object, int column, int row)
  {
    auto* list = addTo<fltapi::VertexListRecord>(*addTo<fltapi::FaceRecord>(object));
    constexpr int corners[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (const auto& [x, y] : corners) {
      auto* vertex = object.file()->create<fltapi::VertexRecord>();
      vertex->setPosition({static_cast<double>(column + x), static_cast<double>(row + y), 0});
      list->addVertex(vertex);
    }
  }
};

/// The grids of one size serve all benchmarks.
Grid& grid(std::int64_t quads)
{
  static std::unique_ptr<Grid> kept;
  static std::int64_t size = 0;
  if (size != quads) {
    kept.reset();
    kept = std::make_unique<Grid>(quads);
    size = quads;
  }
  kept->model.selections().clear({.undoable = false, .updatePivot = true, .script = {}, .comment = {}});
  kept->model.commandStack().clear();
  return *kept;
}

void countQuads(benchmark::State& state)
{
  state.counters["quads/s"] =
      benchmark::Counter(static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate);
}

/// Runs `work` on a grid, after `prepare` each time.
template <class Prepare, class Work>
void measure(benchmark::State& state, const Prepare& prepare, const Work& work)
{
  auto& model = grid(state.range(0)).model;
  for (auto _ : state) {
    state.PauseTiming();
    prepare(model);
    state.ResumeTiming();
    work(model);
  }
  countQuads(state);
}

void nothingSelected(Model& model)
{
  selectNone(model, false);
}
void polygonsSelected(Model& model)
{
  selectAll(model, SelectionMode::polygon, false);
}

/// The yardstick: what all of the others take together should stay below three times this.
void loadTheFile(benchmark::State& state)
{
  const auto path = std::filesystem::temp_directory_path() / "nalt-selection-grid.flt";
  if (!grid(state.range(0)).model.fltFile()->save(path)) state.SkipWithError("the grid could not be written");
  for (auto _ : state) {
    Model model(0, 0, 0, 0);
    if (!model.load(path)) state.SkipWithError("the grid could not be read");
    state.PauseTiming();
    benchmark::DoNotOptimize(model.fltFile());
    state.ResumeTiming();
  }
  std::filesystem::remove(path);
  countQuads(state);
}

void selectAllPolygons(benchmark::State& state)
{
  measure(state, nothingSelected, [](Model& model) { selectAll(model, SelectionMode::polygon, true); });
}
void invertPolygons(benchmark::State& state)
{
  const auto oneSelected = [](Model& model) {
    NameSearch search;
    search.names = {"p77"};
    selectByName(model, search, false);
  };
  measure(state, oneSelected, [](Model& model) { invertSelection(model, SelectionMode::polygon, true); });
}
void convertToVertices(benchmark::State& state)
{
  measure(state, polygonsSelected, [](Model& model) { convertSelection(model, SelectionMode::vertex, true); });
}
void nakedEdges(benchmark::State& state)
{
  measure(state, nothingSelected, [](Model& model) { selectNakedEdges(model, true); });
}
void slivers(benchmark::State& state)
{
  measure(state, nothingSelected, [](Model& model) { selectSliverPolygons(model, true); });
}

/// A click with the toggle key on one polygon among as many selected ones, with their highlights in the scene.
void toggleOne(benchmark::State& state)
{
  auto& model = grid(state.range(0)).model;
  model.sceneRoot();
  polygonsSelected(model);
  model.sync()->highlight().update();
  const auto faces = model.fltFile()->header()->findDescendants(fltapi::opcodes::face, false);
  const auto one = selectionOf(static_cast<fltapi::PrimNodeRecord&>(*faces[faces.size() / 2]));
  for (auto _ : state)
    model.selections().toggle(*one);
}

/// Bytes that stay behind once everything that was selected isn't any more.
void memoryAfterClear(benchmark::State& state)
{
  auto& model = grid(state.range(0)).model;
  std::size_t held = 0;
  std::size_t left = 0;
  for (auto _ : state) {
    malloc_trim(0);
    const auto before = mallinfo2().uordblks;
    selectAll(model, SelectionMode::vertex, true);
    held = mallinfo2().uordblks - before;
    model.commandStack().clear();
    selectNone(model, false);
    selectNone(model, false);
    left = mallinfo2().uordblks - before;
  }
  state.counters["bytes of a corner"] = static_cast<double>(held) / (4.0 * static_cast<double>(state.range(0)));
  state.counters["bytes left"] = static_cast<double>(left);
}

constexpr std::int64_t tenth = 100'000;
constexpr std::int64_t million = 1'000'000;

#define NALT_BENCHMARK(name) BENCHMARK(name)->Arg(tenth)->Arg(million)->Unit(benchmark::kMillisecond)

NALT_BENCHMARK(loadTheFile);
NALT_BENCHMARK(selectAllPolygons);
NALT_BENCHMARK(invertPolygons);
NALT_BENCHMARK(convertToVertices);
NALT_BENCHMARK(nakedEdges);
NALT_BENCHMARK(slivers);
NALT_BENCHMARK(memoryAfterClear);
BENCHMARK(toggleOne)->Arg(tenth)->Arg(million)->Unit(benchmark::kMicrosecond);

} // namespace
