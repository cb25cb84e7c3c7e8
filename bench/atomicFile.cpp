// What safety costs: the same bytes in pieces of a record's size, through AtomicFile and through a plain stream.
#include "platform/AtomicFile.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace {

constexpr int pieces = 400'000;
constexpr std::array<char, 64> piece{};

std::string target()
{
  return (std::filesystem::temp_directory_path() / "nalt-bench.bin").string();
}

void atomicFile(benchmark::State& state)
{
  for (auto _ : state) {
    nalt::AtomicFile file(target());
    for (int i = 0; i < pieces; ++i)
      file.write(piece.data(), piece.size());
    if (!file.commit()) state.SkipWithError(file.errorText().c_str());
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{pieces} * std::int64_t{piece.size()});
  std::filesystem::remove(target());
}

void plainStream(benchmark::State& state)
{
  for (auto _ : state) {
    std::ofstream file(target(), std::ios::binary);
    for (int i = 0; i < pieces; ++i)
      file.write(piece.data(), piece.size());
    file.close();
    if (!file) state.SkipWithError("not written");
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{pieces} * std::int64_t{piece.size()});
  std::filesystem::remove(target());
}

BENCHMARK(atomicFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(plainStream)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
