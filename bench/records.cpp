// Reading and writing grids of quads, each with a normal and texture coordinates, below objects and groups.
#include "bench/GridFile.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <malloc.h>
#include <string>

namespace {

using namespace fltapi;

using nalt::bench::gridFile;

void load(benchmark::State& state)
{
  const auto path = gridFile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const osg::ref_ptr<FltFile> file = new FltFile;
    if (!file->load(path)) state.SkipWithError("the grid could not be read");
    state.PauseTiming();
    benchmark::DoNotOptimize(file->header());
    state.ResumeTiming();
  }
  state.counters["quads/s"] =
      benchmark::Counter(static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate);
}

void save(benchmark::State& state)
{
  const osg::ref_ptr<FltFile> file = new FltFile;
  if (!file->load(gridFile(static_cast<int>(state.range(0))))) state.SkipWithError("the grid could not be read");
  const auto target = (std::filesystem::temp_directory_path() / "nalt-saved.flt").string();
  for (auto _ : state) {
    if (!file->save(target)) state.SkipWithError("the grid could not be written");
  }
  std::filesystem::remove(target);
}

/// Heap bytes of one vertex in all: the object, its buffer, and its entry in the list.
void vertexMemory(benchmark::State& state)
{
  constexpr int count = 100'000;
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->initNew();
  double bytes = 0;
  for (auto _ : state) {
    const osg::ref_ptr<VertexListRecord> list = file->create<VertexListRecord>();
    const auto before = mallinfo2().uordblks + mallinfo2().hblkhd;
    list->reserve(count);
    for (int i = 0; i < count; ++i)
      list->addVertex(file->create<NormalTextureVertexRecord>());
    bytes = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd - before) / count;
  }
  state.counters["bytes"] = bytes;
}

} // namespace

BENCHMARK(load)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(vertexMemory)->Iterations(1);
