#pragma once

#include "core/Model.h"
#include "fltapi/FltFile.h"
#include "fltapi/geometry/VertexListRecord.h"
#include "fltapi/nodes/FaceRecord.h"
#include "fltapi/nodes/GroupRecords.h"
#include "fltapi/nodes/HeaderRecord.h"

#include <string>

namespace nalt {

/// Fills a new model with "g1" over "o1" and "o2"; "o1" has the triangles "p1" and "p2", "o2" has nothing.
inline void fillSmallDocument(Model& model)
{
  auto& file = *model.fltFile();
  const auto add = [](fltapi::PrimNodeRecord& parent, fltapi::PrimNodeRecord* node, const std::string& name) {
    parent.addChild(node, /*append=*/true);
    node->setName(name);
    return node;
  };
  auto* group = add(*file.header(), file.create<fltapi::GroupRecord>(), "g1");
  auto* object = add(*group, file.create<fltapi::ObjectRecord>(), "o1");
  add(*group, file.create<fltapi::ObjectRecord>(), "o2");
  for (const char* name : {"p1", "p2"}) {
    auto* face = add(*object, file.create<fltapi::FaceRecord>(), name);
    auto* list = file.create<fltapi::VertexListRecord>();
    face->addChild(list, /*append=*/true);
    for (int corner = 0; corner < 3; ++corner) {
      auto* vertex = file.create<fltapi::VertexRecord>();
      vertex->setPosition({corner % 2 * 1.0, corner / 2 * 1.0, 0.0});
      list->addVertex(vertex);
    }
  }
}

} // namespace nalt
