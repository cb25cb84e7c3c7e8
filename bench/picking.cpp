// Picking in grids of quads: a click, a click in vertex mode, and boxes around all or a part of them.
#include "app/Gui.h"
#include "core/Model.h"
#include "core/selection/SelectOperations.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/view/CornerMarks.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportLayout.h"

#include <FL/Fl.H>
#include <benchmark/benchmark.h>
#include <cmath>
#include <map>
#include <memory>

namespace {

using namespace nalt;

constexpr int rowsPerGroup = 10;
constexpr int width = 1000;
constexpr int height = 600;

/// A model in a viewport that was never shown; made once for each size.
class Grid {
public:
  explicit Grid(int quads) : side_(static_cast<int>(std::sqrt(quads)))
  {
    model_.createEmpty();
    fltapi::GroupRecord* group = nullptr;
    for (int row = 0; row < side_; ++row) {
      if (row % rowsPerGroup == 0) group = add<fltapi::GroupRecord>(*model_.fltFile()->header());
      auto* object = add<fltapi::ObjectRecord>(*group);
      for (int column = 0; column < side_; ++column)
        addQuad(*object, column, row);
    }
    createViewports(model_, 1);
    view_ = dynamic_cast<Viewport*>(model_.viewports().front());
    view_->fitInView();
  }

  static Grid& of(int quads)
  {
    static std::map<int, std::unique_ptr<Grid>> grids;
    auto& grid = grids[quads];
    if (!grid) grid = std::make_unique<Grid>(quads);
    return *grid;
  }

  Picker picker() { return view_->picker(); }
  Model& model() { return model_; }
  Viewport& view() { return *view_; }
  /// In the window, a share of the grid from its lower left corner.
  osg::Vec2d at(double x, double y) { return *view_->projection().toWindow(osg::Vec3d(x * side_, y * side_, 0)); }

private:
  template <class T>
  T* add(fltapi::PrimNodeRecord& parent)
  {
    auto* record = model_.fltFile()->create<T>();
    parent.addChild(record, /*append=*/true);
    return record;
  }
  void addQuad(fltapi::ObjectRecord& object, int column, int row)
  {
    auto* list = add<fltapi::VertexListRecord>(*add<fltapi::FaceRecord>(object));
    list->reserve(4);
    constexpr int corners[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (const auto& [x, y] : corners) {
      auto* vertex = model_.fltFile()->create<fltapi::VertexRecord>();
      vertex->setPosition({static_cast<double>(column + x), static_cast<double>(row + y), 0});
      list->addVertex(vertex);
    }
  }

  Model model_{0, 0, width, height};
  int side_;
  Viewport* view_ = nullptr;
};

Gui& shell()
{
  static Gui gui(/*headless=*/true);
  return gui;
}

void pick(benchmark::State& state, SelectionMode mode, double fromX, double fromY, double toX, double toY)
{
  shell();
  auto& grid = Grid::of(static_cast<int>(state.range(0)));
  const WindowRect rect{grid.at(fromX, fromY), grid.at(toX, toY)};
  std::size_t found = 0;
  for (auto _ : state) {
    const auto picked = grid.picker().pick(mode, rect);
    found = picked ? picked->size() : 0;
  }
  state.counters["found"] = static_cast<double>(found);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
  benchmark->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(pick, clickOnPolygon, SelectionMode::polygon, 0.501, 0.501, 0.501, 0.501)->Apply(sizes);
BENCHMARK_CAPTURE(pick, clickOnObject, SelectionMode::object, 0.501, 0.501, 0.501, 0.501)->Apply(sizes);
BENCHMARK_CAPTURE(pick, clickOnVertex, SelectionMode::vertex, 0.501, 0.501, 0.501, 0.501)->Apply(sizes);
BENCHMARK_CAPTURE(pick, clickBeside, SelectionMode::polygon, -0.01, 0.5, -0.01, 0.5)->Apply(sizes);
BENCHMARK_CAPTURE(pick, boxAroundAll, SelectionMode::polygon, -0.01, -0.01, 1.01, 1.01)->Apply(sizes);
BENCHMARK_CAPTURE(pick, boxAroundHalf, SelectionMode::polygon, -0.01, -0.01, 0.5, 1.01)->Apply(sizes);
BENCHMARK_CAPTURE(pick, boxAroundAllObjects, SelectionMode::object, -0.01, -0.01, 1.01, 1.01)->Apply(sizes);
BENCHMARK_CAPTURE(pick, boxAroundAllVertices, SelectionMode::vertex, -0.01, -0.01, 1.01, 1.01)->Apply(sizes);

/// The mouse goes over the model, and draws a band over it.
void moveMouse(benchmark::State& state)
{
  shell();
  auto& view = Grid::of(static_cast<int>(state.range(0))).view();
  view.selectionGesture().press({100, 100});
  int step = 0;
  for (auto _ : state) {
    Fl::e_x = 100 + ++step % 500;
    Fl::e_y = 100;
    Fl::e_state = 0;
    view.handle(FL_MOVE);
    Fl::e_state = FL_BUTTON1;
    view.handle(FL_DRAG);
  }
  view.selectionGesture().cancel();
}

/// What a frame spends on the normals of the selection, all of it, while that doesn't change.
void keepNormalsOfSelection(benchmark::State& state)
{
  shell();
  auto& grid = Grid::of(static_cast<int>(state.range(0)));
  auto& model = grid.model();
  if (!selectAll(model, SelectionMode::polygon, false)) {
    state.SkipWithError("nothing selected");
    return;
  }
  ViewStyle style;
  style.normals = true;
  ViewportPreferences preferences;
  preferences.normalsOnlySelection = true;
  CornerMarks marks;
  marks.watch(&model.selections());
  marks.update(*model.sync(), grid.view().bits(), style, preferences);
  for (auto _ : state)
    marks.update(*model.sync(), grid.view().bits(), style, preferences);
  SelectionChange forGood;
  forGood.undoable = false;
  model.selections().clear(forGood);
}

BENCHMARK(moveMouse)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(keepNormalsOfSelection)->Arg(10'000)->Arg(1'000'000);

} // namespace
