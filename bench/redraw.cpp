// One frame of a grid of a million quads in a viewport of 1000 by 600 pixels. Needs a display;
// bench/redraw-with-osg pairs it with OpenSceneGraph's viewer.
#include "app/Gui.h"
#include "bench/GridFile.h"
#include "core/Model.h"
#include "platform/Display.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportLayout.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace nalt;
using namespace nalt::bench;

constexpr int width = 1000;
constexpr int height = 600;
constexpr int quads = 1'000'000;
/// Distance in radii of the model at which the grid is as large as in the other viewer.
constexpr double distance = 2.79;

void redraw(benchmark::State& state)
{
  if (!displayAvailable()) {
    state.SkipWithError("no display");
    return;
  }
  Gui shell(/*headless=*/true);
  Fl_Double_Window window(width, height);
  auto* model = new Model(0, 0, width, height);
  window.add(model);
  window.end();
  if (!model->load(gridFile(quads))) {
    state.SkipWithError("no grid");
    return;
  }
  createViewports(*model, 1);
  auto* viewport = dynamic_cast<Viewport*>(model->viewports().front());
  window.show();
  auto style = viewport->style();
  style.appearance = static_cast<Appearance>(state.range(0));
  viewport->setStyle(style);
  viewport->viewAlong({0, 1, 0});
  auto pose = viewport->camera().pose();
  pose.distance = distance * model->sceneRoot()->getBound().radius();
  viewport->camera().setPose(pose);
  while (!viewport->shown() || !viewport->visible_r())
    Fl::wait();
  Fl::check();
  for (auto _ : state) {
    viewport->redraw();
    Fl::flush();
    viewport->make_current();
    glFinish();
  }
}
BENCHMARK(redraw)
    ->ArgName("appearance")
    ->Arg(static_cast<int>(Appearance::solid))
    ->Arg(static_cast<int>(Appearance::scribed))
    ->Arg(static_cast<int>(Appearance::wireframe))
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->Iterations(40);

} // namespace
