// What the scene costs for grids of quads: making it, keeping it right after edits, hiding.
#include "bench/GridFile.h"
#include "scene/image/Sync.h"
#include "scene/image/Visibility.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <vector>

namespace {

using namespace nalt;
using namespace nalt::bench;
using namespace fltapi;

constexpr int million = 1'000'000;

double megabytes()
{
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

/// One grid for all that don't change it for good.
FltFile& sharedGrid()
{
  static const auto file = makeGrid(million);
  return *file;
}

Sync& sharedScene()
{
  static const auto scene = [] {
    auto made = std::make_unique<Sync>(sharedGrid());
    made->translateAll();
    return made;
  }();
  return *scene;
}

std::vector<PrimNodeRecord*> faces(FltFile& file)
{
  std::vector<PrimNodeRecord*> all;
  for (auto* record : file.header()->findDescendants(FaceRecord::code, false))
    all.push_back(record->asNode());
  return all;
}

void translate(benchmark::State& state)
{
  auto& file = sharedGrid();
  for (auto _ : state) {
    const auto before = megabytes();
    Sync scene(file);
    scene.translateAll();
    state.PauseTiming();
    state.counters["MB"] = megabytes() - before;
    state.ResumeTiming();
  }
}
BENCHMARK(translate)->Unit(benchmark::kMillisecond);

/// A vertex of one polygon moves, as in a drag, and the next frame asks for the bounds.
void moveVertex(benchmark::State& state)
{
  auto& scene = sharedScene();
  const auto all = faces(sharedGrid());
  auto& face = static_cast<FaceRecord&>(*all[all.size() / 2]);
  double y = 0;
  for (auto _ : state) {
    face.vertexAt(0)->setPosition({0, y += 0.001, 0});
    scene.update(face);
    benchmark::DoNotOptimize(scene.root()->getBound().radius());
  }
}
BENCHMARK(moveVertex)->Unit(benchmark::kMicrosecond);

/// A polygon gets another color, and with it no other place.
void recolor(benchmark::State& state)
{
  auto& scene = sharedScene();
  const auto all = faces(sharedGrid());
  auto& face = static_cast<FaceRecord&>(*all[all.size() / 3]);
  face.set(FaceRecord::fields.flags, FaceRecord::packedColorFlag);
  std::uint8_t blue = 0;
  for (auto _ : state) {
    face.set(FaceRecord::fields.packedColor, {255, ++blue, 0, 0});
    scene.update(face);
  }
}
BENCHMARK(recolor)->Unit(benchmark::kMicrosecond);

/// Every other polygon out of sight and back.
void hideAndUnhide(benchmark::State& state)
{
  auto& scene = sharedScene();
  std::vector<PrimNodeRecord*> half;
  for (const auto all = faces(sharedGrid()); auto* face : all) {
    if (half.size() * 2 < all.size() && face->index() % 2) half.push_back(face);
  }
  for (auto _ : state) {
    hide(half, 1, scene);
    unhide(half, 1, scene);
  }
}
BENCHMARK(hideAndUnhide)->Unit(benchmark::kMillisecond);

/// Every tenth polygon leaves in one call and comes back in one.
void removeAndAdd(benchmark::State& state)
{
  auto& scene = sharedScene();
  std::vector<PrimNodeRecord*> some;
  const auto all = faces(sharedGrid());
  for (std::size_t i = 0; i < all.size(); i += 10)
    some.push_back(all[i]);
  for (auto _ : state) {
    scene.remove(some);
    scene.translate(some);
  }
}
BENCHMARK(removeAndAdd)->Unit(benchmark::kMillisecond);

} // namespace
