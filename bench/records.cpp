// Reading and writing grids of quads, each with a normal and texture coordinates, below objects and groups.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>
#include <malloc.h>
#include <string>

namespace {

using namespace fltapi;

constexpr int rowsPerGroup = 10;

template <class T>
T* addTo(PrimNodeRecord& parent)
{
  auto* record = parent.file()->create<T>();
  parent.addChild(record, /*append=*/true);
  return record;
}

void addQuad(PrimNodeRecord& object, int column, int row, int side)
{
  auto* list = addTo<VertexListRecord>(*addTo<FaceRecord>(object));
  list->reserve(4);
  constexpr int corners[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  for (const auto& [x, y] : corners) {
    auto* vertex = object.file()->create<NormalTextureVertexRecord>();
    vertex->setPosition({static_cast<double>(column + x), static_cast<double>(row + y), 0});
    vertex->setNormal({0, 0, 1});
    vertex->setUV({static_cast<float>(column + x) / static_cast<float>(side),
                   static_cast<float>(row + y) / static_cast<float>(side)});
    list->addVertex(vertex);
  }
}

/// A file of about `quads` quads; made once and kept in the folder for temporary files.
std::string gridFile(int quads)
{
  const auto path = std::filesystem::temp_directory_path() / ("nalt-grid-" + std::to_string(quads) + ".flt");
  if (std::filesystem::exists(path)) return path;
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->initNew();
  const int side = static_cast<int>(std::sqrt(quads));
  GroupRecord* group = nullptr;
  for (int row = 0; row < side; ++row) {
    if (row % rowsPerGroup == 0) group = addTo<GroupRecord>(*file->header());
    auto* object = addTo<ObjectRecord>(*group);
    for (int column = 0; column < side; ++column)
      addQuad(*object, column, row, side);
  }
  file->save(path);
  return path;
}

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
