// One frame of the same grid in OpenSceneGraph's own viewer, set up as its osgviewer is. Needs a display. The grid
// comes as its reader left it; bench/redraw-with-osg makes that file, since the reader takes many minutes for it.
#include "bench/GridFile.h"

#include <benchmark/benchmark.h>
#include <osgDB/ReadFile>
#include <osgGA/TrackballManipulator>
#include <osgUtil/Optimizer>
#include <osgViewer/Viewer>
#include <osgViewer/api/X11/GraphicsWindowX11>

#include <cstdlib>
#include <filesystem>
#include <string>

USE_GRAPHICSWINDOW()

namespace {

constexpr int width = 1000;
constexpr int height = 600;
constexpr int quads = 1'000'000;

std::string sceneFile()
{
  return std::filesystem::path(nalt::bench::gridFile(quads)).replace_extension(".osgb");
}

void redraw(benchmark::State& state)
{
  if (!std::getenv("DISPLAY")) {
    state.SkipWithError("no display");
    return;
  }
  const osg::ref_ptr<osg::Node> scene = osgDB::readRefNodeFile(sceneFile());
  if (!scene) {
    state.SkipWithError("no grid: bench/redraw-with-osg makes it");
    return;
  }
  osgUtil::Optimizer().optimize(scene);
  osgViewer::Viewer viewer;
  viewer.setThreadingModel(osgViewer::Viewer::SingleThreaded);
  viewer.setUpViewInWindow(0, 0, width, height);
  viewer.setCameraManipulator(new osgGA::TrackballManipulator);
  viewer.setSceneData(scene);
  viewer.realize();
  constexpr int warmUp = 5;
  for (int i = 0; i < warmUp; ++i)
    viewer.frame();
  auto& context = *viewer.getCamera()->getGraphicsContext();
  for (auto _ : state) {
    viewer.frame();
    context.makeCurrent();
    glFinish();
    context.releaseContext();
  }
}
BENCHMARK(redraw)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->Iterations(40);

} // namespace
