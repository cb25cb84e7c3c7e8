#pragma once

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <cmath>
#include <filesystem>
#include <string>

namespace nalt::bench {

constexpr int rowsPerGroup = 10;

template <class T>
T* addTo(fltapi::PrimNodeRecord& parent)
{
  auto* record = parent.file()->create<T>();
  parent.addChild(record, /*append=*/true);
  return record;
}

/// Upright, so that who looks along y sees it whole.
inline void addQuad(fltapi::PrimNodeRecord& object, int column, int row, int side)
{
  using namespace fltapi;
  auto* list = addTo<VertexListRecord>(*addTo<FaceRecord>(object));
  list->reserve(4);
  constexpr int corners[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  for (const auto& [x, z] : corners) {
    auto* vertex = object.file()->create<NormalTextureVertexRecord>();
    vertex->setPosition({static_cast<double>(column + x), 0, static_cast<double>(row + z)});
    vertex->setNormal({0, -1, 0});
    vertex->setUV({static_cast<float>(column + x) / static_cast<float>(side),
                   static_cast<float>(row + z) / static_cast<float>(side)});
    list->addVertex(vertex);
  }
}

/// A grid of about `quads` quads, each with a normal and texture coordinates, below objects and groups.
inline osg::ref_ptr<fltapi::FltFile> makeGrid(int quads)
{
  osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
  file->initNew();
  const int side = static_cast<int>(std::sqrt(quads));
  fltapi::GroupRecord* group = nullptr;
  for (int row = 0; row < side; ++row) {
    if (row % rowsPerGroup == 0) group = addTo<fltapi::GroupRecord>(*file->header());
    auto* object = addTo<fltapi::ObjectRecord>(*group);
    for (int column = 0; column < side; ++column)
      addQuad(*object, column, row, side);
  }
  return file;
}

/// The same as a file; made once and kept in the build folder.
inline std::string gridFile(int quads)
{
  const std::filesystem::path folder = NALT_BENCH_DATA;
  std::filesystem::create_directories(folder);
  const auto path = folder / ("upright-grid-" + std::to_string(quads) + ".flt");
  if (!std::filesystem::exists(path)) makeGrid(quads)->save(path);
  return path;
}

} // namespace nalt::bench
