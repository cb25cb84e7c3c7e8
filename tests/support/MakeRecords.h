#pragma once

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <vector>

namespace nalt::tests {

/// A node at the end of `parent`, with a name of its own.
template <class T>
T* make(fltapi::PrimNodeRecord& parent)
{
  auto* record = parent.file()->create<T>();
  parent.addChild(record, /*append=*/true);
  record->assignUniqueName();
  return record;
}

/// Gives `record` a list of new corners.
template <class T>
T* withCorners(T* record, const std::vector<osg::Vec3d>& corners)
{
  fltapi::FltFile& file = *record->file();
  auto* list = file.create<fltapi::VertexListRecord>();
  record->addChild(list, /*append=*/true);
  for (const auto& corner : corners) {
    auto* vertex = file.create<fltapi::VertexRecord>();
    vertex->setPosition(corner);
    list->addVertex(vertex);
  }
  return record;
}

inline fltapi::FaceRecord* makeFace(fltapi::PrimNodeRecord& parent, const std::vector<osg::Vec3d>& corners)
{
  return withCorners(make<fltapi::FaceRecord>(parent), corners);
}

} // namespace nalt::tests
