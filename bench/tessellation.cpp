// Filling contours of many corners, as terrain and coast lines have them.
#include "scene/image/Tessellation.h"
#include "scene/image/EarClipping.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace {

using namespace nalt;

using Contour = std::vector<osg::Vec3>;

template <class Radius>
Contour ring(int corners, Radius&& radius)
{
  Contour contour;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * i / corners;
    const double distance = radius(i);
    contour.emplace_back(distance * std::cos(angle), distance * std::sin(angle), 0);
  }
  return contour;
}

Contour star(int corners)
{
  return ring(corners, [](int i) { return i % 2 ? 10.0 : 1.0; });
}

Contour coast(int corners)
{
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(9, 10);
  return ring(corners, [&](int) { return noise(random); });
}

/// Drawn by a hand that trembles: the edges cross now and then.
Contour scrawl(int corners)
{
  std::mt19937 random(1);
  std::normal_distribution<double> noise(0, 20.0 / corners);
  auto contour = coast(corners);
  for (auto& corner : contour)
    corner += osg::Vec3(noise(random), noise(random), 0);
  return contour;
}

/// Teeth as long as the comb is wide.
Contour comb(int corners)
{
  Contour contour;
  const int teeth = corners / 2 - 1;
  for (int i = 0; i <= 2 * teeth; ++i)
    contour.emplace_back(i % 2 ? 1000 : 1, i, 0);
  contour.emplace_back(0, 2 * teeth, 0);
  contour.emplace_back(0, 0, 0);
  return contour;
}

/// A band wound up to a coil.
Contour coil(int corners)
{
  constexpr double turns = 20;
  const int half = corners / 2;
  Contour contour;
  const auto add = [&](int i, double more) {
    const double angle = turns * 2 * std::numbers::pi * i / half;
    contour.emplace_back((angle + more) * std::cos(angle), (angle + more) * std::sin(angle), 0);
  };
  for (int i = 0; i < half; ++i)
    add(i, 3);
  for (int i = half - 1; i >= 0; --i)
    add(i, 0);
  return contour;
}

template <Contour (*make)(int)>
void fill(benchmark::State& state)
{
  const auto contour = make(static_cast<int>(state.range(0)));
  const auto normal = areaNormal(contour);
  std::size_t triangles = 0;
  for (auto _ : state)
    triangles = tessellate(contour, normal).size() / 3;
  state.counters["triangles"] = static_cast<double>(triangles);
}

template <Contour (*make)(int)>
void cutEars(benchmark::State& state)
{
  const auto contour = make(static_cast<int>(state.range(0)));
  std::vector<osg::Vec2d> places;
  for (const auto& corner : contour)
    places.emplace_back(corner.x(), corner.y());
  std::size_t triangles = 0;
  for (auto _ : state)
    triangles = clipEars(places).size() / 3;
  state.counters["triangles"] = static_cast<double>(triangles);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
  benchmark->Arg(2'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMillisecond)->Iterations(1);
}

BENCHMARK(fill<star>)->Apply(sizes);
BENCHMARK(fill<coast>)->Apply(sizes);
BENCHMARK(fill<scrawl>)->Apply(sizes);
BENCHMARK(fill<comb>)->Apply(sizes);
BENCHMARK(fill<coil>)->Apply(sizes);
BENCHMARK(cutEars<star>)->Apply(sizes);
BENCHMARK(cutEars<coast>)->Apply(sizes);
BENCHMARK(cutEars<scrawl>)->Apply(sizes);
BENCHMARK(cutEars<comb>)->Apply(sizes);
BENCHMARK(cutEars<coil>)->Apply(sizes);

} // namespace
